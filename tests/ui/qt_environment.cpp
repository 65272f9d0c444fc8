// One QApplication for the whole test run, offscreen unless told otherwise.
#include <gtest/gtest.h>

#include <QApplication>
#include <memory>

namespace {

class QtEnvironment : public ::testing::Environment {
 public:
  void SetUp() override {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    app_ = std::make_unique<QApplication>(argc_, argv_);
    QApplication::setQuitOnLastWindowClosed(false);
  }
  void TearDown() override { app_.reset(); }

 private:
  int argc_ = 1;
  char name_[9] = "ui_tests";
  char* argv_[2] = {name_, nullptr};
  std::unique_ptr<QApplication> app_;
};

[[maybe_unused]] const ::testing::Environment* const kQt =
    ::testing::AddGlobalTestEnvironment(new QtEnvironment);

}  // namespace
