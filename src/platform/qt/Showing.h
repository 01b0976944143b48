#pragma once

#include <QFont>
#include <QWidget>
#include <utility>

namespace tavrin {

/// While it lives, a view brings itself in line with its control.
class Showing {
 public:
  explicit Showing(bool& flag) : flag_(flag), before_(std::exchange(flag, true)) {}
  Showing(const Showing&) = delete;
  Showing& operator=(const Showing&) = delete;
  ~Showing() { flag_ = before_; }

 private:
  bool& flag_;
  bool before_;
};

/// @return false when the widget has the font size already
inline bool ShowFontSize(QWidget& widget, float points) {
  QFont font = widget.font();
  const bool own = widget.testAttribute(Qt::WA_SetFont);
  if (own && qFuzzyCompare(font.pointSizeF(), static_cast<qreal>(points))) return false;
  font.setPointSizeF(static_cast<qreal>(points));
  widget.setFont(font);
  return true;
}

}  // namespace tavrin
