#include "persist/user_folders.h"

#include <gtest/gtest.h>

#include <QDir>
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "persist/temp_folder.h"

namespace varkesh {
namespace {

TEST(ProgramData, BesideTheProgramInABuildUnderShareOnceInstalled) {
  testing::TempFolder root;
  std::filesystem::create_directories(root.File("usr/bin"));
  std::filesystem::create_directories(root.File("usr/share/varkesh"));
  const std::string bin = root.File("usr/bin") + "/";
  EXPECT_EQ(ProgramDataFolder(bin), bin) << "nothing found: the program's own folder";
  std::ofstream(root.File("usr/share/varkesh/r.opk")) << "pack";
  EXPECT_EQ(ProgramDataFolder(bin), root.File("usr/share/varkesh") + "/");
  std::ofstream(root.File("usr/bin/r.opk")) << "pack";
  EXPECT_EQ(ProgramDataFolder(bin), bin) << "a build's pack beside the program comes first";
}

TEST(UserFolders, LogsAndTemporaryFilesGoUnderTheHomeAndAreMade) {
  testing::TempFolder home;
  const char* oldHome = std::getenv("HOME");
  const std::string keptHome = oldHome ? oldHome : "";
  for (const char* variable : {"XDG_DATA_HOME", "XDG_CACHE_HOME"}) unsetenv(variable);
  setenv("HOME", home.Slashed().c_str(), 1);
  const UserFolders folders = FindUserFolders();
  setenv("HOME", keptHome.c_str(), 1);

  EXPECT_EQ(folders.logs, home.File(".local/share/varkesh/logs") + "/");
  EXPECT_EQ(folders.temp, home.File(".cache/varkesh") + "/");
  EXPECT_TRUE(std::filesystem::is_directory(folders.logs));
  EXPECT_TRUE(std::filesystem::is_directory(folders.temp));
  EXPECT_EQ(folders.documents.rfind("/Varkesh/"), folders.documents.size() - 9);
  std::ofstream(home.File("a-file")) << "not a folder";
  EXPECT_FALSE(CanWriteIn(home.File("a-file/below")));
}

}  // namespace
}  // namespace varkesh
