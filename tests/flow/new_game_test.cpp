// The New Game command, from the unsaved-game question to the host's news.
#include "flow/new_game.h"

#include <set>

#include "core/new_game.h"
#include "flow_fixture.h"
#include "persist/game_text.h"

namespace varkesh::testing {
namespace {

class NewGameTest : public FlowTest {
 protected:
  NewGameTest() { game.gameMode = ModeNoGame; }

  void Start(int gameType, int rule, PerTeam<int> players, const std::string& name) {
    outside.newGameChoices.push_back({true, gameType, rule, players, name});
    NewGameCommand(game, outside);
  }

  int LivePieces() {
    int count = 0;
    for (const Square& square : game.board.squares) count += square.piece > 0;
    return count;
  }
};

TEST_F(NewGameTest, StartsTheChosenGameAfresh) {
  game.playerKinds = {1, 2, 3, 0};
  game.saveFilePath = "old.vsh";
  game.kingdomFallen[kRed - 1] = true;
  game.dungeons[0].prisoners.Add({kBlack, kQueen});
  game.history[0] = {8, 13, 8, 11, kWhite, false};
  Start(kAnarchy, kKingdomLost, {kHuman, kHuman, kHuman, kDefensive}, "Friday");

  ASSERT_EQ(outside.newGameDialogs.size(), 1u);
  EXPECT_EQ(outside.newGameDialogs[0].lastPlayers, (PerTeam<int>{1, 2, 3, 0}));
  EXPECT_EQ(outside.gameDescription, "Friday (Anarchy/Kingdom Lost)");
  EXPECT_EQ(outside.turnLabel, "1st Round, White Player (Human)");
  EXPECT_EQ(game.playerKinds, (PerTeam<int>{0, 0, 0, 3}));
  EXPECT_EQ(game.gameMode, ModeChoosePiece);
  EXPECT_GT(game.moveablePieces.Count(), 0);
  EXPECT_EQ(game.turnClock, outside.clock);
  EXPECT_EQ(LivePieces(), 64);
  EXPECT_EQ(game.kingdomFallen, (PerTeam<bool>{}));
  EXPECT_EQ(game.dungeons[0].PrisonerCount(), 0);
  EXPECT_TRUE(game.history[0].Empty());
  EXPECT_EQ(game.saveFilePath, "");
  EXPECT_TRUE(outside.IsMenuEnabled(Menu::Resign));
  EXPECT_TRUE(outside.pauseButtonVisible);
  EXPECT_EQ(outside.sounds, std::vector<std::string>{"sfx_newgame"});
  EXPECT_TRUE(outside.sent.empty());
}

TEST_F(NewGameTest, AComputerWhiteBeginsThinking) {
  Start(kAlliedNeighbors, kKingdomGained, {kBalanced, kHuman, kHuman, kHuman}, "G");
  EXPECT_EQ(game.gameMode, ModeComputerThinks);
  EXPECT_EQ(game.moveablePieces.Count(), 0);
  for (const Square& square : game.board.squares) EXPECT_EQ(square.mark, kUnmarked);

  Start(kAnarchy, kKingdomGained, {}, "All human");
  EXPECT_FALSE(outside.pauseButtonVisible);
  game.netRole = kNetClient;
  Start(kAnarchy, kKingdomGained, {kBalanced, kHuman, kHuman, kHuman}, "On a client");
  EXPECT_FALSE(outside.pauseButtonVisible);
}

TEST_F(NewGameTest, AnUnsavedGameIsOnlyLeftOnYes) {
  game.gameSaved = false;
  Game before = game;
  outside.yesNoAnswers.push_back(false);
  NewGameCommand(game, outside);
  ASSERT_EQ(outside.messages.size(), 1u);
  EXPECT_EQ(outside.messages[0].title, "Start New Game?");
  EXPECT_EQ(outside.messages[0].text,
            "The current game is not saved ... are you sure you wish to start a new game without "
            "saving the current one?\n\n"
            "          \u00bb Click 'Yes' to create a new game.\n"
            "          \u00bb Click 'No' to continue with the current game.");
  EXPECT_TRUE(outside.newGameDialogs.empty());

  NewGameCommand(game, outside);  // Yes, then the dialog is cancelled
  EXPECT_EQ(outside.newGameDialogs.size(), 1u);
  EXPECT_EQ(game.board, before.board);
  EXPECT_FALSE(game.gameSaved);
}

TEST_F(NewGameTest, AHostTellsItsClients) {
  game.netRole = kNetHosting;
  game.localPlayerName = "Ann";
  game.seatNode = {3, 2, 1, 0};
  Start(kAlliedNeighbors, kKingdomGained, {kHuman, kAggressive, kHuman, kHuman}, "Duel");
  EXPECT_EQ(game.seatNode, (PerTeam<int>{3, 0, 1, 0})) << "a human seat keeps its node";
  std::vector<std::string> sent = SentMessages();
  ASSERT_EQ(sent.size(), 2u);
  EXPECT_EQ(sent[0],
            "GMSG}*** Ann (host) has started a new game: 'Duel (Allied Neighbors/Kingdom Gained)");
  ASSERT_EQ(sent[1].rfind("GLGF}", 0), 0u);
  Game received;
  EXPECT_FALSE(ReadGameText(sent[1].substr(5), received).has_value());
  EXPECT_EQ(received.board, game.board);
}

TEST_F(NewGameTest, TheStartPositionComesFromThePack) {
  outside.entryPaths.clear();
  outside.engine.appPath = VARKESH_BIN_DIR "/";
  Start(kAnarchy, kKingdomGained, {}, "Packed");
  EXPECT_FALSE(ErrorShown());
  EXPECT_EQ(LivePieces(), 64);
}

TEST(RandomGameNameTest, NeverPairsWordsThatBeginAlike) {
  std::set<std::string> names;
  for (std::uint64_t seed = 0; seed < 3000; ++seed) {
    Random random(seed);
    std::string name = RandomGameName(random);
    std::size_t blank = name.find(' ');
    ASSERT_NE(blank, std::string::npos) << name;
    EXPECT_NE(name.substr(0, 4), name.substr(blank + 1, 4)) << name;
    names.insert(name);
  }
  EXPECT_GT(names.size(), 150u) << "both words vary";
  EXPECT_TRUE(names.count("Moat Keep"));
}

}  // namespace
}  // namespace varkesh::testing
