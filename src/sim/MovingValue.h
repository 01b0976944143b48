#pragma once

#include "sim/ItemBounds.h"

namespace tavrin {

/// A value that goes up and down between the bounds of its item in 50 steps, in fewer where there are fewer whole
/// numbers between them; a bit changes with every tick. It depends on nothing but the tick, so that only values that
/// somebody asks for cost anything.
class MovingValue {
 public:
  /// @param phase where in its cycle the value is at tick 0, so that not all items move alike
  MovingValue(const ItemType& type, const ItemBounds& bounds, std::uint32_t phase);

  /// The value after so many ticks; the elements of an array follow each other by one tick.
  [[nodiscard]] Values At(std::int64_t tick) const;
  /// Where a value begins: 0, or the bound next to it.
  [[nodiscard]] Values Start() const;

 private:
  [[nodiscard]] double ElementAt(std::int64_t tick) const;

  ItemType type_;
  Span span_;
  std::uint32_t phase_;
};

}  // namespace tavrin
