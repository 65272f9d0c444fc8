#include "ui/qt_outside.h"

#include <QCoreApplication>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QStringList>
#include <exception>

#include "engine/general_engine.h"
#include "engine/sound.h"
#include "persist/pack_reader.h"
#include "ui/concede_dialog.h"
#include "ui/dialog_placement.h"
#include "ui/documents.h"
#include "ui/main_window.h"
#include "ui/new_game_dialog.h"
#include "ui/pawn_options_dialog.h"
#include "ui/view_widget.h"

namespace varkesh {

namespace {

void SetLabelNow(QLabel& label, const std::string& text) {
  label.setText(QString::fromStdString(text));
  label.repaint();
}

}  // namespace

void QtOutside::ShowMessage(const std::string& title, const std::string& text) {
  QMessageBox box(QMessageBox::NoIcon, QString::fromStdString(title), QString::fromStdString(text),
                  QMessageBox::Ok, &window_);
  box.exec();
}

bool QtOutside::AskYesNo(const std::string& title, const std::string& text) {
  QMessageBox box(QMessageBox::Question, QString::fromStdString(title),
                  QString::fromStdString(text), QMessageBox::Yes | QMessageBox::No, &window_);
  box.setDefaultButton(QMessageBox::Yes);
  return box.exec() == QMessageBox::Yes;
}

NewGameChoice QtOutside::RunNewGameDialog(const PerTeam<int>& lastPlayers,
                                          const std::string& proposedName) {
  // The seats' levels of the last game show again, as its players do.
  NewGameDialog dialog(lastPlayers, QString::fromStdString(proposedName), &window_,
                       window_.game().match.setup.levels);
  CentreOnOwner(dialog, &window_);
  dialog.exec();
  return dialog.Choice();
}

int QtOutside::RunPawnOptionsDialog(const std::vector<std::string>& lines) {
  QStringList texts;
  for (const std::string& line : lines) texts << QString::fromStdString(line);
  PawnOptionsDialog dialog(texts, &window_);
  CentreOnOwner(dialog, &window_);
  dialog.exec();
  return dialog.ChosenLine();
}

int QtOutside::RunConcedeDialog(const std::vector<int>& teams) {
  ConcedeDialog dialog(teams, &window_);
  CentreOnOwner(dialog, &window_);
  dialog.exec();
  return dialog.ConcedeTeam();
}

std::string QtOutside::LoadFileDialog(const std::string& title, const std::string& filter,
                                      const std::string& initialName) {
  return services_.documents.LoadFileDialog(&window_, title, filter, initialName);
}

std::string QtOutside::SaveFileDialog(const std::string& title, const std::string& filter,
                                      const std::string& initialName,
                                      const std::string& defaultExtension) {
  return services_.documents.SaveFileDialog(&window_, title, filter, initialName, defaultExtension);
}

void QtOutside::SetTurnLabel(const std::string& text) {
  SetLabelNow(window_.turnLabel(), text);
}

void QtOutside::SetPieceLabel(const std::string& text) {
  SetLabelNow(window_.pieceLabel(), text);
}

void QtOutside::SetGameDescription(const std::string& text) {
  SetLabelNow(window_.gameDescriptionLabel(), text);
}

void QtOutside::SetMenuEnabled(Menu menu, bool enabled) {
  window_.SetMenuEnabled(menu, enabled);
}

bool QtOutside::IsMenuChecked(Menu menu) const {
  return window_.IsMenuChecked(menu);
}

void QtOutside::ShowPauseButton(bool visible) {
  window_.view().PauseButton().setVisible(visible);
}

int QtOutside::ThinkingTimeMs() const {
  return window_.ThinkingTimeMs();
}

void QtOutside::PlaySound(const std::string& entry) {
  // A sound that cannot be had (its temporary folder gone, a full disk) is
  // silent: it must not stop the move that plays it halfway.
  try {
    services_.sound.PlaySoundFile(services_.pack.ExtractEntry(entry));
  } catch (const std::exception&) {
  }
}

std::string QtOutside::ExtractEntry(const std::string& entry) {
  return services_.pack.ExtractEntry(entry);
}

void QtOutside::Yield() {
  QCoreApplication::processEvents();
}

void QtOutside::OpenDocument(const std::string& pathOrAddress) {
  services_.documents.OpenDocument(pathOrAddress);
}

double QtOutside::Now() {
  return EngineClock(services_.engine);
}

}  // namespace varkesh
