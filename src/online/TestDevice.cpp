#include "online/TestDevice.h"

#include <fmt/format.h>

#include "model/cDevice.h"
#include "model/shared/AtExit.h"
#include "platform/RuntimeError.h"
#include "platform/controls/Grid.h"

namespace tavrin {

void TestDevice::Take(cDevice& device) {
  device_ = &device;
  name_ = device.szDeviceName();
  tags_.clear();
  names_.Clear();
  fold_ = FoldOfKeys();
  for (cTag& tag : device.Tags()) {
    names_.Insert(HashName(fold_, tag.szTag()), static_cast<std::uint32_t>(tags_.size()));
    tags_.push_back(&tag);
  }
}

bool TestDevice::QualityOK() const {
  if (device_ == nullptr) throw RuntimeError(ErrorNumber::NoObject);
  return device_->Tags().QualityOK();
}

cTag* TestDevice::Tag(std::string_view name) const {
  const std::uint32_t position = names_.Find(
      HashName(fold_, name), [&](std::uint32_t place) { return SameName(fold_, tags_[place]->szTag(), name); });
  return position == NameIndex::kNowhere ? nullptr : tags_[position];
}

void TestDevice::ClearQuality() const {
  for (cTag* const tag : tags_) tag->nQuality(0);
}

void TestDevice::Show(Grid& grid) const {
  grid.Rows(1);
  const AtExit redraw([&grid] { grid.Redraw(true); });
  grid.Redraw(false);
  for (const cTag* const tag : tags_) {
    grid.AddItem(fmt::format("{0}\t{0}\t{1}\t{2}\t{3}", tag->szTag(), tag->szTest(), tag->szTest2(), tag->nQuality()));
  }
}

}  // namespace tavrin
