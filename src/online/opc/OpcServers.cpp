#include "online/opc/OpcServers.h"

namespace tavrin {

std::unique_ptr<OpcServers> MakeOpcServers(Desktop&, ProfileFiles&, const std::string&) { return nullptr; }

}  // namespace tavrin
