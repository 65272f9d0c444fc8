#include "ui/board_view.h"

#include <QCoreApplication>
#include <QFont>
#include <QFontMetrics>
#include <QString>
#include <array>
#include <exception>
#include <utility>

#include "engine/general_engine.h"
#include "flow/error_handler.h"
#include "ui/board_layout.h"
#include "ui/board_turn.h"

namespace varkesh {
namespace {

constexpr int kHintPixels = 144;
constexpr PixelPoint kHintCorner{228, 228};
constexpr Rgb kNameColour{255, 255, 255};
// White, Blue, Black, Red: beside the tips of their keeps.
constexpr std::array<PixelPoint, kTeamCount> kNamePlaces{
    {{325, 580}, {0, 220}, {325, 5}, {530, 360}}};
const FontDescription kNoteFont{"Sans", 12, true};
const FontDescription kVersionFont{"Sans", 9, false};
constexpr int kNoteY = 188;              // under the title's subtitle, above its board
constexpr double kStrobeInterval = 0.1;  // seconds: ten steps a second, smooth to the eye
constexpr int kFrameRateSpan = 250;      // milliseconds

constexpr int kBannerWidth = 270, kBannerHeight = 95, kBannerY = 300;
constexpr int kFlagWidth = 150, kFlagHeight = 57;
constexpr PixelPoint kFlagCorner{195, 20};
constexpr int kCoWinnerFlagY = 80;
// The background behind the flags, taken from five pixels lower.
constexpr int kFlagBackdropSourceY = 25, kFlagBackdropWidth = 155, kFlagBackdropHeight = 130;

const char* PlayerLabel(int playerKind) {
  switch (playerKind) {
    case kHuman:
      return "Human";
    case kAggressive:
      return "Comp (Agr)";
    case kBalanced:
      return "Comp (Bal)";
    case kDefensive:
      return "Comp (Def)";
    default:
      return "";
  }
}

int TeamOn(const Game& game, int x, int y) {
  return Board::InBounds(x, y) ? game.match.position.board.at(x, y).team : kNoTeam;
}

bool IsTeam(int team) {
  return TeamIndex(team) >= 0;
}

constexpr int kGridOrigin = 3;
constexpr int kGridSide = kBoardSide * kSquarePixels;
constexpr Rgb kCursorColour{255, 255, 255};
constexpr Rgb kCursorEdge{0, 0, 0};

}  // namespace

BoardView::BoardView(Gdi& gdi, GeneralEngine& engine, const BoardArt& art, BoardViewHooks hooks)
    : gdi_(gdi), engine_(engine), art_(art), hooks_(std::move(hooks)) {}

void BoardView::DrawBoardWithPieces(Game& game) {
  if (!game.view.boardChanged) return;
  bottomTeam_ = game.view.bottomTeam;
  gdi_.Blit(art_.board, 0, 0, gdi_.PictureWidth(art_.board), gdi_.PictureHeight(art_.board),
            art_.boardCanvas, 0, 0, RasterOp::Copy);
  // The grid turns; the pieces are drawn upright on it.
  if (const int turns = QuarterTurns(bottomTeam_); turns != 0)
    gdi_.TurnedBlit(art_.board, kGridOrigin, kGridOrigin, kGridSide, art_.boardCanvas, kGridOrigin,
                    kGridOrigin, turns);
  for (int y = 0; y < kBoardSide; ++y) {
    for (int x = 0; x < kBoardSide; ++x) {
      const Square& square = game.match.position.board.at(x, y);
      if (square.team == kNoTeam || square.piece == kNoPiece) continue;
      PixelPoint sprite = SpriteCell(square.team, square.piece);
      const SquarePoint drawn = DrawnSquare(x, y, bottomTeam_);
      PixelPoint at = PieceCorner(drawn.x, drawn.y);
      gdi_.MaskedBlit(art_.pieces, sprite.x, sprite.y, kPiecePixels, kPiecePixels, art_.pieceMask,
                      0, 0, art_.boardCanvas, at.x, at.y);
      if (square.piece < 0) {
        PixelPoint cell = SquareCorner(drawn.x, drawn.y);
        gdi_.MaskedBlit(art_.history, kFrostCell, MarkerRow(square.team) * kSquarePixels,
                        kSquarePixels, kSquarePixels, art_.history, kFrostCell, 0, art_.boardCanvas,
                        cell.x, cell.y);
      }
    }
  }
  gdi_.Blit(art_.boardCanvas, 0, 0, gdi_.PictureWidth(art_.boardCanvas),
            gdi_.PictureHeight(art_.boardCanvas), art_.backBuffer, 0, 0, RasterOp::Copy);
  DrawPlayerNames(game);
  if (game.turn.gameMode == ModeNoGame) DrawWaitingNote();
  DrawCursor(game);
  game.view.viewChanged = true;
}

void BoardView::DrawCursor(const Game& game) {
  if (!game.view.cursorShown || !Board::InBounds(game.view.cursorX, game.view.cursorY)) return;
  const SquarePoint drawn = DrawnSquare(game.view.cursorX, game.view.cursorY, bottomTeam_);
  const PixelPoint at = SquareCorner(drawn.x, drawn.y);
  gdi_.DrawFrame(art_.backBuffer, kCursorEdge, at.x - 1, at.y - 1, kSquarePixels + 2,
                 kSquarePixels + 2, 5);
  gdi_.DrawFrame(art_.backBuffer, kCursorColour, at.x, at.y, kSquarePixels, kSquarePixels, 3);
}

void BoardView::DrawPlayerNames(const Game& game) {
  for (int team = 1; team <= kTeamCount; ++team) {
    PixelPoint at = kNamePlaces[static_cast<std::size_t>(DrawnSide(team, bottomTeam_) - 1)];
    const int kind = TeamEntry(game.match.setup.playerKinds, team);
    std::string name =
        kind == kHuman && hooks_.seatPlayerName ? hooks_.seatPlayerName(game, team) : std::string();
    if (name.empty()) name = PlayerLabel(kind);
    gdi_.DrawText(art_.backBuffer, art_.boardFont, kNameColour, at.x, at.y, name);
  }
}

void BoardView::DrawWaitingNote() {
  const std::string note = hooks_.waitingNote ? hooks_.waitingNote() : std::string();
  if (note.empty()) return;
  const QFontMetrics metrics(QFont(QString::fromStdString(kNoteFont.name), kNoteFont.size,
                                   kNoteFont.bold ? QFont::Bold : QFont::Normal));
  const int width = metrics.horizontalAdvance(QString::fromStdString(note));
  gdi_.DrawText(art_.backBuffer, kNoteFont, kNameColour, (kViewPixels - width) / 2, kNoteY, note);
}

void BoardView::DrawVersion() {
  const QString version = QCoreApplication::applicationVersion();
  if (version.isEmpty()) return;
  const std::string line = "Version " + version.toStdString();
  const QFontMetrics metrics(QFont(QString::fromStdString(kVersionFont.name), kVersionFont.size));
  const int width = metrics.horizontalAdvance(QString::fromStdString(line));
  gdi_.DrawText(art_.backBuffer, kVersionFont, kNameColour, kViewPixels - width - 12,
                kViewPixels - 24, line);
}

void BoardView::ShowHistory(Game& game) {
  const auto& checked = hooks_.isMenuChecked;
  if (checked(Menu::History0)) return;
  bottomTeam_ = game.view.bottomTeam;
  auto draw = [&](const HistoryMove& move) {
    if (move.Empty()) return;
    DrawHistoricMove(move.fromX, move.fromY, move.toX, move.toY, move.team, move.wasCapture);
    game.view.viewChanged = true;
  };
  // Oldest first, so that the newest lies on top.
  if (checked(Menu::History3)) {
    draw(game.match.position.history[2]);
    draw(game.match.position.history[1]);
  }
  if (checked(Menu::History1) || checked(Menu::History3)) draw(game.match.position.history[0]);
}

void BoardView::DrawHistoricMove(int fromX, int fromY, int toX, int toY, int team,
                                 bool wasCapture) {
  DrawMoveMarkers(fromX, fromY, toX, toY, MarkerRow(team),
                  wasCapture ? kCaptureEndCell : kMoveEndCell);
}

void BoardView::DrawDungeons(Game& game) {
  if (!game.view.boardChanged) return;
  bottomTeam_ = game.view.bottomTeam;
  for (int team = 1; team <= kTeamCount; ++team) {
    const Dungeon& dungeon = game.match.position.dungeons[static_cast<std::size_t>(team - 1)];
    for (int i = 1; i <= dungeon.PrisonerCount(); ++i) {
      PixelPoint sprite = SpriteCell(dungeon.prisoners[i].team, dungeon.prisoners[i].piece);
      PixelPoint at = DungeonPlace(DrawnSide(team, bottomTeam_), i);
      gdi_.MaskedBlit(art_.pieces, sprite.x, sprite.y, kPiecePixels, kPiecePixels, art_.pieceMask,
                      0, 0, art_.backBuffer, at.x, at.y);
    }
  }
  game.view.viewChanged = true;
}

void BoardView::DrawSquares(Game& game) {
  if (!hooks_.isMenuChecked(Menu::OptionIndicator) || game.view.moveablePieces.Count() < 1) return;
  // A strobe nobody can see is not drawn; it comes back with the window.
  if (!gdi_.ViewSeen(art_.view)) return;
  double now = hooks_.clock();
  if (now - strobeLastDrawn_ <= kStrobeInterval) return;
  // The base's shading takes the strobe's present colour.
  gdi_.FillPicture(art_.squareCanvas, gdi_.StrobeColour(art_.strobeSquares));
  gdi_.Blit(art_.squareBase, 0, 0, gdi_.PictureWidth(art_.squareBase),
            gdi_.PictureHeight(art_.squareBase), art_.squareCanvas, 0, 0, RasterOp::And);
  int width = gdi_.PictureWidth(art_.squareCanvas);
  int height = gdi_.PictureHeight(art_.squareCanvas);
  bottomTeam_ = game.view.bottomTeam;
  for (const BoardSquare& square : game.view.moveablePieces) {
    const SquarePoint drawn = DrawnSquare(square.x, square.y, bottomTeam_);
    PixelPoint at = SquareCorner(drawn.x, drawn.y);
    gdi_.MaskedBlit(art_.squareCanvas, 0, 0, width, height, art_.squareMask, 0, 0, art_.backBuffer,
                    at.x, at.y);
  }
  DrawCursor(game);  // over the strobe
  game.view.viewChanged = true;
  strobeLastDrawn_ = now;
}

void BoardView::DrawSelection(Game& game, int x, int y, bool preview) {
  int row = preview ? kPreviewRow : MarkerRow(TeamOn(game, x, y));
  bottomTeam_ = game.view.bottomTeam;
  const SquarePoint drawn = DrawnSquare(x, y, bottomTeam_);
  PixelPoint at = SquareCorner(drawn.x, drawn.y);
  DrawMarker(kMoveStartCell, row, at.x, at.y);
  DrawCursor(game);
  game.view.viewChanged = true;
}

void BoardView::DrawMove(Game& game, int fromX, int fromY, int toX, int toY, bool preview) {
  int mover = TeamOn(game, fromX, fromY);
  int target = TeamOn(game, toX, toY);
  // A move onto an own piece is the castle move, not a capture.
  bool capture = target != kNoTeam && target != mover;
  bottomTeam_ = game.view.bottomTeam;
  DrawMoveMarkers(fromX, fromY, toX, toY, preview ? kPreviewRow : MarkerRow(mover),
                  capture ? kCaptureEndCell : kMoveEndCell);
  DrawCursor(game);
  game.view.viewChanged = true;
}

void BoardView::DrawMoveMarkers(int fromX, int fromY, int toX, int toY, int row, int endCell) {
  // The path is laid out on the squares as drawn, so its arrows point the
  // way the move goes on the screen.
  const SquarePoint from = DrawnSquare(fromX, fromY, bottomTeam_);
  const SquarePoint to = DrawnSquare(toX, toY, bottomTeam_);
  PixelPoint start = SquareCorner(from.x, from.y);
  PixelPoint end = SquareCorner(to.x, to.y);
  DrawMarker(kMoveStartCell, row, start.x, start.y);
  DrawMarker(endCell, row, end.x, end.y);
  for (const PathCell& step : MovePath(from.x, from.y, to.x, to.y))
    DrawMarker(step.cellX, row, step.at.x, step.at.y);
}

void BoardView::DrawMarker(int cellX, int row, int x, int y) {
  gdi_.MaskedBlit(art_.history, cellX, row * kSquarePixels, kSquarePixels, kSquarePixels,
                  art_.history, cellX, 0, art_.backBuffer, x, y);
}

void BoardView::DrawHint(Game&, Hint hint) {
  // Asked for on each pass while the player thinks: a hint still standing
  // as drawn is not drawn again.
  if (hintDrawn_ && *hintDrawn_ == std::pair(hint, gdi_.DrawsOn(art_.view))) return;
  PicNum picture = hint == Hint::ChoosePiece  ? art_.hintPiece
                   : hint == Hint::ChooseMove ? art_.hintMove
                                              : art_.hintConfirm;
  gdi_.Blit(art_.hintShade, 0, 0, kHintPixels, kHintPixels, art_.backBuffer, kHintCorner.x,
            kHintCorner.y, RasterOp::And);
  gdi_.Blit(picture, 0, 0, kHintPixels, kHintPixels, art_.backBuffer, kHintCorner.x, kHintCorner.y,
            RasterOp::Or);
  hintDrawn_ = std::pair(hint, gdi_.DrawsOn(art_.view));
}

void BoardView::ShowViewport() {
  gdi_.ShowViewport(art_.view);
}

void BoardView::AdvanceStrobes() {
  gdi_.AdvanceStrobes();
}

void BoardView::UpdateFrameRate() {
  double rate = gdi_.FrameRate(kFrameRateSpan);
  if (hooks_.showFrameRate) hooks_.showFrameRate(QString::number(rate, 'f', 2).toStdString());
}

void BoardView::LoadTitle() {
  title_ = gdi_.NewPicNum();
  titleDrawn_.reset();
  LogStartUpStep(engine_, "+ Picture to Load: titlescreen");
  // Without its picture the title shows what was there; the fault is logged
  // once and the player can still click on.
  try {
    gdi_.LoadPicture(title_, hooks_.entryPath("titlescreen"));
  } catch (const std::exception& error) {
    AppendErrorBlock(engine_, "error_main.log", "modVarkesh", "LoadTitle", 1, error.what());
  }
}

void BoardView::ShowTitle() {
  // Shown on each pass of the title: copied again only when something was
  // drawn over it or the note under it changed.
  const std::string note = hooks_.waitingNote ? hooks_.waitingNote() : std::string();
  if (titleDrawn_ != gdi_.DrawsOn(art_.view) || note != titleNote_) {
    gdi_.Blit(title_, 0, 0, gdi_.PictureWidth(title_), gdi_.PictureHeight(title_), art_.backBuffer,
              0, 0, RasterOp::Copy);
    DrawWaitingNote();
    DrawVersion();
    titleDrawn_ = gdi_.DrawsOn(art_.view);
    titleNote_ = note;
  }
  gdi_.ShowViewport(art_.view);
}

void BoardView::ClearTitle() {
  gdi_.ClearPicture(title_);
}

void BoardView::DrawVictory(const Game& game) {
  gdi_.Blit(art_.victory, 0, 0, kViewPixels, kViewPixels, art_.backBuffer, 0, 0, RasterOp::Copy);
  auto banner = [&](int team, int x) {
    if (!IsTeam(team)) return;
    gdi_.MaskedBlit(art_.victoryWords, 0, team * kBannerHeight, kBannerWidth, kBannerHeight,
                    art_.victoryWords, 0, 0, art_.backBuffer, x, kBannerY);
  };
  if (IsTeam(game.match.position.coWinner)) {
    banner(game.match.position.winner, 15);
    banner(game.match.position.coWinner, 330);
  } else {
    banner(game.match.position.winner, 165);
  }
}

void BoardView::DrawVictoryFlags(const Game& game, int winnerFrame, int coWinnerFrame) {
  gdi_.Blit(art_.victory, kFlagCorner.x, kFlagBackdropSourceY, kFlagBackdropWidth,
            kFlagBackdropHeight, art_.backBuffer, kFlagCorner.x, kFlagCorner.y, RasterOp::Copy);
  DrawFlag(game.match.position.winner, winnerFrame, kFlagCorner.y);
  if (coWinnerFrame >= 0) DrawFlag(game.match.position.coWinner, coWinnerFrame, kCoWinnerFlagY);
}

void BoardView::DrawFlag(int team, int frame, int y) {
  if (!IsTeam(team)) return;
  gdi_.MaskedBlit(art_.flags, frame * kFlagWidth, team * kFlagHeight, kFlagWidth, kFlagHeight,
                  art_.flags, frame * kFlagWidth, 0, art_.backBuffer, kFlagCorner.x, y);
}

}  // namespace varkesh
