#pragma once

#include <QRect>
#include <QWidget>

#include "platform/controls/Form.h"

namespace tavrin {

/// Pixels of a length at the resolution of the widget's screen, and back.
[[nodiscard]] int ToPixels(const QWidget& widget, float twips);
[[nodiscard]] float ToTwips(const QWidget& widget, double pixels);
/// Each edge is rounded by itself, so that neighbours neither overlap nor leave a gap.
[[nodiscard]] QRect ToPixels(const QWidget& widget, const Rect& place);

/// The state of a window in the toolkit's words. A window that fills the whole screen counts as maximised.
[[nodiscard]] WindowState StateOf(Qt::WindowStates states);

/// Gives the widget what every control has: visible, enabled, tool tip, the name for screen readers.
void ShowCommon(QWidget& widget, const Control& control);

/// A text for a tool tip, which the toolkit would read as HTML when it looks like it.
[[nodiscard]] QString PlainToolTip(const QString& text);

}  // namespace tavrin
