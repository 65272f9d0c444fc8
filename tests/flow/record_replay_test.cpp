// Games of computers played through the loop's passes, as self-play plays
// them: the record of each replays to the game's final text, byte for byte.
#include "core/new_game_data.h"
#include "flow/new_game.h"
#include "flow_fixture.h"
#include "persist/game_text.h"
#include "persist/record_text.h"

namespace varkesh::testing {
namespace {

using RecordReplayTest = FlowTest;

TEST_F(RecordReplayTest, TheRecordOfAComputerGameReplaysToItsFinalText) {
  const Board standard = LoadNewGameDataFile(VARKESH_PACK_DIR "/newgamedata.txt");
  int finished = 0;
  for (int seed = 1; seed <= 6; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    NewGameChoice choice;
    choice.accepted = true;
    choice.gameType = 1 + seed % 3;
    choice.kingCaptureRule = 1 + (seed / 3) % 3;
    choice.players = {1 + seed % 3, 1 + (seed + 1) % 3, 1 + (seed + 2) % 3, kBalanced};
    choice.name = "Replay " + std::to_string(seed);
    outside.newGameChoices.push_back(choice);
    game = Game();
    game.random.Seed(static_cast<std::uint64_t>(seed));
    NewGameCommand(game, outside);
    while ((game.turn.gameMode == ModeComputerThinks || game.turn.gameMode == ModeComputerMoves) &&
           game.match.position.roundNumber <= 150)
      Pass();
    finished += game.turn.gameMode == ModeVictorySetUp ? 1 : 0;

    GameRecord written;
    written.setup = game.match.setup;
    written.record = game.match.record;
    const std::optional<std::string> text = WriteRecordText(written, &standard);
    ASSERT_TRUE(text.has_value());
    GameRecord read;
    const std::optional<RecordProblem> problem = ReadRecordText(*text, &standard, read);
    ASSERT_FALSE(problem.has_value()) << problem->Text();
    EXPECT_EQ(read.record.events.size(), game.match.record.events.size());
    EXPECT_EQ(WriteGameText(FinalPosition(read.record), read.setup),
              WriteGameText(game.match.position, game.match.setup));
    EXPECT_EQ(WriteRecordText(read, &standard), text);
  }
  EXPECT_GT(finished, 0) << "some game is played to its end";
}

}  // namespace
}  // namespace varkesh::testing
