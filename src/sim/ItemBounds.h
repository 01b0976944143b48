#pragma once

#include <optional>

#include "sim/ItemType.h"

namespace tavrin {

class cTag;

/// The bounds of an item: what a client may write, where a moving value stays, and how far it has to move before
/// anybody hears of it. A bound that is no number is none.
struct ItemBounds {
  std::optional<double> low;
  std::optional<double> high;
  double hysteresisDown = 0;  ///< a value that falls no further than this is not told
  double hysteresisUp = 0;    ///< likewise for one that rises

  /// The bounds of a tag. A pair in the wrong order is none.
  [[nodiscard]] static ItemBounds Of(const cTag& tag);

  [[nodiscard]] bool HasHysteresis() const { return hysteresisDown > 0 || hysteresisUp > 0; }
  [[nodiscard]] bool Allow(const Values& values) const;
  /// True when an element has left the band around what was told last.
  [[nodiscard]] bool IsNews(const Values& told, const Values& now) const;

  friend bool operator==(const ItemBounds&, const ItemBounds&) = default;
};

/// Between what a value of the kind moves: its bounds as far as the kind can hold them, or what is usual for the kind.
struct Span {
  double low;
  double high;
};
[[nodiscard]] Span SpanOf(ValueKind kind, const ItemBounds& bounds);

}  // namespace tavrin
