#pragma once

#include <cstdint>
#include <span>

#include "model/sheets/SheetRow.h"

namespace tavrin {

class cDevice;

/// The rows of the sheet that belongs to a type of devices; none for a number outside 0 to 4. Name and type have none,
/// since the name stands in the tree, nor has the PLC type of MPI and ISO devices, which cannot be chosen.
[[nodiscard]] std::span<const SheetRow<cDevice>> DeviceSheet(std::int32_t nDeviceType);

}  // namespace tavrin
