#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "sim/SimDevice.h"

namespace tavrin {

/// What another project has changed.
struct PlantChanges {
  std::vector<std::string> removedItems;    ///< their names
  std::vector<std::string> removedDevices;  ///< their names, after their items have gone
  std::vector<SimDevice*> addedDevices;
  std::vector<SimItem*> addedItems;  ///< also those of devices that were there
};

/// All that the simulated server publishes.
class SimPlant {
 public:
  /// @param interval milliseconds between two steps of a moving value, at least 1
  explicit SimPlant(Moment interval) : interval_(interval) {}

  /// Becomes what the definition says. Items that it does not change keep their values; a changed one is told as
  /// removed and as added.
  PlantChanges Renew(PlantDefinition definition, Moment now);

  /// The item of a name, in any case unless the project says that case counts; nullptr for an unknown one.
  [[nodiscard]] SimItem* Find(std::string_view name) const;
  [[nodiscard]] std::size_t ItemCount() const { return items_.size(); }

 private:
  using Devices = std::vector<std::unique_ptr<SimDevice>>;

  [[nodiscard]] std::unique_ptr<SimDevice> TakeDevice(const std::string& name);
  void RenewItems(SimDevice& device, std::vector<ItemDefinition> definitions, Moment now, PlantChanges& changes);
  void Index();

  Moment interval_;
  bool caseSensitive_ = false;
  Devices devices_;
  std::unordered_map<std::string, SimItem*> items_;
};

}  // namespace tavrin
