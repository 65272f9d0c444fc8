#include "ui/record_commands.h"

#include <QAction>
#include <QLabel>
#include <QMenu>
#include <QMouseEvent>
#include <cctype>

#include "core/new_game_data.h"
#include "engine/general_engine.h"
#include "flow/error_handler.h"
#include "flow/save_load.h"
#include "persist/file_coder.h"
#include "persist/record_text.h"
#include "ui/main_window.h"
#include "ui/move_list.h"
#include "ui/qt_outside.h"
#include "ui/view_widget.h"

namespace varkesh {

namespace {

constexpr const char* kModule = "frmMain";
constexpr const char* kFilter = "Record Files (*.vrec)|*.vrec|All Files (*.*)|*.*";
constexpr const char* kExtension = ".vrec";
constexpr int kRefreshMs = 100;
constexpr const char* kImportQuestion =
    "The current game is not saved ... are you sure you wish to import a record without "
    "saving the current one?\n"
    "\n"
    "          \u00BB Click 'Yes' to import a record.\n"
    "          \u00BB Click 'No' to continue with the current game.";

}  // namespace

RecordCommands::RecordCommands(Game& game, QtOutside& outside, MainWindow& window,
                               MoveListView& list)
    : game_(game), outside_(outside), window_(window), list_(list) {
  window_.view().installEventFilter(this);
  list_.showNote = [this](const QString& note) { window_.pieceLabel().setText(note); };
  connect(&refresh_, &QTimer::timeout, this, &RecordCommands::Refresh);
  refresh_.start(kRefreshMs);
}

QAction* RecordCommands::AddCommand(QMenu* menu, const char* objectName, const char* text,
                                    const QKeySequence& key, std::function<void()> body,
                                    DuringSearch duringSearch) {
  QAction* action = menu->addAction(text);
  action->setObjectName(objectName);
  if (!key.isEmpty()) action->setShortcut(key);
  const std::string sub = std::string(objectName) + ".Click";
  auto run = [this, sub, body = std::move(body)] {
    Guarded(outside_, kModule, sub.c_str(), body);
    Refresh();
  };
  connect(action, &QAction::triggered, this, [this, run, duringSearch] {
    if (!window_.HoldDuringSearch(duringSearch, run)) run();
  });
  return action;
}

void RecordCommands::AddGameEntries(QMenu* menu) {
  takeBack_ = AddCommand(menu, "mnuGameTakeBack", "&Take Back Move", Qt::CTRL | Qt::Key_Z, [this] {
    list_.Return();
    TakeBack(game_, outside_, takeback_);
  });
  redo_ = AddCommand(menu, "mnuGameRedo", "R&edo", Qt::CTRL | Qt::SHIFT | Qt::Key_Z, [this] {
    list_.Return();
    Redo(game_, outside_, takeback_);
  });
  menu->addSeparator()->setObjectName("mnuGameUL4");
  AddCommand(menu, "mnuGameExportRecord", "E&xport Record ...", {}, [this] { ExportRecord(); });
  import_ = AddCommand(
      menu, "mnuGameImportRecord", "&Import Record ...", {}, [this] { ImportRecord(); },
      DuringSearch::StopIt);
  Refresh();
}

void RecordCommands::AddOptionsEntries(QMenu* menu) {
  showList_ = menu->addAction("Show &Move List");
  showList_->setObjectName("mnuOptionsMoveList");
  showList_->setShortcut(Qt::CTRL | Qt::Key_M);
  showList_->setCheckable(true);
  showList_->setChecked(true);
  connect(showList_, &QAction::toggled, this, &RecordCommands::ShowList);
}

bool RecordCommands::ListShown() const {
  return showList_ == nullptr || showList_->isChecked();
}

void RecordCommands::ShowList(bool shown) {
  list_.setVisible(shown);
  if (!shown) list_.Return();
  // The window grows or shrinks by the list, so the board keeps its size.
  if (!window_.isMaximized() && !window_.isFullScreen())
    window_.resize(window_.width() + (shown ? MoveListView::kWidth : -MoveListView::kWidth),
                   window_.height());
  window_.LayOutInnerArea();
}

void RecordCommands::Refresh() {
  list_.Follow();
  if (takeBack_) takeBack_->setEnabled(CanTakeBack(game_, outside_.Link()));
  if (redo_) redo_->setEnabled(CanRedo(game_, takeback_));
  // An imported game is this machine's alone: no session is told of it.
  if (import_) import_->setEnabled(game_.net.netRole == kNetNone);
}

bool RecordCommands::eventFilter(QObject* watched, QEvent* event) {
  if (watched == &window_.view() && event->type() == QEvent::MouseButtonPress && list_.Browsing()) {
    list_.Return();
    return true;
  }
  return QObject::eventFilter(watched, event);
}

void RecordCommands::ExportRecord() {
  std::string name;
  for (char c : game_.match.setup.gameName)
    if (std::isalnum(static_cast<unsigned char>(c)) || c == '_') name += c;
  const std::string path = outside_.SaveFileDialog(
      "Export Record ...", kFilter, DocumentFile(outside_.Engine(), name + kExtension), kExtension);
  if (path.empty()) return;
  GameRecord record;
  record.setup = game_.match.setup;
  record.date = RecordDateToday();
  record.record = game_.match.record;
  const Board standard = LoadNewGameDataFile(outside_.ExtractEntry("newgamedata"));
  const std::optional<std::string> text = WriteRecordText(record, &standard);
  if (!text) {
    outside_.ShowMessage("Export Record", "This game began on a board a record cannot describe.");
    return;
  }
  WriteFileBytes(path, *text);
}

void RecordCommands::ImportRecord() {
  if (game_.net.netRole != kNetNone) return;
  if (!game_.turn.gameSaved && !outside_.AskYesNo("Import Record?", kImportQuestion)) return;
  const std::string path = outside_.LoadFileDialog("Import Record ...", kFilter, "");
  if (path.empty()) return;
  const Board standard = LoadNewGameDataFile(outside_.ExtractEntry("newgamedata"));
  GameRecord read;
  if (auto problem = ReadRecordText(ReadFileBytes(path), &standard, read)) {
    outside_.ShowMessage("Import Record", "The record '" + path + "' cannot be read: " +
                                              problem->Text() + ".\n\nThe game goes on as it was.");
    return;
  }
  list_.Return();
  takeback_ = {};
  game_.match.setup = read.setup;
  game_.match.record = read.record;
  game_.match.position = FinalPosition(read.record);
  game_.turn.saveFilePath.clear();
  game_.turn.gameSaved = false;
  ResumeLoadedGame(game_, outside_);
  if (game_.match.position.Finished()) game_.turn.gameMode = ModeVictorySetUp;
}

}  // namespace varkesh
