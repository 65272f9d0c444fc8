// The resource pack r.opk: pictures, sounds and the start position, handed
// out as files in the temporary folder so that any player can open them.
#pragma once

#include <set>
#include <string>

namespace varkesh {

class PackReader {
 public:
  PackReader() = default;
  PackReader(const PackReader&) = delete;
  PackReader& operator=(const PackReader&) = delete;
  ~PackReader();

  // Registers the pack; its entries are extracted into tempDir.
  // Throws std::runtime_error when the pack is missing or unreadable.
  void OpenPack(const std::string& packPath, const std::string& tempDir);
  // "<tempDir>/<name>.otm" holding the entry; it stays until the next start.
  // Throws std::runtime_error for an unknown entry or a closed pack.
  std::string ExtractEntry(const std::string& name);
  void ClosePack();

 private:
  std::string packPath_;
  std::string tempDir_;
  std::set<std::string> extracted_;  // a sound may still play from an earlier copy
};

// Creates the temporary folder if missing and deletes the "*.otm" files that
// an earlier run left in it.
void PrepareTempFolder(const std::string& tempDir);

}  // namespace varkesh
