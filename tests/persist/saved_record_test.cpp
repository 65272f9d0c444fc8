// A saved game with its record beside the game text: what loads, what is
// kept, and what is refused.
#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "core/match.h"
#include "persist/file_coder.h"
#include "persist/game_text.h"
#include "persist/sample_game.h"
#include "persist/saved_game.h"

namespace varkesh {
namespace {

using testing::SampleMatch;

// The sample played on: Black, Red and Blue move (Red's as the computer
// plays, its pawn option left to its own rule), Black resigns, Red moves.
Match RecordedMatch() {
  Match match = SampleMatch();
  EXPECT_TRUE(PlayMove(match, Move::Of(8, 3, 8, 5)).played);
  EXPECT_TRUE(PlayMove(match, Move::Of(13, 8, 11, 8, kOptionComputer)).played);
  EXPECT_TRUE(PlayMove(match, Move::Of(3, 8, 5, 8)).played);
  EXPECT_TRUE(PlayResign(match, kNoTeam).done);
  EXPECT_TRUE(PlayMove(match, Move::Of(13, 7, 12, 7)).played);
  EXPECT_EQ(match.record.events.size(), 5u);
  return match;
}

void ExpectSameMatch(const Match& loaded, const Match& saved) {
  EXPECT_TRUE(loaded.position == saved.position);
  EXPECT_EQ(loaded.setup, saved.setup);
  EXPECT_TRUE(loaded.record == saved.record);
}

TEST(SavedGame, TheRecordTravelsBesideTheGameTextAndComesBackWhole) {
  const Match saved = RecordedMatch();
  SquareMarks marks{};
  marks[Board::Index(11, 8)] = 1;
  const std::string coded = EncodeSavedGame(saved, &marks);
  // The game text leads, byte for byte as a NetPlay host sends it.
  EXPECT_EQ(DecodeTexts(coded).front(), WriteGameText(saved.position, saved.setup, &marks));
  Match loaded;
  SquareMarks loadedMarks{};
  DecodeSavedGame(coded, loaded, &loadedMarks);
  ExpectSameMatch(loaded, saved);
  EXPECT_EQ(loadedMarks, marks);
  const std::string bytes("\0\x01\xff\r\n\"x", 7);  // the coder takes any bytes
  EXPECT_EQ(DecodeText(EncodeText(bytes)), bytes);
}

TEST(SavedGame, AFileOfTheFirstVersionLoadsWithARecordBeginningThere) {
  // Written by an earlier version: the Anarchy game "Friday" after three moves.
  const std::string coded = ReadFileBytes(VARKESH_PERSIST_TESTS "/friday_v1.vsh");
  ASSERT_EQ(coded[4], '\x01');
  Match loaded;
  loaded.record.events.push_back(RecordEvent::Resignation(kRed));
  DecodeSavedGame(coded, loaded);
  EXPECT_EQ(loaded.setup.gameName, "Friday");
  EXPECT_EQ(loaded.setup.playerKinds, (PerTeam<int>{kHuman, kAggressive, kHuman, kDefensive}));
  EXPECT_EQ(loaded.position.currentTeam, kRed);
  EXPECT_EQ(loaded.position.board.at(8, 11).piece, kPawn);
  EXPECT_EQ(loaded.position.board.at(5, 8).team, kBlue);
  EXPECT_EQ(loaded.position.board.at(8, 4).team, kBlack);
  EXPECT_TRUE(loaded.record.start == loaded.position);
  EXPECT_TRUE(loaded.record.events.empty());
  // Saved again, it is a file of the present version that reads the same.
  const std::string resaved = EncodeSavedGame(loaded, nullptr);
  EXPECT_EQ(resaved[4], '\x02');
  Match again;
  DecodeSavedGame(resaved, again);
  ExpectSameMatch(again, loaded);
}

TEST(SavedGame, ARecordThatDoesNotLeadToTheSavedPositionIsDropped) {
  const Match saved = RecordedMatch();
  const std::string text = WriteGameText(saved.position, saved.setup);
  const std::string start = WriteGameText(saved.record.start, saved.setup);
  const std::string events = DecodeTexts(EncodeSavedGame(saved, nullptr))[2];
  Match moved = saved;  // the board changed after the last recorded move
  moved.position.board.at(8, 5) = moved.position.board.at(8, 6);
  moved.position.Refresh();
  const std::string movedText = WriteGameText(moved.position, moved.setup);
  const std::vector<std::vector<std::string>> cases = {
      {movedText, start, events},
      {text, start, "M 8 3 8 5 -1\r\nM 8 3 8 5 -1\r\n"},  // the second does not fit
      {text, start, events + "M 8 3 8 5\r\n"},            // a field short
      {text, start, events + "M 8 3 8 5 -4\r\n"},         // no such option
      {text, start, events + "X 1\r\n"},
      {text, start, events + "R 5\r\n"},
      {text, "\"Friday\"\r\n", events},
      {text, start},
  };
  for (std::size_t i = 0; i < cases.size(); ++i) {
    Match loaded;
    DecodeSavedGame(EncodeTexts(cases[i]), loaded);
    const Position& expected = i == 0 ? moved.position : saved.position;
    EXPECT_TRUE(loaded.position == expected) << "case " << i;
    EXPECT_TRUE(loaded.record.start == expected) << "case " << i;
    EXPECT_TRUE(loaded.record.events.empty()) << "case " << i;
  }
}

TEST(SavedGame, ADamagedFileIsRefusedWithItsReasonAndTheGameKept) {
  const std::string kForeign = "This file is not a Varkesh saved game";
  const std::string kDamaged = "This saved game is damaged";
  const Match sample = SampleMatch();
  const std::string text = WriteGameText(sample.position, sample.setup);
  const std::string coded = EncodeSavedGame(RecordedMatch(), nullptr);
  auto flipped = [&](std::size_t at, char bits) {
    std::string copy = coded;
    copy[at] ^= bits;
    return copy;
  };
  const std::pair<std::string, std::string> cases[] = {
      {"", kForeign},
      {text, kForeign},
      {coded.substr(0, 12), kForeign},  // shorter than the header
      {flipped(4, 4), kForeign},        // another version
      {coded.substr(0, coded.size() - 1), kDamaged},
      {coded + "tail", kDamaged},
      {flipped(5, 1), kDamaged},     // length
      {flipped(8, 0x70), kDamaged},  // a length no game has
      {flipped(9, 1), kDamaged},     // checksum
      {flipped(coded.size() / 2, 0x40), kDamaged},
      {EncodeTexts({}), kDamaged},
      {EncodeTexts({"Friday"}), "line 1: the game name must stand between double quotes"},
      {EncodeTexts({text.substr(0, text.size() / 2)}), "line 150: expected 5 fields, found 4"},
  };
  for (const auto& [bytes, message] : cases) {
    Match target = RecordedMatch();
    const Match before = target;
    try {
      DecodeSavedGame(bytes, target);
      ADD_FAILURE() << message << ": loaded";
    } catch (const std::runtime_error& error) {
      EXPECT_EQ(error.what(), message);
    }
    ExpectSameMatch(target, before);
  }
}

}  // namespace
}  // namespace varkesh
