#pragma once

#include "platform/RuntimeError.h"

namespace tavrin {

/// The number of the error that is being handled; to be called in a `catch (...)`. An exception that has no number of
/// its own is 7 when memory has run out, else the internal error.
[[nodiscard]] ErrorNumber NumberOfErrorInFlight();

}  // namespace tavrin
