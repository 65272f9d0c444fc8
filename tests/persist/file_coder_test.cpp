#include "persist/file_coder.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "persist/game_text.h"
#include "persist/sample_game.h"
#include "persist/temp_folder.h"

namespace varkesh {
namespace {

constexpr const char* kForeign = "This file is not a Varkesh saved game";
constexpr const char* kDamaged = "This saved game is damaged";
constexpr std::size_t kHeaderSize = 13;

std::string DecodeProblem(std::string_view coded) {
  try {
    DecodeText(coded);
  } catch (const std::runtime_error& error) {
    return error.what();
  }
  return "decoded";
}

TEST(FileCoder, GivesBackExactlyWhatItWasGiven) {
  std::string game = WriteGameText(testing::SampleGame());
  for (const std::string& plain : {game, std::string("\0\x01\xff\r\n\"x", 7), std::string()}) {
    std::string coded = EncodeText(plain);
    EXPECT_TRUE(LooksCoded(coded));
    EXPECT_EQ(DecodeText(coded), plain);
  }
  EXPECT_FALSE(LooksCoded(game));
}

TEST(FileCoder, TellsAForeignFile) {
  std::string otherVersion = EncodeText("\"x\"\r\n");
  otherVersion[4] = 2;
  EXPECT_EQ(DecodeProblem(""), kForeign);
  EXPECT_EQ(DecodeProblem(otherVersion.substr(0, kHeaderSize - 1)), kForeign);
  EXPECT_EQ(DecodeProblem(WriteGameText(testing::SampleGame())), kForeign);
  EXPECT_EQ(DecodeProblem(otherVersion), kForeign);
}

TEST(FileCoder, TellsADamagedGame) {
  const std::string coded = EncodeText(WriteGameText(testing::SampleGame()));
  auto flipped = [&](std::size_t at, char bits) {
    std::string copy = coded;
    copy[at] ^= bits;
    return copy;
  };
  EXPECT_EQ(DecodeProblem(flipped(5, 1)), kDamaged);     // length
  EXPECT_EQ(DecodeProblem(flipped(8, 0x70)), kDamaged);  // a length no game has
  EXPECT_EQ(DecodeProblem(flipped(9, 1)), kDamaged);     // checksum
  EXPECT_EQ(DecodeProblem(flipped(coded.size() / 2, 0x40)), kDamaged);
  EXPECT_EQ(DecodeProblem(coded.substr(0, coded.size() - 3)), kDamaged);
  EXPECT_EQ(DecodeProblem(coded.substr(0, kHeaderSize)), kDamaged);
  EXPECT_EQ(DecodeProblem(coded + "tail"), kDamaged);
}

TEST(FileCoder, WorksOnFilesAndLeavesTheSource) {
  testing::TempFolder folder;
  std::string plain = WriteGameText(testing::SampleGame());
  testing::PutFile(folder.File("temp.sav"), plain);
  EncodeFile(folder.File("temp.sav"), folder.File("game.vsh"));
  EXPECT_EQ(testing::FileText(folder.File("temp.sav")), plain);

  testing::PutFile(folder.File("back.txt"), "an older, longer content that must not survive");
  DecodeFile(folder.File("game.vsh"), folder.File("back.txt"));
  EXPECT_EQ(testing::FileText(folder.File("back.txt")), plain);

  try {
    DecodeFile(folder.File("missing.vsh"), folder.File("out.txt"));
    ADD_FAILURE() << "a missing file decoded";
  } catch (const std::runtime_error& error) {
    EXPECT_NE(std::string(error.what()).find("missing.vsh"), std::string::npos) << error.what();
  }
  EXPECT_FALSE(std::filesystem::exists(folder.File("out.txt")));
}

}  // namespace
}  // namespace varkesh
