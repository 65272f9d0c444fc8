// One offscreen Qt application for the whole run: fonts and sound need it.
#include <gtest/gtest.h>

#include <QGuiApplication>
#include <memory>

namespace {

struct GuiEnvironment : ::testing::Environment {
  void SetUp() override {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    app = std::make_unique<QGuiApplication>(argc, argv);
  }
  void TearDown() override { app.reset(); }

  int argc = 1;
  char name[13] = "engine_tests";
  char* argv[2] = {name, nullptr};
  std::unique_ptr<QGuiApplication> app;
};

[[maybe_unused]] const auto* const kGui = ::testing::AddGlobalTestEnvironment(new GuiEnvironment);

}  // namespace
