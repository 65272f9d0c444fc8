#include "ui/documents.h"

#include <QDesktopServices>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QStringList>
#include <QUrl>

#include "engine/general_engine.h"
#include "ui/document_window.h"

namespace varkesh {

QString QtFileFilter(const std::string& filter) {
  const QStringList parts = QString::fromStdString(filter).split('|');
  QStringList filters;
  for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
    const QString& description = parts[i];
    QString patterns = parts[i + 1];
    patterns.replace(';', ' ');
    filters << (description.contains('(') ? description : description + " (" + patterns + ")");
  }
  return filters.join(";;");
}

namespace {

std::string RunFileDialog(QWidget* owner, QFileDialog::AcceptMode mode, const std::string& title,
                          const std::string& filter, const std::string& initialName,
                          const std::string& defaultExtension) {
  QFileDialog dialog(owner, QString::fromStdString(title));
  dialog.setAcceptMode(mode);
  dialog.setFileMode(mode == QFileDialog::AcceptOpen ? QFileDialog::ExistingFile
                                                     : QFileDialog::AnyFile);
  dialog.setOption(QFileDialog::ReadOnly, false);
  if (!filter.empty()) dialog.setNameFilter(QtFileFilter(filter));
  QString suffix = QString::fromStdString(defaultExtension);
  if (suffix.startsWith('.')) suffix.remove(0, 1);
  if (!suffix.isEmpty()) dialog.setDefaultSuffix(suffix);
  if (!initialName.empty()) {
    const QFileInfo initial(QString::fromStdString(initialName));
    if (initial.path() != ".") {
      // The player's folder for saved games is made when first offered.
      QDir().mkpath(initial.absolutePath());
      dialog.setDirectory(initial.absolutePath());
    }
    dialog.selectFile(initial.fileName());
  }
  if (dialog.exec() != QDialog::Accepted) return {};
  const QStringList chosen = dialog.selectedFiles();
  return chosen.isEmpty() ? std::string() : chosen.first().toStdString();
}

}  // namespace

void DesktopDocuments::OpenDocument(const std::string& pathOrAddress) {
  if (engine_.logLevel >= 2) {
    WriteLog(engine_, engine_.engineLogNumber, "Processes request to open file: " + pathOrAddress,
             true);
  }
  const QString target = QString::fromStdString(pathOrAddress);
  const QUrl document = target.contains("://") ? QUrl(target) : QUrl::fromLocalFile(target);
  // Without a viewer on the desktop the help is shown by the game itself.
  if (!QDesktopServices::openUrl(document)) ShowDocumentWindow(document);
}

std::string DesktopDocuments::LoadFileDialog(QWidget* owner, const std::string& title,
                                             const std::string& filter,
                                             const std::string& initialName) {
  return RunFileDialog(owner, QFileDialog::AcceptOpen, title, filter, initialName, {});
}

std::string DesktopDocuments::SaveFileDialog(QWidget* owner, const std::string& title,
                                             const std::string& filter,
                                             const std::string& initialName,
                                             const std::string& defaultExtension) {
  return RunFileDialog(owner, QFileDialog::AcceptSave, title, filter, initialName,
                       defaultExtension);
}

}  // namespace varkesh
