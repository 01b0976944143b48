#pragma once

namespace tavrin {

/// Lengths of controls and windows are twips: 1440 an inch, so 15 a pixel at 96 pixels an inch.
inline constexpr float kTwipsPerInch = 1440;
inline constexpr float kTwipsPerPoint = 20;

/// A place in its window, in twips.
struct Rect {
  float left = 0;
  float top = 0;
  float width = 0;
  float height = 0;

  [[nodiscard]] float Right() const { return left + width; }
  [[nodiscard]] float Bottom() const { return top + height; }
  friend bool operator==(const Rect&, const Rect&) = default;
};

}  // namespace tavrin
