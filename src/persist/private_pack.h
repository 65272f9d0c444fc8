// The pack opened on first use, its entries extracted into a folder of its
// own that goes with this object: programs and tests running side by side
// would otherwise rewrite each other's extracted files.
#pragma once

#include <filesystem>
#include <memory>
#include <string>

namespace varkesh {

class PackReader;

class PrivatePack {
 public:
  explicit PrivatePack(std::string folderPrefix);
  ~PrivatePack();
  PrivatePack(const PrivatePack&) = delete;
  PrivatePack& operator=(const PrivatePack&) = delete;

  // Path of a file holding the entry of <appPath>r.opk.
  std::string ExtractEntry(const std::string& appPath, const std::string& entry);

 private:
  std::string prefix_;
  std::unique_ptr<PackReader> pack_;
  std::filesystem::path folder_;
};

}  // namespace varkesh
