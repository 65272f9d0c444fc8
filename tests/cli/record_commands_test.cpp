// varkesh-cli record, replay and selfplay --records, run as a player runs
// them: what each prints, and its exit code.
#include <algorithm>

#include "cli/cli_fixture.h"

namespace varkesh::testing {
namespace {

class RecordCommandsTest : public CliTest {
 protected:
  void Put(const std::string& name, const std::string& text) const { PutFile(Path(name), text); }
  using CliTest::Put;
};

TEST_F(RecordCommandsTest, SelfPlayRecordsReadBackAndReplay) {
  ASSERT_EQ(Cli("selfplay --games 2 --seed 5 --max-rounds 40 --records .").code, 0);
  for (const char* name : {"game-1.vrec", "game-2.vrec"}) {
    SCOPED_TRACE(name);
    const std::string record = FileText(folder_.File(name));
    ASSERT_NE(record.find("[Name \"Self-play "), std::string::npos) << record;

    const CliRun normalised = Cli(std::string("record ") + name);
    EXPECT_EQ(normalised.code, 0) << normalised.err;
    EXPECT_EQ(normalised.out, record);

    const CliRun whole = Cli(std::string("replay ") + name);
    EXPECT_EQ(whole.code, 0) << whole.err;
    int plies = 0;
    for (const char* team : {" White ", " Blue ", " Black ", " Red "})
      for (std::size_t at = record.find(team); at != std::string::npos;
           at = record.find(team, at + 1))
        ++plies;
    ASSERT_GT(plies, 0);
    EXPECT_EQ(Cli(std::string("replay ") + name + " --ply " + std::to_string(plies)).out,
              whole.out);
    const CliRun earlier =
        Cli(std::string("replay ") + name + " --ply " + std::to_string(plies - 1));
    EXPECT_EQ(earlier.code, 0);
    EXPECT_NE(earlier.out, whole.out);
    EXPECT_EQ(Cli(std::string("replay ") + name + " --ply " + std::to_string(plies + 1)).code, 2);
  }
}

TEST_F(RecordCommandsTest, ABadRecordExitsOneWithItsLine) {
  ASSERT_EQ(Cli("selfplay --games 1 --max-rounds 5 --records .").code, 0);
  std::string record = FileText(folder_.File("game-1.vrec"));
  const std::size_t round2 = record.find("\n2. ");
  ASSERT_NE(round2, std::string::npos);
  record.replace(round2 + 1, 2, "3.");
  Put("bad.vrec", record);
  const int line =
      1 + static_cast<int>(std::count(record.begin(), record.begin() + round2 + 1, '\n'));
  for (const char* command : {"record bad.vrec", "replay bad.vrec"}) {
    const CliRun run = Cli(command);
    EXPECT_EQ(run.code, 1) << command;
    EXPECT_NE(
        run.err.find("bad.vrec: line " + std::to_string(line) + ": the game is in round 2, not 3"),
        std::string::npos)
        << run.err;
  }
  EXPECT_EQ(Cli("replay").code, 2);
  EXPECT_EQ(Cli("replay game-1.vrec --ply -1").code, 2);
  EXPECT_EQ(Cli("selfplay --games 1 --records no-such-folder").code, 2);
}

TEST_F(RecordCommandsTest, ASavedGameGivesItsRecord) {
  ASSERT_EQ(Cli("new --players 0,1,2,3 --name Friday").code, 0);
  const std::string text = FileText(folder_.File("out.txt"));
  Put("friday.txt", text);
  const CliRun record = Cli("record friday.txt");
  EXPECT_EQ(record.code, 0) << record.err;
  EXPECT_NE(record.out.find("[Name \"Friday\"]\n"), std::string::npos);
  EXPECT_NE(record.out.find("[Blue \"Aggressive\"]\n[BlueLevel \"Classic\"]\n"), std::string::npos);
  EXPECT_NE(record.out.find("[Start \"standard\"]\n"), std::string::npos);
  Put("friday.vrec", record.out);
  // The same game, with no marks: they mean nothing once a game is read.
  Position saved, replayed;
  varkesh::Setup savedSetup, replayedSetup;
  ASSERT_EQ(ReadGameText(text, saved, savedSetup), std::nullopt);
  ASSERT_EQ(ReadGameText(Cli("replay friday.vrec").out, replayed, replayedSetup), std::nullopt);
  EXPECT_EQ(replayed, saved);
  EXPECT_EQ(replayedSetup, savedSetup);
}

}  // namespace
}  // namespace varkesh::testing
