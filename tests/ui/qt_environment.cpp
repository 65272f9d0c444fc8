// One QApplication for the whole test run, offscreen unless told otherwise,
// with a watchdog that fails a test instead of letting it hang on a modal
// window that no answer was scripted for.
#include <gtest/gtest.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QPointer>
#include <QTimer>
#include <QWidget>
#include <memory>

namespace {

constexpr int kLongestModalMs = 60000;

class QtEnvironment : public ::testing::Environment {
 public:
  void SetUp() override {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    app_ = std::make_unique<QApplication>(argc_, argv_);
    QApplication::setQuitOnLastWindowClosed(false);
    watchdog_ = std::make_unique<QTimer>();
    QObject::connect(watchdog_.get(), &QTimer::timeout, [this] { CheckModal(); });
    watchdog_->start(1000);
  }
  void TearDown() override {
    watchdog_.reset();
    app_.reset();
  }

 private:
  void CheckModal() {
    QWidget* modal = QApplication::activeModalWidget();
    if (modal != modal_) {
      modal_ = modal;
      openSince_.start();
      return;
    }
    if (modal == nullptr || openSince_.elapsed() < kLongestModalMs) return;
    ADD_FAILURE() << "\"" << modal->windowTitle().toStdString() << "\" was left open";
    modal->hide();  // ends its event loop, even for a dialog that refuses to close
  }

  int argc_ = 1;
  char name_[9] = "ui_tests";
  char* argv_[2] = {name_, nullptr};
  std::unique_ptr<QApplication> app_;
  std::unique_ptr<QTimer> watchdog_;
  QPointer<QWidget> modal_;
  QElapsedTimer openSince_;
};

[[maybe_unused]] const ::testing::Environment* const kQt =
    ::testing::AddGlobalTestEnvironment(new QtEnvironment);

}  // namespace
