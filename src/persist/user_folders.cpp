#include "persist/user_folders.h"

#include <QDir>
#include <QStandardPaths>
#include <QTemporaryFile>
#include <filesystem>

namespace varkesh {

namespace {

constexpr const char* kPackName = "r.opk";

std::string Slashed(const QString& folder) {
  std::string text = QDir::cleanPath(folder).toStdString();
  if (!text.empty() && text.back() != '/') text += '/';
  return text;
}

// The first candidate that can be written, or empty.
std::string FirstWritable(std::initializer_list<QString> candidates) {
  for (const QString& candidate : candidates) {
    if (candidate.isEmpty()) continue;
    const std::string folder = Slashed(candidate);
    if (CanWriteIn(folder)) return folder;
  }
  return {};
}

QString Under(QStandardPaths::StandardLocation location, const char* sub) {
  const QString base = QStandardPaths::writableLocation(location);
  return base.isEmpty() ? QString() : base + "/" + sub;
}

// One folder per user in the system's temporary folder, for a home that
// cannot be written.
QString SystemTempFolder() {
  return QDir::tempPath() + "/varkesh-" + qEnvironmentVariable("USER", "player");
}

}  // namespace

bool CanWriteIn(const std::string& folder) {
  const QString path = QString::fromStdString(folder);
  if (!QDir().mkpath(path)) return false;
  QTemporaryFile probe(path + "/.write-test-XXXXXX");
  return probe.open();
}

UserFolders FindUserFolders() {
  UserFolders folders;
  folders.logs = FirstWritable(
      {Under(QStandardPaths::GenericDataLocation, "varkesh/logs"), SystemTempFolder() + "/logs"});
  folders.temp = FirstWritable(
      {Under(QStandardPaths::GenericCacheLocation, "varkesh"), SystemTempFolder() + "/cache"});
  const QString documents = Under(QStandardPaths::DocumentsLocation, "Varkesh");
  folders.documents = documents.isEmpty() ? Slashed(QDir::homePath()) : Slashed(documents);
  return folders;
}

std::string ProgramDataFolder(const std::string& executableFolder) {
  namespace fs = std::filesystem;
  std::error_code ignored;
  if (fs::is_regular_file(fs::path(executableFolder) / kPackName, ignored)) return executableFolder;
  // The installed layout, relative so that the whole tree may move.
  const fs::path shared = (fs::path(executableFolder) / VARKESH_DATA_FROM_BIN).lexically_normal();
  if (fs::is_regular_file(shared / kPackName, ignored)) {
    std::string text = shared.string();
    if (text.back() != '/') text += '/';
    return text;
  }
  return executableFolder;
}

std::string ExecutableFolder() {
  std::error_code error;
  const std::filesystem::path self = std::filesystem::read_symlink("/proc/self/exe", error);
  if (error) return "./";
  return self.parent_path().string() + "/";
}

}  // namespace varkesh
