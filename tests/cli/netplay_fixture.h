// What the NetPlay process tests share: a fresh folder that also receives
// the nodes' logs, a free port, and the host and clients started on it.
#pragma once

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>

#include "node_play.h"
#include "node_process.h"
#include "persist/temp_folder.h"

namespace varkesh::testing {

// The sanitizers' allocator keeps freed memory aside: sizes of a process
// measured under them say nothing about the program.
#if defined(__SANITIZE_ADDRESS__)
inline constexpr bool kSanitized = true;
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
inline constexpr bool kSanitized = true;
#else
inline constexpr bool kSanitized = false;
#endif
#else
inline constexpr bool kSanitized = false;
#endif

class NetPlayProcessTest : public ::testing::Test {
 protected:
  // The nodes' logs go to the test's folder, where the test can read them.
  NetPlayProcessTest() { setenv("XDG_DATA_HOME", folder_.Slashed().c_str(), 1); }

  // A client in step with the host is never found to differ from it, or
  // else it would be sent the game again and again.
  void TearDown() override {
    if (!mismatchExpected_) {
      EXPECT_EQ(NetLog().find("differs from the host's"), std::string::npos) << NetLog();
    }
  }

  std::unique_ptr<NodeProcess> Host(const std::string& name = "Hosty") {
    return StartHost(port_, name, folder_.Slashed());
  }
  std::unique_ptr<NodeProcess> Join(const std::string& name) {
    return StartClient(port_, name, folder_.Slashed());
  }
  // The host's NetPlay error log so far.
  std::string NetLog() const { return FileText(folder_.File("varkesh/logs/error_netplay.log")); }

  // A measured figure, shown in the test's output.
  void Figure(const std::string& name, const std::string& value) {
    std::printf("[ figure   ] %s = %s\n", name.c_str(), value.c_str());
    std::fflush(stdout);
  }

  TempFolder folder_;
  bool mismatchExpected_ = false;
  int port_ = FreeLoopbackPort();
};

}  // namespace varkesh::testing
