#include "sim/MovingValue.h"

#include <algorithm>

namespace tavrin {

namespace {

constexpr std::int64_t kMostSteps = 50;

std::int64_t StepsOf(ValueKind kind, const Span& span) {
  if (span.high <= span.low) return 0;
  if (!RangeOf(kind).whole || span.high - span.low >= kMostSteps) return kMostSteps;
  return static_cast<std::int64_t>(span.high - span.low);
}

}  // namespace

MovingValue::MovingValue(const ItemType& type, const ItemBounds& bounds, std::uint32_t phase)
    : type_(type), span_(SpanOf(type.kind, bounds)), phase_(phase) {}

double MovingValue::ElementAt(std::int64_t tick) const {
  const std::int64_t steps = StepsOf(type_.kind, span_);
  if (steps == 0) return Nearest(type_.kind, span_.low);
  const std::int64_t place = (tick + phase_) % (2 * steps);
  const std::int64_t height = place <= steps ? place : 2 * steps - place;
  const double part = static_cast<double>(height) / static_cast<double>(steps);
  return Nearest(type_.kind, span_.low * (1 - part) + span_.high * part);
}

Values MovingValue::At(std::int64_t tick) const {
  Values values(std::max(1U, type_.count));
  for (double& value : values) value = ElementAt(tick++);
  return values;
}

Values MovingValue::Start() const {
  return Values(std::max(1U, type_.count), Nearest(type_.kind, std::clamp(0.0, span_.low, span_.high)));
}

}  // namespace tavrin
