#include "sim/SimItem.h"

#include <algorithm>
#include <utility>

#include "sim/SimDevice.h"

namespace tavrin {

namespace {

/// The same in every run, and another one for nearly every item (FNV-1a).
std::uint32_t PhaseOf(std::string_view name) {
  std::uint32_t hash = 2166136261U;
  for (const char c : name) hash = (hash ^ static_cast<unsigned char>(c)) * 16777619U;
  return hash % 100;
}

}  // namespace

SimItem::SimItem(ItemDefinition definition, SimDevice& device)
    : definition_(std::move(definition)),
      device_(&device),
      moving_(definition_.type, definition_.bounds, PhaseOf(definition_.tag)) {}

std::string SimItem::Name() const { return device_->Name() + "/" + definition_.tag; }

std::size_t SimItem::Length() const { return std::max<std::size_t>(1, definition_.type.count); }

Reading SimItem::Now(Moment now) {
  if (held_) return {true, held_->values, held_->since};
  const Moment interval = device_->Interval();
  const Moment tick = now / interval;
  Values values = moving_.At(tick);
  if (!definition_.bounds.HasHysteresis()) return {true, std::move(values), tick * interval};
  if (!told_ || definition_.bounds.IsNews(told_->values, values)) told_ = Told{std::move(values), tick * interval};
  return {true, told_->values, told_->since};
}

void SimItem::Hold(Values values, Moment since) { held_ = Held{std::move(values), since, false}; }

void SimItem::HoldStart(Moment since) { held_ = Held{moving_.Start(), since, true}; }

void SimItem::Release() {
  if (held_ && held_->atStart) held_.reset();
}

}  // namespace tavrin
