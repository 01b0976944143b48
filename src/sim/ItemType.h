#pragma once

#include <cstdint>
#include <vector>

namespace tavrin {

/// What an item's value is made of.
enum class ValueKind : std::uint8_t { Bit, Int8, UInt8, Int16, UInt16, Int32, UInt32, Single, Double };

inline constexpr std::size_t kValueKinds = 9;

struct ItemType {
  ValueKind kind = ValueKind::Double;
  std::uint32_t count = 0;  ///< elements of an array; 0: a scalar

  friend bool operator==(const ItemType&, const ItemType&) = default;
};

/// The value of an item: one element for a scalar. Every kind fits into a double without a loss.
using Values = std::vector<double>;

/// What a kind can hold.
struct KindRange {
  double low;
  double high;
  bool whole;        ///< whole numbers only
  double usualHigh;  ///< how high a value goes that has no bounds
};

[[nodiscard]] const KindRange& RangeOf(ValueKind kind);

/// The element nearest to `value` that the kind can hold.
[[nodiscard]] double Nearest(ValueKind kind, double value);

/// A milliseconds count since the beginning of 1970, UTC.
using Moment = std::int64_t;

}  // namespace tavrin
