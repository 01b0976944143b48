#pragma once

#include <QWidget>

#include "platform/controls/Picture.h"

namespace tavrin {

/// Draws a picture of any kind. A splitter is dragged with the left button, or moved with the arrow keys when it has
/// the keyboard.
class PictureView : public QWidget {
 public:
  PictureView(Picture& picture, QWidget* parent);

  /// Twips that an arrow key moves a splitter.
  static constexpr float kKeyStep = 150;

  /// In a layout a picture is as large as its place, or as it was drawn when it has none.
  [[nodiscard]] QSize sizeHint() const override;

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;

 private:
  using Gesture = void (Picture::*)(float x, float y);

  void Follow();
  void Tell(Gesture gesture, const QMouseEvent& event);
  void MoveByKey(float x, float y);
  [[nodiscard]] bool Across() const;
  /// False while other controls lie over all of the bar.
  [[nodiscard]] bool CanBeSeen() const;
  void PaintLine(QPainter& painter) const;
  void PaintSplitter(QPainter& painter) const;

  Picture& picture_;
  bool dragged_ = false;
  Connection changed_;
};

}  // namespace tavrin
