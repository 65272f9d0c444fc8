// Records as text: what is written reads back the same, replays to the same
// game, and a damaged record is refused with its line and reason.
#include "persist/record_text.h"

#include <gtest/gtest.h>

#include "core/match.h"
#include "core/new_game_data.h"
#include "core/resign.h"
#include "core/rules.h"
#include "engine/random.h"
#include "persist/game_text.h"
#include "persist/position_string.h"

namespace varkesh {
namespace {

const Board& StandardBoard() {
  static const Board board = LoadNewGameDataFile(VARKESH_PACK_DIR "/newgamedata.txt");
  return board;
}

Match NewMatch(int gameType, int rule) {
  Match match;
  match.setup.gameName = "Moat Keep";
  match.setup.playerKinds = {kHuman, kAggressive, kBalanced, kDefensive};
  match.position.board = StandardBoard();
  match.position.gameType = gameType;
  match.position.kingCaptureRule = rule;
  match.position.Refresh();
  match.BeginRecord();
  return match;
}

// Plays up to count events drawn from random: moves with every kind of pawn
// option, and now and then a resignation.
void PlayRandomly(Match& match, Random& random, int count) {
  for (int i = 0; i < count && !match.position.Finished(); ++i) {
    if (random.Below(60) == 0) {
      const std::vector<int> offers = ConcedeOffers(match.position);
      const int to =
          offers.empty()
              ? kNoTeam
              : offers[static_cast<std::size_t>(random.Below(static_cast<int>(offers.size())))];
      if (PlayResign(match, to).done) continue;
    }
    MoveList moves;
    ListBranches(match.position, moves);
    if (moves.Empty()) return;
    Move move = moves[random.Below(moves.Count())];
    if (move.option != kOptionClosed && random.Below(4) == 0) move.option = kOptionComputer;
    PlayMove(match, move);
  }
}

GameRecord RecordOf(const Match& match) {
  GameRecord game;
  game.setup = match.setup;
  game.date = "2026.11.25";
  game.setup.levels[1] = kLevelExpert;
  game.record = match.record;
  return game;
}

std::string Written(const GameRecord& game) {
  std::optional<std::string> text = WriteRecordText(game, &StandardBoard());
  EXPECT_TRUE(text.has_value());
  return text.value_or("");
}

void ExpectRoundTrip(const Match& match) {
  const GameRecord game = RecordOf(match);
  const std::string text = Written(game);
  GameRecord read;
  const std::optional<RecordProblem> problem = ReadRecordText(text, &StandardBoard(), read);
  ASSERT_FALSE(problem.has_value()) << problem->Text() << "\n" << text;
  EXPECT_EQ(read, game) << text;
  EXPECT_EQ(Written(read), text);
  // The record replays to the game as it stands, to the last byte of its text.
  EXPECT_EQ(WriteGameText(FinalPosition(read.record), read.setup),
            WriteGameText(match.position, match.setup));
}

TEST(RecordTextTest, RandomGamesOfEveryTypeAndRuleRoundTrip) {
  Random random(7);
  for (int gameType = kAlliedNeighbors; gameType <= kAnarchy; ++gameType) {
    for (int rule = kKingdomGained; rule <= kKingdomFrozen; ++rule) {
      for (int game = 0; game < 3; ++game) {
        SCOPED_TRACE("type " + std::to_string(gameType) + " rule " + std::to_string(rule));
        Match match = NewMatch(gameType, rule);
        PlayRandomly(match, random, 400);
        ExpectRoundTrip(match);
      }
    }
  }
}

TEST(RecordTextTest, AGameBegunMidwayKeepsItsWholeStart) {
  Random random(11);
  for (int rule = kKingdomGained; rule <= kKingdomFrozen; ++rule) {
    Match match = NewMatch(kCrossroadAllies, rule);
    // Played until some kingdom has fallen, so the start has prisoners,
    // moved realms or frozen pieces to carry.
    for (int i = 0; i < 50 && !match.position.Finished(); ++i) {
      PlayRandomly(match, random, 40);
      bool fallen = false;
      for (bool f : match.position.kingdomFallen) fallen = fallen || f;
      if (fallen) break;
    }
    if (match.position.Finished()) continue;
    match.BeginRecord();
    PlayRandomly(match, random, 60);
    const std::string text = Written(RecordOf(match));
    EXPECT_EQ(text.find("[Start \"standard\"]"), std::string::npos);
    ExpectRoundTrip(match);
  }
}

TEST(RecordTextTest, TheNotationNamesSquaresPieceAndCapture) {
  Match match = NewMatch(kAlliedNeighbors, kKingdomGained);
  MoveList moves;
  ListMoves(match.position, moves);
  ASSERT_FALSE(moves.Empty());
  const Move first = moves[0];
  const int piece = match.position.board.at(first.fromX, first.fromY).piece;
  PlayMove(match, first);
  const std::string text = Written(RecordOf(match));
  const std::string expected = std::string("1. White ") + PieceLetter(piece) +
                               SquareName(first.fromX, first.fromY) + "-" +
                               SquareName(first.toX, first.toY) + "\n";
  EXPECT_NE(text.find(expected), std::string::npos) << text;
  EXPECT_NE(text.find("[Start \"standard\"]"), std::string::npos);
  EXPECT_NE(text.find("[Result \"*\"]"), std::string::npos);
  EXPECT_EQ(SquareName(0, 16), "a1");
  EXPECT_EQ(SquareName(16, 0), "q17");
}

// A good record of a few moves, broken one way at a time.
TEST(RecordTextTest, ADamagedRecordIsRefusedWithLineAndReason) {
  Match match = NewMatch(kAlliedNeighbors, kKingdomLost);
  Random random(3);
  PlayRandomly(match, random, 9);
  const std::string good = Written(RecordOf(match));
  // Lines: 1 Name, 2 Date, 3 GameType, 4 Rule, 5 White, 6 Blue, 7 BlueLevel,
  // 8 Black, 9 BlackLevel, 10 Red, 11 RedLevel, 12 Result, 13 Start, 14 blank,
  // 15 round 1, 16 round 2, 17 round 3.
  const std::size_t round2 = good.find("\n2. ") + 1;
  const std::size_t firstMove = good.find("1. White ") + 9;
  // White's first move, as "Ph13-h12", and its square of departure.
  const std::string first =
      good.substr(firstMove, good.find_first_of(" \n", firstMove) - firstMove);
  const std::string departure = first.substr(0, first.find('-'));
  struct Case {
    std::string text;
    int line;
    std::string reason;
  };
  auto replaced = [&](std::size_t at, std::size_t length, const std::string& with) {
    std::string text = good;
    return text.replace(at, length, with);
  };
  auto swapped = [&](const std::string& from, const std::string& to) {
    std::string text = good;
    const std::size_t at = text.find(from);
    return at == std::string::npos ? std::string() : text.replace(at, from.size(), to);
  };
  const Case cases[] = {
      {swapped("[Rule \"Kingdom Lost\"]", "[Rule \"Kingdom Kept\"]"), 4, "no such rule"},
      {swapped("[GameType \"Allied Neighbors\"]\n", ""), 14, "the tag GameType is missing"},
      {swapped("[Blue \"Aggressive\"]", "[Blue \"Clever\"]"), 6, "a player is Human"},
      {swapped("[BlueLevel \"Expert\"]", "[BlueLevel \"Strong\"]"), 7, "a level is Classic"},
      {swapped("[Name \"Moat Keep\"]", "[Name Moat Keep]"), 1, "a tag is [Key"},
      {swapped("[Name \"Moat Keep\"]", "[Name \"Moat \\\"Keep\"]"), 1, "double quote"},
      {swapped("[Result \"*\"]", "[Result \"Red\"]"), 12, "the result is *, not Red"},
      {swapped("[Start \"standard\"]", "[Start \"8/8 w 1\"]"), 13, "8 fields"},
      {replaced(firstMove, 1, "Q"), 15, "no Queen of White stands"},
      {replaced(firstMove - 6, 5, "Blue "), 15, "White is on turn, not Blue"},
      {replaced(firstMove, first.size(), departure + "x" + first.substr(departure.size() + 1)), 15,
       "captures nothing"},
      {replaced(firstMove, first.size(), first + "#"), 15, "takes no King"},
      {replaced(firstMove, first.size(), departure + "-" + departure.substr(1)), 15,
       "not a legal move"},
      {replaced(firstMove, first.size(), first + "=0"), 15, "pawn option"},
      {replaced(firstMove, first.size(), departure + "+" + first.substr(departure.size() + 1)), 15,
       "does not read"},
      {replaced(firstMove, first.size(), "resigns(Purple)"), 15, "names no team"},
      {replaced(round2, 2, "5."), 16, "the game is in round 2, not 5"},
      {replaced(round2, 2, "two"), 16, "begins with its round"},
      {good + "4. White resigns {unclosed\n", 18, "a comment is not closed"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.reason);
    ASSERT_FALSE(c.text.empty());
    GameRecord kept = RecordOf(NewMatch(kAnarchy, kKingdomFrozen));
    const GameRecord before = kept;
    const std::optional<RecordProblem> problem = ReadRecordText(c.text, &StandardBoard(), kept);
    ASSERT_TRUE(problem.has_value()) << c.text;
    EXPECT_EQ(problem->line, c.line) << problem->Text();
    EXPECT_NE(problem->reason.find(c.reason), std::string::npos) << problem->Text();
    EXPECT_EQ(kept, before);
  }
}

TEST(RecordTextTest, PositionStringsRefuseWhatTheyCannotHold) {
  Position position = NewMatch(kAnarchy, kKingdomGained).position;
  const std::optional<std::string> line = WritePositionString(position);
  ASSERT_TRUE(line.has_value());
  Position read;
  read.gameType = kAnarchy;
  EXPECT_EQ(ReadPositionString(*line, read), std::nullopt);
  EXPECT_EQ(read, position);

  // A realm split inside one kingdom cannot be said per kingdom.
  Position split = position;
  split.board.at(8, 16).realm = kRed;
  EXPECT_EQ(WritePositionString(split), std::nullopt);

  const std::string board = line->substr(0, line->find(' '));
  const std::string rest = line->substr(line->find(' '));
  const std::pair<std::string, std::string> bad[] = {
      {"1wK16" + board.substr(board.find('/')) + rest, "off the board"},
      {board + " w 0 - - wukr -,-,-,- " + rest.substr(rest.rfind(' ') + 1), "round"},
      {board + " x 1 - - wukr -,-,-,- " + rest.substr(rest.rfind(' ') + 1), "on turn"},
      {board + " w 1 ww - wukr -,-,-,- " + rest.substr(rest.rfind(' ') + 1), "castle"},
      {board + " w 1 - - wuk -,-,-,- " + rest.substr(rest.rfind(' ') + 1), "realms"},
      {board + " w 1 - - wukr wZ,-,-,- " + rest.substr(rest.rfind(' ') + 1), "not a piece"},
      {board + " w 1 - - wukr -,-,- " + rest.substr(rest.rfind(' ') + 1), "four dungeons"},
      {board + " w 1 - - wukr -,-,-,- -a17-a17", "three moves"},
  };
  for (const auto& [text, reason] : bad) {
    Position kept = position;
    const std::optional<std::string> problem = ReadPositionString(text, kept);
    ASSERT_TRUE(problem.has_value()) << text;
    EXPECT_NE(problem->find(reason), std::string::npos) << *problem;
    EXPECT_EQ(kept, position);
  }
}

}  // namespace
}  // namespace varkesh
