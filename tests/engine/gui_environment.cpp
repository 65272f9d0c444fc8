// One offscreen Qt application for the whole run: fonts and sound need it.
#include <gtest/gtest.h>

#include <QGuiApplication>
#include <memory>

namespace {

class GuiEnvironment : public ::testing::Environment {
 public:
  void SetUp() override {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    app_ = std::make_unique<QGuiApplication>(argc_, argv_);
  }
  void TearDown() override { app_.reset(); }

 private:
  int argc_ = 1;
  char name_[13] = "engine_tests";
  char* argv_[2] = {name_, nullptr};
  std::unique_ptr<QGuiApplication> app_;
};

[[maybe_unused]] const ::testing::Environment* const kGui =
    ::testing::AddGlobalTestEnvironment(new GuiEnvironment);

}  // namespace
