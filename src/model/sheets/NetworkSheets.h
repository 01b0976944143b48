#pragma once

#include <cstdint>
#include <span>

#include "model/sheets/SheetRow.h"

namespace tavrin {

class cNetwork;

/// The rows of the sheet that belongs to a type of networks; none for a number outside 0 to 4.
[[nodiscard]] std::span<const SheetRow<cNetwork>> NetworkSheet(std::int32_t nNetworkType);

}  // namespace tavrin
