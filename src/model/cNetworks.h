#pragma once

#include <cstdint>
#include <string_view>

#include "model/NumberedCollection.h"
#include "model/cNetwork.h"

namespace tavrin {

/// The networks of a project, in the order in which the project file names them.
class cNetworks : public NumberedCollection<cNetwork> {
 public:
  cNetworks() : NumberedCollection({"cNetworks.AddItem : ", "cNetworks.GenerateNewKey : "}) {}

  /// By position counted from 1 or by key "#" and number; nullptr for an unknown one.
  [[nodiscard]] cNetwork* Network(std::int32_t position) const { return At(position); }
  [[nodiscard]] cNetwork* Network(std::string_view key) const { return At(key); }
};

}  // namespace tavrin
