// What the window's tests share: a Qt application for the whole run, and
// documents and file dialogs that answer from a script.
#pragma once

#include <QApplication>
#include <QTimer>
#include <QWidget>
#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "ui/documents.h"

namespace varkesh::test {

class ScriptedDocuments : public Documents {
 public:
  std::vector<std::string> opened;
  std::deque<std::string> loadAnswers;  // empty: cancelled
  std::deque<std::string> saveAnswers;  // empty: cancelled
  struct Request {
    std::string title, filter, initialName, defaultExtension;
  };
  std::vector<Request> requests;

  void OpenDocument(const std::string& pathOrAddress) override { opened.push_back(pathOrAddress); }
  std::string LoadFileDialog(QWidget*, const std::string& title, const std::string& filter,
                             const std::string& initialName) override {
    requests.push_back({title, filter, initialName, ""});
    return Take(loadAnswers);
  }
  std::string SaveFileDialog(QWidget*, const std::string& title, const std::string& filter,
                             const std::string& initialName,
                             const std::string& defaultExtension) override {
    requests.push_back({title, filter, initialName, defaultExtension});
    return Take(saveAnswers);
  }

 private:
  static std::string Take(std::deque<std::string>& answers) {
    if (answers.empty()) return {};
    std::string answer = answers.front();
    answers.pop_front();
    return answer;
  }
};

// Runs act on the next modal window that opens (a message box or a dialog),
// from inside its own event loop, once it shows. Nothing happens after the
// returned watcher is gone, so keep it while the window is expected.
[[nodiscard]] inline std::unique_ptr<QTimer> WhenModalOpens(std::function<void(QWidget&)> act) {
  auto poll = std::make_unique<QTimer>();
  poll->setInterval(5);
  QTimer* timer = poll.get();
  QObject::connect(timer, &QTimer::timeout, timer, [timer, act = std::move(act)] {
    QWidget* modal = QApplication::activeModalWidget();
    if (modal == nullptr || !modal->isVisible()) return;
    timer->stop();
    act(*modal);
  });
  poll->start();
  return poll;
}

}  // namespace varkesh::test
