#include "persist/pack_reader.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <stdexcept>

#include "persist/temp_folder.h"

namespace varkesh {
namespace {

using testing::FileText;

const std::string kPackPath = VARKESH_BIN_DIR "/r.opk";

TEST(PackReader, ExtractsAnEntryIntoTheTemporaryFolder) {
  testing::TempFolder app;
  std::string temp = app.File("temp");
  PrepareTempFolder(temp);
  PackReader reader;
  reader.OpenPack(kPackPath, temp);

  std::string path = reader.ExtractEntry("newgamedata");
  EXPECT_EQ(path, temp + "/newgamedata.otm");
  EXPECT_EQ(FileText(path), FileText(VARKESH_PACK_DIR "/newgamedata.txt"));
  EXPECT_EQ(reader.ExtractEntry("newgamedata"), path);
}

TEST(PackReader, RefusesWhatThePackDoesNotHold) {
  testing::TempFolder app;
  PackReader reader;
  EXPECT_THROW(reader.ExtractEntry("newgamedata"), std::runtime_error);
  EXPECT_THROW(reader.OpenPack(app.File("r.opk"), app.Slashed()), std::runtime_error);
  reader.OpenPack(kPackPath, app.Slashed());
  EXPECT_THROW(reader.ExtractEntry("no such entry"), std::runtime_error);
  EXPECT_THROW(reader.ExtractEntry("../pack/newgamedata"), std::runtime_error);
  reader.ClosePack();
  EXPECT_THROW(reader.ExtractEntry("newgamedata"), std::runtime_error);
}

TEST(PackReader, AnEarlierRunsFilesAreClearedAtStart) {
  testing::TempFolder app;
  std::string temp = app.File("temp");
  PrepareTempFolder(temp);
  ASSERT_TRUE(std::filesystem::is_directory(temp));
  testing::PutFile(temp + "/gameboard.otm", "old");
  testing::PutFile(temp + "/notes.txt", "kept");
  PrepareTempFolder(temp);
  EXPECT_FALSE(std::filesystem::exists(temp + "/gameboard.otm"));
  EXPECT_EQ(FileText(temp + "/notes.txt"), "kept");
}

}  // namespace
}  // namespace varkesh
