// One QApplication for the whole run of a Qt test program, offscreen unless
// told otherwise: fonts and sound need it, sockets need its event loop, and
// windows need it whole. A watchdog fails a test that leaves a modal window
// open and hides the window, so the run goes on instead of hanging on it.
#include <gtest/gtest.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QPointer>
#include <QTimer>
#include <QWidget>
#include <memory>

namespace {

// Far longer than any dialog of a test stays open on purpose.
constexpr qint64 kModalLimitMs = 10000;
constexpr int kWatchdogPeriodMs = 500;

int argc = 1;
char name[] = "varkesh_tests";
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
                       } else if (modal != nullptr && since.elapsed() > kModalLimitMs) {
                         ADD_FAILURE()
                             << '"' << modal->windowTitle().toStdString() << "\" was left open";
                         modal->hide();  // ends its event loop, even if it refuses to close
                       }
                     });
    watchdog->start(kWatchdogPeriodMs);
  }
  void TearDown() override { app_.reset(); }

 private:
  std::unique_ptr<QApplication> app_;
};

[[maybe_unused]] const ::testing::Environment* const kQt =
    ::testing::AddGlobalTestEnvironment(new QtEnvironment);

}  // namespace
