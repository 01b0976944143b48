#include "sim/SimDevice.h"

#include <utility>

namespace tavrin {

void SimDevice::Connected(bool value, Moment now) {
  if (value != connected_) since_ = now;
  connected_ = value;
}

void SimDevice::GiveItems(Items items, Moment now) {
  items_ = std::move(items);
  partner_.Watch(items_, now);
}

bool SimDevice::Answers(const SimItem& item) const {
  return connected_ || partner_.IsTesting() || !item.Is(ItemRole::Plain);
}

Reading SimDevice::Read(SimItem& item, Moment now) const {
  return Answers(item) ? item.Now(now) : Reading{false, {}, since_};
}

Taken SimDevice::Write(SimItem& item, Values values, Moment now) {
  if (!item.Definition().writable) return Taken::NotWritable;
  if (!Answers(item)) return Taken::NotConnected;
  if (values.size() != item.Length()) return Taken::WrongLength;
  if (!item.Definition().bounds.Allow(values)) return Taken::OutOfBounds;
  if (item.Is(ItemRole::Result) || item.Is(ItemRole::ResultArray)) return Taken::Yes;
  const double first = values.front();
  item.Hold(std::move(values), now);
  if (item.Is(ItemRole::Command)) partner_.Command(first, now);
  return Taken::Yes;
}

}  // namespace tavrin
