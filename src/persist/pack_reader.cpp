#include "persist/pack_reader.h"

#include <QFile>
#include <QResource>
#include <filesystem>
#include <stdexcept>
#include <system_error>

namespace varkesh {

namespace {

QString ToQt(const std::string& text) {
  return QString::fromStdString(text);
}

}  // namespace

PackReader::~PackReader() {
  ClosePack();
}

void PackReader::OpenPack(const std::string& packPath, const std::string& tempDir) {
  ClosePack();
  if (!std::filesystem::is_regular_file(packPath))
    throw std::runtime_error("The resource pack '" + packPath + "' is missing");
  if (!QResource::registerResource(ToQt(packPath)))
    throw std::runtime_error("The resource pack '" + packPath + "' cannot be read");
  packPath_ = packPath;
  tempDir_ = tempDir;
}

std::string PackReader::ExtractEntry(const std::string& name) {
  if (packPath_.empty()) throw std::runtime_error("No pack is open for the entry '" + name + "'");
  std::string target = tempDir_ + "/" + name + ".otm";
  if (extracted_.count(name) && std::filesystem::exists(target)) return target;

  QFile entry(ToQt(":/pack/" + name));
  if (name.empty() || name.find('/') != std::string::npos || !entry.open(QIODevice::ReadOnly))
    throw std::runtime_error("The pack has no entry '" + name + "'");
  QByteArray bytes = entry.readAll();
  QFile file(ToQt(target));
  if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate) || file.write(bytes) != bytes.size() ||
      !file.flush())
    throw std::runtime_error("Cannot write the pack entry '" + name + "' to '" + target + "'");
  extracted_.insert(name);
  return target;
}

void PackReader::ClosePack() {
  if (packPath_.empty()) return;
  QResource::unregisterResource(ToQt(packPath_));
  packPath_.clear();
  extracted_.clear();
}

void PrepareTempFolder(const std::string& tempDir) {
  namespace fs = std::filesystem;
  fs::create_directories(tempDir);
  std::error_code ignored;
  for (const fs::directory_entry& entry : fs::directory_iterator(tempDir)) {
    // A file still held open elsewhere stays; the next start tries again.
    if (entry.is_regular_file(ignored) && entry.path().extension() == ".otm")
      fs::remove(entry.path(), ignored);
  }
}

}  // namespace varkesh
