#include "online/opc/UaServers.h"

namespace tavrin {

std::unique_ptr<UaServers> MakeUaServers(Desktop&) { return nullptr; }

}  // namespace tavrin
