#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdlib>
#include <filesystem>

#include "persist/file_coder.h"
#include "persist/game_text.h"
#include "persist/sample_game.h"
#include "persist/temp_folder.h"

namespace varkesh {
namespace {

using testing::FileText;
using testing::PutFile;

struct CliRun {
  int code = -1;
  std::string out;
  std::string err;
};

class CodecTest : public ::testing::Test {
 protected:
  std::string Path(const std::string& name) const { return folder_.File(name); }

  CliRun Cli(const std::string& arguments) const {
    std::string command = std::string("'") + VARKESH_CLI + "' " + arguments + " >'" +
                          Path("out.txt") + "' 2>'" + Path("err.txt") + "'";
    int status = std::system(command.c_str());
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, FileText(Path("out.txt")),
            FileText(Path("err.txt"))};
  }

  std::string Quoted(const std::string& name) const { return "'" + Path(name) + "'"; }

  testing::TempFolder folder_;
};

TEST_F(CodecTest, EncodeThenDecodeGivesTheExactLayoutBack) {
  std::string text = WriteGameText(testing::SampleGame());
  PutFile(Path("game.txt"), text);
  CliRun encode = Cli("encode " + Quoted("game.txt") + " " + Quoted("game.vsh"));
  ASSERT_EQ(encode.code, 0) << encode.err;
  CliRun decode = Cli("decode " + Quoted("game.vsh"));
  EXPECT_EQ(decode.code, 0) << decode.err;
  EXPECT_EQ(decode.out, text);

  std::string loose;  // line feeds alone are read, and stored as CR LF
  for (char c : text)
    if (c != '\r') loose += c;
  PutFile(Path("loose.txt"), loose);
  ASSERT_EQ(Cli("encode " + Quoted("loose.txt") + " " + Quoted("loose.vsh")).code, 0);
  EXPECT_EQ(DecodeText(FileText(Path("loose.vsh"))), text);
}

TEST_F(CodecTest, EncodeRefusesATextOffTheLayout) {
  PutFile(Path("bad.txt"), "\"Bad\"\r\n3\r\n");
  CliRun run = Cli("encode " + Quoted("bad.txt") + " " + Quoted("bad.vsh"));
  EXPECT_EQ(run.code, 1);
  EXPECT_NE(run.err.find(Path("bad.txt") + ": line 2: expected 2 fields, found 1"),
            std::string::npos)
      << run.err;
  EXPECT_FALSE(std::filesystem::exists(Path("bad.vsh")));
}

TEST_F(CodecTest, DecodeTellsForeignDamagedAndMissingFiles) {
  PutFile(Path("plain.vsh"), WriteGameText(testing::SampleGame()));
  CliRun foreign = Cli("decode " + Quoted("plain.vsh"));
  EXPECT_EQ(foreign.code, 1);
  EXPECT_NE(foreign.err.find("This file is not a Varkesh saved game"), std::string::npos);

  std::string coded = EncodeText(WriteGameText(testing::SampleGame()));
  PutFile(Path("cut.vsh"), coded.substr(0, coded.size() - 10));
  CliRun damaged = Cli("decode " + Quoted("cut.vsh"));
  EXPECT_EQ(damaged.code, 1);
  EXPECT_NE(damaged.err.find("This saved game is damaged"), std::string::npos);
  EXPECT_EQ(damaged.out, "");

  CliRun missing = Cli("decode " + Quoted("missing.vsh"));
  EXPECT_EQ(missing.code, 1);
  EXPECT_NE(missing.err.find("missing.vsh"), std::string::npos);
}

TEST_F(CodecTest, WrongArgumentsShowTheUsage) {
  CliRun decode = Cli("decode");
  EXPECT_EQ(decode.code, 2);
  EXPECT_EQ(decode.err, "usage: varkesh-cli decode FILE.vsh\n");
  CliRun encode = Cli("encode " + Quoted("a.txt"));
  EXPECT_EQ(encode.code, 2);
  EXPECT_EQ(encode.err, "usage: varkesh-cli encode FILE OUT.vsh\n");
  EXPECT_EQ(Cli("decode --verbose " + Quoted("a.vsh")).code, 2);
}

}  // namespace
}  // namespace varkesh
