#include "shell/SheetTable.h"

#include <array>

namespace tavrin {

namespace {

constexpr std::array kFixedRows{
    2,              // the project: its file's name is given
    3, 3, 3, 3, 3,  // networks: type and name
    2, 2, 2, 2, 2,  // devices: name of the tag file
};

}  // namespace

std::span<const int, 11> FixedRowsOfSheets() { return kFixedRows; }

}  // namespace tavrin
