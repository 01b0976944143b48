#pragma once

#include <cstdint>

#include <open62541/server.h>

#include "sim/SimPlant.h"

namespace tavrin {

/// Name spaces of the server: its own, of the devices' folders; that of the items.
inline constexpr const char* kServerUri = "urn:tavrin:sim";
inline constexpr const char* kItemsUri = "urn:tavrin:items";
inline constexpr std::uint16_t kFolderSpace = 1;
inline constexpr std::uint16_t kItemSpace = 2;

/// Removes and adds the nodes of devices and items.
/// @return number of nodes that the library has not taken
[[nodiscard]] std::size_t PublishNodes(UA_Server& server, const PlantChanges& changes);

}  // namespace tavrin
