// A seat's level in a saved game that holds none or a damaged one, and in the
// turn label. That a saved game keeps the levels, the window's tests show.
#include <gtest/gtest.h>

#include "ai/search/levels.h"
#include "core/labels.h"
#include "core/match.h"
#include "core/new_game_data.h"
#include "persist/file_coder.h"
#include "persist/game_text.h"
#include "persist/saved_game.h"

namespace varkesh {
namespace {

Match StartMatch() {
  Match match;
  match.position.board = LoadNewGameDataFile(VARKESH_PACK_DIR "/newgamedata.txt");
  match.position.Refresh();
  match.setup.gameName = "Levels";
  match.setup.playerKinds = {kHuman, kAggressive, kBalanced, kDefensive};
  match.BeginRecord();
  return match;
}

TEST(SeatLevelsTest, OlderOrDamagedLevelsPlayAsClassic) {
  const Match match = StartMatch();
  const std::string text = WriteGameText(match.position, match.setup);
  struct Case {
    const char* name;
    std::vector<std::string> parts;
  };
  const Case cases[] = {
      {"first version", {text}},
      {"record without levels", {text, text, ""}},
      {"levels unreadable", {text, text, "", "L 4 x 4 4\r\n"}},
      {"levels out of range", {text, text, "", "L 9 9 9 9\r\n"}},
  };
  for (const Case& c : cases) {
    Match read;
    read.setup.levels = {kLevelMaster, kLevelMaster, kLevelMaster, kLevelMaster};
    DecodeSavedGame(EncodeTexts(c.parts), read);
    for (int level : read.setup.levels) EXPECT_EQ(level, kLevelClassic) << c.name;
  }
}

TEST(SeatLevelsTest, TurnLabelNamesASearchingLevel) {
  Match match = StartMatch();
  match.setup.levels = {kLevelMaster, kLevelMaster, kLevelClassic, kLevelClub};
  struct Case {
    int team;
    const char* label;
  };
  const Case cases[] = {{kWhite, "1st Round, White Player (Human)"},
                        {kBlue, "1st Round, Blue Player (Aggressive) Master"},
                        {kBlack, "1st Round, Black Player (Balanced)"},
                        {kRed, "1st Round, Red Player (Defensive) Club"}};
  for (const Case& c : cases) {
    match.position.currentTeam = c.team;
    EXPECT_EQ(TurnText(match.position, match.setup), c.label);
  }
}

}  // namespace
}  // namespace varkesh
