#include "persist/game_text.h"

#include <gtest/gtest.h>

#include <ostream>
#include <vector>

#include "persist/sample_game.h"

namespace varkesh {
namespace {

using testing::SameStoredGame;
using testing::SampleGame;

std::vector<std::string> Lines(const std::string& text) {
  std::vector<std::string> lines;
  std::size_t start = 0;
  for (std::size_t end; (end = text.find("\r\n", start)) != std::string::npos; start = end + 2)
    lines.push_back(text.substr(start, end - start));
  EXPECT_EQ(start, text.size()) << "text after the last CR LF";
  return lines;
}

std::string Joined(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) text += line + "\r\n";
  return text;
}

TEST(GameText, WritesTheLayoutLineByLine) {
  Game game = SampleGame();
  game.gameName = "Say \"hi\",\r\nfriend\x01";
  std::vector<std::string> lines = Lines(WriteGameText(game));

  ASSERT_EQ(lines.size(), 303u + 3u);
  EXPECT_EQ(lines[0], "\"Say hi,friend\"");
  EXPECT_EQ(lines[1], "3,3");
  EXPECT_EQ(lines[2], "7,3");
  EXPECT_EQ(lines[3], "0,#FALSE#,#TRUE#");
  EXPECT_EQ(lines[4], "1,#TRUE#,#FALSE#");
  EXPECT_EQ(lines[7], "3,8,3,8,5,#TRUE#");  // the team first, unlike the record
  EXPECT_EQ(lines[9], "0,0,0,0,0,#FALSE#");
  EXPECT_EQ(lines[10], "0,0,0,0,0");
  EXPECT_EQ(lines[10 + 14 * 17 + 8], "1,-6,0,3,0");  // White's frozen Queen on (8, 14)
  std::vector<std::string> dungeons(lines.begin() + 299, lines.end());
  EXPECT_EQ(dungeons, (std::vector<std::string>{"0", "0", "2", "1,7", "2,6", "1", "3,4"}));
}

TEST(GameText, RoundTripsInEveryAcceptedForm) {
  Game saved = SampleGame();
  saved.gameName = "Moat, Keep & Co.";
  saved.board.at(8, 5).mark = kMarkDestination;
  const std::string text = WriteGameText(saved);
  std::string lineFeedsOnly;
  for (char c : text)
    if (c != '\r') lineFeedsOnly += c;

  for (const std::string& form : {text, lineFeedsOnly, text.substr(0, text.size() - 2)}) {
    Game loaded;
    ASSERT_EQ(ReadGameText(form, loaded), std::nullopt);
    EXPECT_TRUE(SameStoredGame(saved, loaded));
  }
}

TEST(GameText, ReplacesOnlyTheStoredFields) {
  std::vector<std::string> lines = Lines(WriteGameText(SampleGame()));
  lines[0] = "\"The \"big\" one\"";  // an older writer let quotes in
  lines[301] = "0";
  lines.erase(lines.begin() + 302, lines.begin() + 304);  // no prisoners left for Black
  Game target = SampleGame();
  target.gameMode = ModeComputerMoves;
  target.saveFilePath = "/games/old.vsh";
  target.moveFromX = 4;

  ASSERT_EQ(ReadGameText(Joined(lines), target), std::nullopt);
  EXPECT_EQ(target.gameName, "The \"big\" one");
  EXPECT_EQ(target.dungeons[kBlack - 1].PrisonerCount(), 0);
  EXPECT_EQ(target.dungeons[kRed - 1].PrisonerCount(), 1);
  EXPECT_EQ(target.gameMode, ModeComputerMoves);
  EXPECT_EQ(target.saveFilePath, "/games/old.vsh");
  EXPECT_EQ(target.moveFromX, 4);
}

struct Damage {
  int line;  // 1-based; that line is replaced by text, or cut with all after it if cut
  std::string text;
  std::string problem;
  bool cut = false;
};

void PrintTo(const Damage& damage, std::ostream* out) {
  *out << "line " << damage.line << " '" << damage.text << "'";
}

class GameTextRejects : public ::testing::TestWithParam<Damage> {};

TEST_P(GameTextRejects, NamingTheLineAndLeavingTheTargetAlone) {
  const Damage& damage = GetParam();
  std::vector<std::string> lines = Lines(WriteGameText(SampleGame()));
  auto at = lines.begin() + (damage.line - 1);
  if (damage.cut)
    lines.erase(at, lines.end());
  else if (at == lines.end())
    lines.push_back(damage.text);
  else
    *at = damage.text;

  Game target;
  target.gameName = "Untouched";
  const std::string before = WriteGameText(target);
  EXPECT_EQ(ReadGameText(Joined(lines), target), damage.problem);
  EXPECT_EQ(WriteGameText(target), before);
}

INSTANTIATE_TEST_SUITE_P(
    EachKindOfFault, GameTextRejects,
    ::testing::Values(
        Damage{1, "Friday", "line 1: the game name must stand between double quotes"},
        Damage{1, "\"", "line 1: the game name must stand between double quotes"},
        Damage{2, "3", "line 2: expected 2 fields, found 1"},
        Damage{2, "4,1", "line 2: game type 4 is out of range (1 to 3)"},
        Damage{3, "0,3", "line 3: round number 0 is out of range (1 to 2147483647)"},
        Damage{3, "7,5", "line 3: current team 5 is out of range (1 to 4)"},
        Damage{4, "4,#TRUE#,#FALSE#", "line 4: player kind 4 is out of range (0 to 3)"},
        Damage{5, "0,#TRUE#,True", "line 5: field 3 ('True') is not #TRUE# or #FALSE#"},
        Damage{8, "3,8,3,8,17,#TRUE#", "line 8: coordinate 17 is out of range (0 to 16)"},
        Damage{11, "0,0,0,0,0,", "line 11: expected 5 fields, found 6"},
        Damage{12, "0, 0,0,0,0", "line 12: field 2 (' 0') is not a number"},
        Damage{12, "0,0x1,0,0,0", "line 12: field 2 ('0x1') is not a number"},
        Damage{257, "1,-8,0,3,0", "line 257: piece -8 is out of range (-7 to 7)"},
        Damage{257, "1,6,3,3,0", "line 257: mark 3 is out of range (0 to 2)"},
        Damage{257, "1,6,0,4,0", "line 257: terrain 4 is out of range (0 to 3)"},
        Damage{257, "1,6,0,3,5", "line 257: realm 5 is out of range (0 to 4)"},
        Damage{300, "-1", "line 300: prisoner count -1 is out of range (0 to 2147483647)"},
        Damage{300, "9", "line 300: prisoner count 9 exceeds the 6 lines that follow"},
        Damage{301, "1", "line 302: expected 2 fields, found 1"},
        Damage{306, "3,8", "line 306: piece 8 is out of range (-7 to 7)"},
        Damage{307, "", "line 307: extra line after the last dungeon"},
        Damage{201, "", "line 201: missing; the text ends after line 200", true},
        Damage{1, "", "line 1: missing; the text ends after line 0", true}));

}  // namespace
}  // namespace varkesh
