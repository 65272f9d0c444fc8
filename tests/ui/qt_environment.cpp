// One QApplication for the whole run, offscreen unless told otherwise, with a
// watchdog that fails a test which leaves a modal window open for a minute,
// instead of letting the run hang on it.
#include <gtest/gtest.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QPointer>
#include <QTimer>
#include <QWidget>
#include <memory>

namespace {

int argc = 1;
char name[] = "ui_tests";
char* argv[] = {name, nullptr};

class QtEnvironment : public ::testing::Environment {
 public:
  void SetUp() override {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    app_ = std::make_unique<QApplication>(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    auto* watchdog = new QTimer(app_.get());
    QObject::connect(watchdog, &QTimer::timeout,
                     [seen = QPointer<QWidget>(), since = QElapsedTimer()]() mutable {
                       QWidget* modal = QApplication::activeModalWidget();
                       if (modal != seen) {
                         seen = modal;
                         since.start();
                       } else if (modal != nullptr && since.elapsed() > 60000) {
                         ADD_FAILURE()
                             << '"' << modal->windowTitle().toStdString() << "\" was left open";
                         modal->hide();  // ends its event loop, even if it refuses to close
                       }
                     });
    watchdog->start(1000);
  }
  void TearDown() override { app_.reset(); }

 private:
  std::unique_ptr<QApplication> app_;
};

[[maybe_unused]] const ::testing::Environment* const kQt =
    ::testing::AddGlobalTestEnvironment(new QtEnvironment);

}  // namespace
