#include "platform/qt/ViewCommon.h"

#include <QTextDocument>
#include <cmath>

#include "platform/qt/Text.h"

namespace tavrin {

int ToPixels(const QWidget& widget, float twips) {
  return static_cast<int>(std::lround(static_cast<double>(twips) * widget.logicalDpiX() / kTwipsPerInch));
}

float ToTwips(const QWidget& widget, double pixels) {
  return static_cast<float>(pixels * kTwipsPerInch / widget.logicalDpiX());
}

QRect ToPixels(const QWidget& widget, const Rect& place) {
  const QPoint topLeft(ToPixels(widget, place.left), ToPixels(widget, place.top));
  const QPoint end(ToPixels(widget, place.Right()), ToPixels(widget, place.Bottom()));
  return {topLeft, QSize(end.x() - topLeft.x(), end.y() - topLeft.y())};
}

WindowState StateOf(Qt::WindowStates states) {
  if (states.testFlag(Qt::WindowMinimized)) return WindowState::Minimised;
  const bool large = states.testFlag(Qt::WindowMaximized) || states.testFlag(Qt::WindowFullScreen);
  return large ? WindowState::Maximised : WindowState::Normal;
}

void ShowCommon(QWidget& widget, const Control& control) {
  widget.setVisible(control.Visible());
  widget.setEnabled(control.Enabled());
  widget.setToolTip(PlainToolTip(ToQt(control.ToolTip())));
  widget.setAccessibleName(ToQt(control.SpokenName()));
}

QString PlainToolTip(const QString& text) {
  return Qt::mightBeRichText(text) ? QStringLiteral("<p>%1</p>").arg(text.toHtmlEscaped()) : text;
}

}  // namespace tavrin
