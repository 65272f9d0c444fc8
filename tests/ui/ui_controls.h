// Reaching the controls of a window by name, a free loopback port, and the
// pictures of the documentation, taken under VARKESH_SCREENSHOTS.
#pragma once

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QDir>
#include <QPainter>
#include <QTcpServer>
#include <QTest>
#include <QWidget>
#include <stdexcept>

namespace varkesh::test {

template <class T>
T& Child(QWidget& parent, const QString& name) {
  T* child = parent.findChild<T*>(name);
  if (child == nullptr) throw std::runtime_error("no control " + name.toStdString());
  return *child;
}

inline void Click(QWidget& parent, const QString& name) {
  QTest::mouseClick(&Child<QAbstractButton>(parent, name), Qt::LeftButton);
}

inline int FreePort() {
  QTcpServer probe;
  if (!probe.listen(QHostAddress::LocalHost, 0)) return 0;
  return probe.serverPort();
}

// The window, with a dialog drawn where it stands over it.
inline void Shoot(QWidget& window, const char* name, QWidget* dialog = nullptr) {
  const QString folder = qEnvironmentVariable("VARKESH_SCREENSHOTS");
  if (folder.isEmpty()) return;
  QTest::qWait(400);  // the strobe and the flags move on, the chat box scrolls
  QPixmap shot = window.grab();
  if (dialog != nullptr) QPainter(&shot).drawPixmap(dialog->pos() - window.pos(), dialog->grab());
  EXPECT_TRUE(QDir().mkpath(folder) && shot.save(folder + "/" + name + ".png")) << name;
}

}  // namespace varkesh::test
