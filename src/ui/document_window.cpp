#include "ui/document_window.h"

#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QMessageBox>
#include <QScreen>
#include <QTextBrowser>

namespace varkesh {
namespace {

constexpr int kWidth = 760;
constexpr int kHeight = 640;

void TellWhere(const QString& path) {
  QMessageBox::information(nullptr, "Varkesh",
                           "Varkesh could not open this with any program of the system:\n\n" +
                               path + "\n\nIt can be opened from there by hand.");
}

}  // namespace

void ShowDocumentWindow(const QUrl& document) {
  const QString path = document.isLocalFile() ? document.toLocalFile() : document.toString();
  const QFileInfo file(path);
  if (!document.isLocalFile() || !file.isFile() || !file.isReadable()) return TellWhere(path);

  auto* browser = new QTextBrowser;
  browser->setAttribute(Qt::WA_DeleteOnClose);
  browser->setObjectName("frmDocument");
  browser->setWindowTitle("Varkesh - " + file.fileName());
  browser->setOpenExternalLinks(true);
  if (file.suffix().startsWith("htm", Qt::CaseInsensitive)) {
    browser->setSource(document);
  } else {
    QFile text(path);
    if (!text.open(QIODevice::ReadOnly)) {
      delete browser;
      return TellWhere(path);
    }
    browser->setPlainText(QString::fromUtf8(text.readAll()));
  }
  const QRect area = QGuiApplication::primaryScreen()->availableGeometry();
  browser->resize(std::min(kWidth, area.width() - 40), std::min(kHeight, area.height() - 80));
  browser->move(area.center() - browser->rect().center());
  browser->show();
  browser->raise();
}

}  // namespace varkesh
