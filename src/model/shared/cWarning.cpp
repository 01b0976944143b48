#include "model/shared/cWarning.h"

#include <array>

namespace tavrin {

std::string_view cWarning::szType() const {
  static constexpr std::array<std::string_view, 4> kWords{"OPC", "Network", "Device", "Tag"};
  const auto index = static_cast<std::size_t>(nType_);
  return nType_ >= 0 && index < kWords.size() ? kWords[index] : std::string_view{};
}

}  // namespace tavrin
