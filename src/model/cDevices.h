#pragma once

#include <cstdint>
#include <string_view>

#include "model/NumberedCollection.h"
#include "model/cDevice.h"

namespace tavrin {

/// The devices of a network, in the order of their sections in its file.
class cDevices : public NumberedCollection<cDevice> {
 public:
  cDevices() : NumberedCollection({"cDevices.AddItem : ", "cDevices.GenerateNewKey : "}) {}

  /// By position counted from 1 or by key "#" and number; nullptr for an unknown one.
  [[nodiscard]] cDevice* Device(std::int32_t position) const { return At(position); }
  [[nodiscard]] cDevice* Device(std::string_view key) const { return At(key); }
};

}  // namespace tavrin
