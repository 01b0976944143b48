#include "sim/ItemType.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace tavrin {

namespace {

constexpr double kLargestSingle = std::numeric_limits<float>::max();
constexpr double kLargestDouble = std::numeric_limits<double>::max();

constexpr std::array<KindRange, kValueKinds> kRanges{{
    {0, 1, true, 1},                                // Bit
    {-128, 127, true, 100},                         // Int8
    {0, 255, true, 255},                            // UInt8
    {-32768, 32767, true, 1000},                    // Int16
    {0, 65535, true, 1000},                         // UInt16
    {-2147483648.0, 2147483647.0, true, 100000},    // Int32
    {0, 4294967295.0, true, 100000},                // UInt32
    {-kLargestSingle, kLargestSingle, false, 100},  // Single
    {-kLargestDouble, kLargestDouble, false, 100},  // Double
}};

}  // namespace

const KindRange& RangeOf(ValueKind kind) { return kRanges[static_cast<std::size_t>(kind)]; }

double Nearest(ValueKind kind, double value) {
  const KindRange& range = RangeOf(kind);
  if (std::isnan(value)) return range.whole ? 0 : value;
  const double inside = std::clamp(value, range.low, range.high);
  if (range.whole) return std::nearbyint(inside);
  return kind == ValueKind::Single ? static_cast<double>(static_cast<float>(inside)) : inside;
}

}  // namespace tavrin
