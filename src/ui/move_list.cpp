#include "ui/move_list.h"

#include <QHeaderView>
#include <QKeyEvent>

#include "persist/record_text.h"
#include "ui/board_view.h"

namespace varkesh {

namespace {

constexpr int kRoundColumnWidth = 36;
constexpr int kTeamColumnWidth = 62;
constexpr int kPlyRole = Qt::UserRole;

// The teams' colours as the list shows them: a header in the colour, and
// moves in a shade that reads on the light rows.
struct TeamColours {
  QColor header, headerText, move;
};

TeamColours ColoursOf(int team) {
  switch (team) {
    case kWhite:
      return {QColor(245, 245, 240), Qt::black, QColor(90, 90, 90)};
    case kBlue:
      return {QColor(40, 80, 200), Qt::white, QColor(30, 60, 170)};
    case kBlack:
      return {QColor(30, 30, 30), Qt::white, Qt::black};
    default:
      return {QColor(190, 30, 30), Qt::white, QColor(170, 20, 20)};
  }
}

}  // namespace

MoveListView::MoveListView(Game& game, QWidget* parent)
    : QTableWidget(0, kTeamCount + 1, parent), game_(game) {
  setObjectName("lstMoves");
  setEditTriggers(QAbstractItemView::NoEditTriggers);
  setSelectionMode(QAbstractItemView::SingleSelection);
  setSelectionBehavior(QAbstractItemView::SelectItems);
  setFocusPolicy(Qt::StrongFocus);
  verticalHeader()->hide();
  horizontalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  horizontalHeader()->setHighlightSections(false);
  setColumnWidth(0, kRoundColumnWidth);
  auto* round = new QTableWidgetItem("#");
  setHorizontalHeaderItem(0, round);
  for (int team = kWhite; team <= kRed; ++team) {
    setColumnWidth(team, kTeamColumnWidth);
    auto* header = new QTableWidgetItem(TeamName(team));
    const TeamColours colours = ColoursOf(team);
    header->setBackground(colours.header);
    header->setForeground(colours.headerText);
    setHorizontalHeaderItem(team, header);
  }
  // The header's own style would paint over the colours.
  horizontalHeader()->setStyleSheet("QHeaderView::section { padding: 2px; }");
  QFont small = font();
  small.setPointSizeF(small.pointSizeF() * 0.9);
  setFont(small);
  connect(this, &QTableWidget::cellClicked, this, [this](int row, int column) {
    const QTableWidgetItem* cell = item(row, column);
    if (cell == nullptr || !cell->data(kPlyRole).isValid()) return;
    Browse(cell->data(kPlyRole).toInt());
  });
}

void MoveListView::Follow() {
  if (game_.match.record == shownRecord_) return;
  shownRecord_ = game_.match.record;
  Rebuild();
  if (browsed_ && *browsed_ >= describedPlies_) Return();
}

void MoveListView::Rebuild() {
  const std::vector<EventText> events = DescribeEvents(shownRecord_);
  describedPlies_ = static_cast<int>(events.size());
  setRowCount(0);
  int row = -1;
  int rowRound = 0;
  int lastColumn = 0;
  for (std::size_t i = 0; i < events.size(); ++i) {
    const EventText& event = events[i];
    // A new row for each round, and for a team that comes round again in
    // one (a start in the middle of a round).
    if (row < 0 || event.round != rowRound || event.team <= lastColumn) {
      row = rowCount();
      insertRow(row);
      auto* number = new QTableWidgetItem(QString::number(event.round));
      number->setFlags(Qt::ItemIsEnabled);
      setItem(row, 0, number);
      rowRound = event.round;
    }
    QString text = QString::fromStdString(event.move);
    QString notes;
    for (const std::string& note : event.notes)
      notes += (notes.isEmpty() ? "" : "\n") + QString::fromStdString(note);
    if (!notes.isEmpty()) text += QString::fromUtf8(" \u2020");
    auto* cell = new QTableWidgetItem(text);
    cell->setForeground(ColoursOf(event.team).move);
    cell->setData(kPlyRole, static_cast<int>(i) + 1);
    if (!notes.isEmpty()) cell->setToolTip(notes);
    setItem(row, event.team, cell);
    lastColumn = event.team;
  }
  SelectPly(BrowsedPlies());
}

void MoveListView::SelectPly(int plies) {
  for (int row = rowCount() - 1; row >= 0; --row) {
    for (int column = kTeamCount; column >= 1; --column) {
      QTableWidgetItem* cell = item(row, column);
      if (cell != nullptr && cell->data(kPlyRole).toInt() == plies) {
        setCurrentItem(cell);
        scrollToItem(cell);
        return;
      }
    }
  }
  clearSelection();
  if (plies == 0) scrollToTop();
}

void MoveListView::Browse(int plies) {
  if (plies < 0) plies = 0;
  // The position after the last move is the game as it stands.
  if (plies >= describedPlies_) {
    Return();
    return;
  }
  browsed_ = plies;
  redraw_ = true;
  SelectPly(plies);
  if (showNote) showNote(NoteFor(plies));
}

QString MoveListView::NoteFor(int plies) const {
  if (plies == 0) return "Replay: the start (End returns)";
  const QTableWidgetItem* cell = currentItem();
  const QString move = cell != nullptr ? cell->text() : QString();
  const QString team = cell != nullptr ? horizontalHeaderItem(cell->column())->text() : QString();
  return "Replay: " + team + " " + move + " (End returns)";
}

void MoveListView::Return() {
  const bool was = browsed_.has_value();
  browsed_.reset();
  redraw_ = false;
  SelectPly(describedPlies_);
  if (!was) return;
  game_.view.boardChanged = true;
  // The victory screen is drawn whole again over the browsed board.
  if (game_.turn.gameMode == ModeVictory) game_.turn.gameMode = ModeVictorySetUp;
  if (showNote) showNote("");
}

void MoveListView::DrawBrowsed(BoardView& view) {
  if (!browsed_ || !redraw_) return;
  redraw_ = false;
  Game shown = game_;
  Replay(shownRecord_, *browsed_, shown.match.position);
  shown.view.marks = {};
  shown.view.moveablePieces.Clear();
  shown.view.boardChanged = true;
  view.DrawBoardWithPieces(shown);
  view.DrawDungeons(shown);
  // The move that led here, drawn as a move's path is drawn in play.
  const HistoryMove& last = shown.match.position.history[0];
  if (*browsed_ > 0 && !last.Empty() &&
      shownRecord_.events[static_cast<std::size_t>(*browsed_ - 1)].kind == RecordEvent::Kind::Move)
    view.DrawHistoricMove(last.fromX, last.fromY, last.toX, last.toY, last.team, last.wasCapture);
  view.ShowViewport();
}

void MoveListView::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Left:
      Browse(BrowsedPlies() - 1);
      return;
    case Qt::Key_Right:
      if (Browsing()) Browse(BrowsedPlies() + 1);
      return;
    case Qt::Key_Home:
      Browse(0);
      return;
    case Qt::Key_End:
      Return();
      return;
    default:
      QTableWidget::keyPressEvent(event);
  }
}

}  // namespace varkesh
