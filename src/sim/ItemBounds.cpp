#include "sim/ItemBounds.h"

#include <algorithm>
#include <cmath>

#include "model/tags/cTag.h"
#include "sim/FreeNumbers.h"

namespace tavrin {

ItemBounds ItemBounds::Of(const cTag& tag) {
  ItemBounds bounds{FreeNumber(tag.szLB()), FreeNumber(tag.szUB()),
                    std::max(0.0, FreeNumber(tag.szHystLB()).value_or(0)),
                    std::max(0.0, FreeNumber(tag.szHystUB()).value_or(0))};
  if (bounds.low && bounds.high && *bounds.low > *bounds.high) bounds.low = bounds.high = std::nullopt;
  return bounds;
}

bool ItemBounds::Allow(const Values& values) const {
  return std::all_of(values.begin(), values.end(), [this](double value) {
    if (std::isnan(value)) return !low && !high;
    return (!low || value >= *low) && (!high || value <= *high);
  });
}

bool ItemBounds::IsNews(const Values& told, const Values& now) const {
  if (told.size() != now.size()) return true;
  for (std::size_t i = 0; i < now.size(); ++i) {
    if (now[i] < told[i] - hysteresisDown || now[i] > told[i] + hysteresisUp) return true;
  }
  return false;
}

Span SpanOf(ValueKind kind, const ItemBounds& bounds) {
  const KindRange& range = RangeOf(kind);
  const bool onlyBelowZero = bounds.high && *bounds.high <= 0;
  const double low = bounds.low.value_or(onlyBelowZero ? *bounds.high - range.usualHigh : 0);
  const double high = bounds.high.value_or(bounds.low.value_or(0) + range.usualHigh);
  Span span{std::clamp(low, range.low, range.high), std::clamp(high, range.low, range.high)};
  if (range.whole) span = {std::ceil(span.low), std::floor(span.high)};
  return span.low <= span.high ? span : Span{span.high, span.high};
}

}  // namespace tavrin
