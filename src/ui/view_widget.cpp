#include "ui/view_widget.h"

#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QPushButton>
#include <QTimer>
#include <QWindow>
#include <cmath>

#include "core/geometry.h"
#include "ui/board_turn.h"

namespace varkesh {

namespace {

constexpr int kBorder = 2;
const char* const kPauseCaption = "&Pause";
const char* const kResumeCaption = "R&esume";

}  // namespace

ViewWidget::ViewWidget(Game& game, QWidget* parent) : QFrame(parent), game_(game) {
  setObjectName("picViewPort");
  setFrameStyle(QFrame::Panel | QFrame::Sunken);
  setLineWidth(kBorder);
  setAttribute(Qt::WA_OpaquePaintEvent);
  // The keys of the board come here, Tab among them.
  setFocusPolicy(Qt::StrongFocus);

  pause_ = new QPushButton(kPauseCaption, this);
  pause_->setObjectName("cmdPause");
  pause_->setGeometry(kBorder, kBorder, 65, 25);
  pause_->setFocusPolicy(Qt::NoFocus);
  pause_->hide();
  connect(pause_, &QPushButton::clicked, this, &ViewWidget::TogglePause);

  frameRate_ = new QLabel(this);
  frameRate_->setObjectName("lblFPS");
  frameRate_->move(kBorder + 5, kBorder + 32);
  frameRate_->setMinimumWidth(60);
  frameRate_->setStyleSheet("color: white; background: transparent;");
  frameRate_->hide();

  notice_ = new QLabel(this);
  notice_->setObjectName("lblNotice");
  notice_->setAlignment(Qt::AlignCenter);
  notice_->setStyleSheet(
      "color: white; background: rgba(0, 0, 0, 170); padding: 6px; font-weight: bold;");
  notice_->hide();
  noticeTimer_ = new QTimer(this);
  noticeTimer_->setSingleShot(true);
  connect(noticeTimer_, &QTimer::timeout, notice_, &QLabel::hide);
}

void ViewWidget::ShowNotice(const QString& text) {
  constexpr int kNoticeMs = 6000;
  notice_->setText(text);
  notice_->adjustSize();
  const QRect inner = contentsRect();
  notice_->move(inner.left() + (inner.width() - notice_->width()) / 2, inner.top() + 40);
  notice_->show();
  notice_->raise();
  noticeTimer_->start(kNoticeMs);
}

int ViewWidget::SquareOfClick(double pos, int innerSize) {
  const int cell = std::max(1, static_cast<int>(std::lround(innerSize / 17.0)));
  return static_cast<int>(std::lround(pos)) / cell;
}

void ViewWidget::mousePressEvent(QMouseEvent* event) {
  const QRect inner = contentsRect();
  if (!inner.contains(event->position().toPoint())) return;  // on the border
  const QPointF at = event->position() - QPointF(inner.topLeft());
  const SquarePoint square =
      GameSquare(SquareOfClick(at.x(), inner.width()), SquareOfClick(at.y(), inner.height()),
                 game_.view.bottomTeam);
  Click(square.x, square.y, event->button() == Qt::LeftButton, event->button() == Qt::RightButton);
}

void ViewWidget::Click(int x, int y, bool left, bool right) {
  game_.view.clickLeft = left;
  game_.view.clickRight = right;
  game_.view.clickPending = true;
  game_.view.clickX = x;
  game_.view.clickY = y;
}

bool ViewWidget::focusNextPrevChild(bool) {
  return false;  // Tab picks the next moveable piece
}

bool ViewWidget::Seen() const {
  // Minimized or unmapped, the window is not exposed, whatever its state says.
  const QWindow* handle = window()->windowHandle();
  return isVisible() && !window()->isMinimized() && handle != nullptr && handle->isExposed();
}

QSize ViewWidget::DevicePixels() const {
  const double ratio = devicePixelRatioF();
  const QSize inner = contentsRect().size();
  return QSize(static_cast<int>(std::lround(inner.width() * ratio)),
               static_cast<int>(std::lround(inner.height() * ratio)));
}

ViewWindow ViewWidget::AsViewWindow() {
  return ViewWindow{
      // Nothing is drawn for a window the player cannot see.
      [this] { return Seen() ? DevicePixels() : QSize(); },
      [this](const QRect& shown) {
        const double ratio = devicePixelRatioF();
        const QRectF logical(shown.x() / ratio, shown.y() / ratio, shown.width() / ratio,
                             shown.height() / ratio);
        update(logical.toAlignedRect().adjusted(-1, -1, 1, 1).translated(contentsRect().topLeft()));
      }};
}

void ViewWidget::paintEvent(QPaintEvent* event) {
  QFrame::paintEvent(event);
  QPainter painter(this);
  const QRect inner = contentsRect();
  const QImage* screen = screen_ ? &screen_() : nullptr;
  if (screen == nullptr || screen->isNull()) {
    painter.fillRect(inner, Qt::black);
    return;
  }
  if (screen->size() == DevicePixels()) {
    // Device pixel for device pixel: sharp at any ratio of the screen, and
    // with no transformation left, the painter copies the pixels as they are.
    const double ratio = devicePixelRatioF();
    const QRect area = event->rect().intersected(inner).translated(-inner.topLeft());
    const QRect source =
        QRectF(area.x() * ratio, area.y() * ratio, area.width() * ratio, area.height() * ratio)
            .toAlignedRect()
            .intersected(screen->rect());
    painter.translate(inner.topLeft());
    painter.scale(1.0 / ratio, 1.0 / ratio);
    painter.drawImage(source.topLeft(), *screen, source);
  } else {
    // Just resized: the next show brings a picture of the new size.
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(inner, *screen);
  }
}

void ViewWidget::TogglePause() {
  game_.turn.paused = !game_.turn.paused;
  SyncPauseCaption();
}

void ViewWidget::SyncPauseCaption() {
  const QString caption = game_.turn.paused ? kResumeCaption : kPauseCaption;
  if (pause_->text() != caption) pause_->setText(caption);
}

}  // namespace varkesh
