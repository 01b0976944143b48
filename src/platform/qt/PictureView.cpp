#include "platform/qt/PictureView.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QRegion>
#include <algorithm>

#include "platform/qt/Icons.h"
#include "platform/qt/ViewCommon.h"

namespace tavrin {

PictureView::PictureView(Picture& picture, QWidget* parent) : QWidget(parent), picture_(picture) {
  if (picture.Kind() == PictureKind::Splitter) {
    setFocusPolicy(Qt::TabFocus);
    setAttribute(Qt::WA_Hover);
  } else {
    setAttribute(Qt::WA_TransparentForMouseEvents, picture.ToolTip().empty());
  }
  if (picture.Kind() == PictureKind::Image) setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  changed_ = picture.Changed.Connect([this] { Follow(); });
  Follow();
}

void PictureView::Follow() {
  ShowCommon(*this, picture_);
  // A bar lies below everything, so that it is seen and caught only between the panes; its shadow lies above.
  if (picture_.Kind() == PictureKind::Splitter) {
    lower();
    setCursor(Across() ? Qt::SplitHCursor : Qt::SplitVCursor);
  } else if (picture_.Kind() == PictureKind::Shadow) {
    raise();
  }
  updateGeometry();
  update();
}

QSize PictureView::sizeHint() const {
  if (picture_.Kind() != PictureKind::Image) return QWidget::sizeHint();
  const Rect& place = picture_.Place();
  if (place.width > 0 && place.height > 0) return ToPixels(*this, place).size();
  constexpr float kTwipsPerPixel = kTwipsPerInch / 96;
  const QSize drawn = PictureSize(picture_.Image());
  return {ToPixels(*this, static_cast<float>(drawn.width()) * kTwipsPerPixel),
          ToPixels(*this, static_cast<float>(drawn.height()) * kTwipsPerPixel)};
}

bool PictureView::Across() const { return picture_.Place().height > picture_.Place().width; }

bool PictureView::CanBeSeen() const {
  constexpr int kEnough = 48;
  QRegion seen(geometry().intersected(parentWidget()->rect()));
  for (const QObject* sibling : parentWidget()->children()) {
    const auto* widget = qobject_cast<const QWidget*>(sibling);
    if (widget != nullptr && widget != this && widget->isVisible()) seen -= widget->geometry();
  }
  return std::any_of(seen.begin(), seen.end(),
                     [](const QRect& part) { return std::max(part.width(), part.height()) >= kEnough; });
}

bool PictureView::event(QEvent* event) {
  const QEvent::Type type = event->type();
  if (type == QEvent::HoverEnter || type == QEvent::HoverLeave || type == QEvent::FocusOut) update();
  return QWidget::event(event);
}

void PictureView::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  switch (picture_.Kind()) {
    case PictureKind::Image: PaintPicture(painter, picture_.Image(), rect(), palette().windowText().color()); break;
    case PictureKind::Line: PaintLine(painter); break;
    case PictureKind::Splitter: PaintSplitter(painter); break;
    case PictureKind::Shadow:
      painter.setOpacity(0.5);
      painter.fillRect(rect(), palette().highlight());
      break;
  }
}

void PictureView::PaintLine(QPainter& painter) const {
  painter.fillRect(0, 0, width(), 1, palette().mid());
  painter.fillRect(0, 1, width(), 1, palette().light());
}

void PictureView::PaintSplitter(QPainter& painter) const {
  if (hasFocus()) {
    painter.fillRect(rect(), palette().highlight());
  } else if (underMouse() || dragged_) {
    painter.setOpacity(0.35);
    painter.fillRect(rect(), palette().highlight());
  }
}

void PictureView::Tell(Gesture gesture, const QMouseEvent& event) {
  (picture_.*gesture)(ToTwips(*this, event.position().x()), ToTwips(*this, event.position().y()));
}

void PictureView::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton || picture_.Kind() != PictureKind::Splitter) return;
  dragged_ = true;
  Tell(&Picture::UserPress, *event);
}

void PictureView::mouseMoveEvent(QMouseEvent* event) {
  if (dragged_) Tell(&Picture::UserMove, *event);
}

void PictureView::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton || !dragged_) return;
  dragged_ = false;
  Tell(&Picture::UserRelease, *event);
  update();
}

void PictureView::MoveByKey(float x, float y) {
  picture_.UserPress(0, 0);
  picture_.UserMove(x, y);
  picture_.UserRelease(x, y);
}

void PictureView::keyPressEvent(QKeyEvent* event) {
  const int key = event->key();
  const bool onward = key == (Across() ? Qt::Key_Right : Qt::Key_Down);
  const bool back = key == (Across() ? Qt::Key_Left : Qt::Key_Up);
  if (picture_.Kind() != PictureKind::Splitter || (!onward && !back)) return QWidget::keyPressEvent(event);
  const float step = onward ? kKeyStep : -kKeyStep;
  MoveByKey(Across() ? step : 0, Across() ? 0 : step);
}

void PictureView::focusInEvent(QFocusEvent* event) {
  const bool walking = event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason;
  if (walking && !CanBeSeen()) {
    focusNextPrevChild(event->reason() == Qt::TabFocusReason);
  } else {
    QWidget::focusInEvent(event);
    update();
  }
}

}  // namespace tavrin
