#include <gtest/gtest.h>

#include <algorithm>
#include <tuple>
#include <vector>

#include "persist/game_text.h"
#include "persist/sample_game.h"

namespace varkesh {
namespace {

using testing::SampleMatch;
using Lines = std::vector<std::string>;

Lines SplitLines(const std::string& text) {
  Lines lines;
  std::size_t start = 0;
  for (std::size_t end; (end = text.find("\r\n", start)) != std::string::npos; start = end + 2)
    lines.push_back(text.substr(start, end - start));
  EXPECT_EQ(start, text.size()) << "text after the last CR LF";
  return lines;
}

TEST(GameText, WritesTheLayoutLineByLine) {
  Match match = SampleMatch();
  match.setup.gameName = "Say \"hi\",\r\nfriend\x01";
  Lines lines = SplitLines(WriteGameText(match.position, match.setup));

  ASSERT_EQ(lines.size(), 306u);
  EXPECT_EQ(Lines(lines.begin(), lines.begin() + 4),
            (Lines{"\"Say hi,friend\"", "3,3", "7,3", "0,#FALSE#,#TRUE#"}));
  EXPECT_EQ(lines[7], "3,8,3,8,5,#TRUE#");           // the team first, unlike the record
  EXPECT_EQ(lines[10 + 14 * 17 + 8], "1,-6,0,3,0");  // White's frozen Queen on (8, 14)
  EXPECT_EQ(Lines(lines.begin() + 299, lines.end()),
            (Lines{"0", "0", "2", "1,7", "2,6", "1", "3,4"}));
}

TEST(GameText, RoundTripsInEveryAcceptedFormWithTheMarks) {
  Match saved = SampleMatch();
  saved.setup.gameName = "Moat, Keep & Co.";
  SquareMarks marks{};
  marks[Board::Index(8, 5)] = 2;
  const std::string text = WriteGameText(saved.position, saved.setup, &marks);
  std::string lineFeedsOnly;
  for (char c : text)
    if (c != '\r') lineFeedsOnly += c;

  for (const std::string& form : {text, lineFeedsOnly, text.substr(0, text.size() - 2)}) {
    Match loaded;
    loaded.position.dungeons[kWhite - 1].prisoners.Add({kRed, kPawn});
    SquareMarks loadedMarks{};
    ASSERT_EQ(ReadGameText(form, loaded.position, loaded.setup, &loadedMarks), std::nullopt);
    EXPECT_TRUE(loaded.position == saved.position);
    EXPECT_EQ(loaded.setup, saved.setup);
    EXPECT_EQ(loadedMarks, marks);
  }

  Match quoted;  // an older writer let quotes into the name
  ASSERT_EQ(ReadGameText("\"The \"big\" one\"" + text.substr(text.find('\r')), quoted.position,
                         quoted.setup),
            std::nullopt);
  EXPECT_EQ(quoted.setup.gameName, "The \"big\" one");
}

TEST(GameText, RejectsEachFaultNamingTheLineAndLeavingTheTargetAlone) {
  // The 1-based line is replaced by the text, or cut with all after it for nullptr.
  const std::tuple<std::size_t, const char*, const char*> damages[] = {
      {1, "Friday", "line 1: the game name must stand between double quotes"},
      {1, "\"", "line 1: the game name must stand between double quotes"},
      {2, "4,1", "line 2: game type 4 is out of range (1 to 3)"},
      {3, "1000000000,1", "line 3: round number 1000000000 is out of range (1 to 999999999)"},
      {5, "0,#TRUE#,True", "line 5: field 3 ('True') is not #TRUE# or #FALSE#"},
      {11, "0,0,0,0,0,", "line 11: expected 5 fields, found 6"},
      {12, "0, 0,0,0,0", "line 12: field 2 (' 0') is not a number"},
      {12, "0,0x1,0,0,0", "line 12: field 2 ('0x1') is not a number"},
      {257, "1,-8,0,3,0", "line 257: piece -8 is out of range (-7 to 7)"},
      {300, "9", "line 300: prisoner count 9 exceeds the 6 lines that follow"},
      {301, "1", "line 302: expected 2 fields, found 1"},
      {307, "", "line 307: extra line after the last dungeon"},
      {201, nullptr, "line 201: missing; the text ends after line 200"},
      {1, nullptr, "line 1: missing; the text ends after line 0"}};
  const Match sample = SampleMatch();
  const Lines good = SplitLines(WriteGameText(sample.position, sample.setup));
  Match target;
  target.setup.gameName = "Untouched";
  const Match before = target;

  for (const auto& [at, text, problem] : damages) {
    Lines lines = good;
    lines.resize(text ? std::max(lines.size(), at) : at - 1);
    if (text) lines[at - 1] = text;
    std::string damaged;
    for (const std::string& line : lines) damaged += line + "\r\n";
    EXPECT_EQ(ReadGameText(damaged, target.position, target.setup), problem);
  }
  EXPECT_TRUE(target.position == before.position);
  EXPECT_EQ(target.setup, before.setup);
}

}  // namespace
}  // namespace varkesh
