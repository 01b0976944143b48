#pragma once

#include "sim/UaServer.h"

namespace tavrin {

/// True when another program listens at the place. The library of the server lets two of them share a port, so that it
/// can be taken again right after an end; which of the two a client would reach is chance.
[[nodiscard]] bool IsTaken(const ListenPlace& place);

}  // namespace tavrin
