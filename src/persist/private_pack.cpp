#include "persist/private_pack.h"

#include <unistd.h>

#include <cstdint>
#include <system_error>

#include "persist/pack_reader.h"

namespace varkesh {

PrivatePack::PrivatePack(std::string folderPrefix) : prefix_(std::move(folderPrefix)) {}

PrivatePack::~PrivatePack() {
  pack_.reset();
  std::error_code ignored;
  if (!folder_.empty()) std::filesystem::remove_all(folder_, ignored);
}

std::string PrivatePack::ExtractEntry(const std::string& appPath, const std::string& entry) {
  if (!pack_) {
    folder_ = std::filesystem::temp_directory_path() /
              (prefix_ + std::to_string(getpid()) + "-" +
               std::to_string(reinterpret_cast<std::uintptr_t>(this)));
    std::filesystem::create_directories(folder_);
    auto reader = std::make_unique<PackReader>();
    reader->OpenPack(appPath + "r.opk", folder_.string());
    pack_ = std::move(reader);
  }
  return pack_->ExtractEntry(entry);
}

}  // namespace varkesh
