// One QCoreApplication for the whole run: the Qt transport's sockets need its
// event loop.
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <memory>

namespace {

int argc = 1;
char name[] = "net_tests";
char* argv[] = {name, nullptr};

class QtEnvironment : public ::testing::Environment {
 public:
  void SetUp() override { app_ = std::make_unique<QCoreApplication>(argc, argv); }
  void TearDown() override { app_.reset(); }

 private:
  std::unique_ptr<QCoreApplication> app_;
};

[[maybe_unused]] const ::testing::Environment* const kQt =
    ::testing::AddGlobalTestEnvironment(new QtEnvironment);

}  // namespace
