// A fresh folder for one test, removed with everything in it afterwards.
#pragma once

#include <unistd.h>
#include <atomic>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace varkesh::testing {

class TempFolder {
 public:
  TempFolder() {
    static std::atomic<int> serial{0};
    path_ = std::filesystem::temp_directory_path() /
            ("varkesh-test-" + std::to_string(::getpid()) + "-" + std::to_string(serial++));
    std::filesystem::remove_all(path_);
    std::filesystem::create_directories(path_);
  }
  ~TempFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;

  // The folder with a trailing '/', as the program folder is kept.
  std::string Slashed() const { return path_.string() + "/"; }
  std::string File(const std::string& name) const { return (path_ / name).string(); }

 private:
  std::filesystem::path path_;
};

inline std::string FileText(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

// How many times part stands in text, overlaps counted.
inline int Occurrences(const std::string& text, const std::string& part) {
  int count = 0;
  for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1))
    ++count;
  return count;
}

inline void PutFile(const std::string& path, const std::string& bytes) {
  std::ofstream(path, std::ios::binary | std::ios::trunc) << bytes;
}

}  // namespace varkesh::testing
