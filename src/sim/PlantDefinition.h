#pragma once

#include <string>
#include <vector>

#include "sim/ItemBounds.h"

namespace tavrin {

class cOPC;

/// What an item is for in a test run: the reserved tags of a device that has COMMAND.
enum class ItemRole : std::uint8_t { Plain, Command, Result, ResultArray };

/// What a project says of one item. Texts are in the code page.
struct ItemDefinition {
  std::string tag;      ///< as it is published
  std::string comment;  ///< of the tag
  std::string test;     ///< test value
  ItemType type;
  ItemBounds bounds;
  bool writable = false;
  ItemRole role = ItemRole::Plain;

  friend bool operator==(const ItemDefinition&, const ItemDefinition&) = default;
};

struct DeviceDefinition {
  std::string name;
  bool connected = false;  ///< values move and are good
  std::vector<ItemDefinition> items;
};

/// What a project publishes, in its order.
struct PlantDefinition {
  bool caseSensitive = false;
  std::vector<DeviceDefinition> devices;
  std::vector<std::string> dropped;  ///< names of devices and items that would be there twice, and of nameless items
};

/// What the server makes of the project: item names are unique, in any case unless the project says that case counts.
/// @param allGood devices that are not simulated count as connected too
[[nodiscard]] PlantDefinition DefinePlant(const cOPC& project, bool allGood);

/// The key under which an item or a device is one of its kind.
[[nodiscard]] std::string NameKey(std::string_view name, bool caseSensitive);

}  // namespace tavrin
