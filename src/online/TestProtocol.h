#pragma once

#include <cstdint>
#include <string_view>

#include "online/TestCommand.h"

namespace tavrin {

/// The protocol of the test runs: LOG/TESTPROT.TXT of the program's directory, a line a step. Nothing ever shortens it.
/// A failure is told by a box and the line is lost.

/// Adds the line of a step of the device that is selected in the tree.
void SaveRunHeader(std::int32_t run, TestCommand command);

/// Adds the line of a result that the partner has given. @return false when it is lost
bool SaveResultArray(std::int32_t run, std::string_view name, std::string_view value);

}  // namespace tavrin
