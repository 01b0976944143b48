#pragma once

#include <span>

#include "model/sheets/SheetRow.h"

namespace tavrin {

class cOPC;

/// The rows of vsgOPC.
[[nodiscard]] std::span<const SheetRow<cOPC>> ProjectSheet();

}  // namespace tavrin
