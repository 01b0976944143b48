#pragma once

#include <QColor>
#include <QIcon>
#include <QPainter>
#include <QRectF>
#include <QSize>
#include <string>

namespace tavrin {

/// The drawn picture of a key as an icon of any size. Its lines have the colour of the palette's text, also after the
/// palette has changed. An icon that shows nothing for an unknown key.
[[nodiscard]] QIcon IconOf(const std::string& key);

/// Width and height for which the picture of a key is drawn, in pixels at 96 an inch; empty for an unknown key.
[[nodiscard]] QSize PictureSize(const std::string& key);

/// Draws the picture of a key as large as it fits, with its own proportions, from the left edge of the place.
void PaintPicture(QPainter& painter, const std::string& key, const QRectF& place, const QColor& lines);

}  // namespace tavrin
