// Opening documents in the system's viewer, and the file dialogs. Kept behind
// one interface so that tests can answer the dialogs without a person.
#pragma once

#include <QString>
#include <string>

class QWidget;

namespace varkesh {

struct GeneralEngine;

class Documents {
 public:
  virtual ~Documents() = default;

  // A file or a web address, handed to the default application.
  virtual void OpenDocument(const std::string& pathOrAddress) = 0;
  // The chosen path, or "" when cancelled. The filter has the form
  // "Game Files (*.vsh)|*.vsh|All Files (*.*)|*.*".
  virtual std::string LoadFileDialog(QWidget* owner, const std::string& title,
                                     const std::string& filter, const std::string& initialName) = 0;
  virtual std::string SaveFileDialog(QWidget* owner, const std::string& title,
                                     const std::string& filter, const std::string& initialName,
                                     const std::string& defaultExtension) = 0;
};

// The real thing: QDesktopServices and QFileDialog.
class DesktopDocuments : public Documents {
 public:
  explicit DesktopDocuments(GeneralEngine& engine) : engine_(engine) {}

  void OpenDocument(const std::string& pathOrAddress) override;
  std::string LoadFileDialog(QWidget* owner, const std::string& title, const std::string& filter,
                             const std::string& initialName) override;
  std::string SaveFileDialog(QWidget* owner, const std::string& title, const std::string& filter,
                             const std::string& initialName,
                             const std::string& defaultExtension) override;

 private:
  GeneralEngine& engine_;
};

// "Game Files (*.vsh)|*.vsh|All Files (*.*)|*.*" as Qt's
// "Game Files (*.vsh);;All Files (*.*)"; a description without its patterns
// gets them added in brackets.
QString QtFileFilter(const std::string& filter);

}  // namespace varkesh
