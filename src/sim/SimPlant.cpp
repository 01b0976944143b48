#include "sim/SimPlant.h"

#include <utility>

namespace tavrin {

std::unique_ptr<SimDevice> SimPlant::TakeDevice(const std::string& name) {
  for (auto& device : devices_) {
    if (device && device->Name() == name) return std::move(device);
  }
  return nullptr;
}

void SimPlant::RenewItems(SimDevice& device, std::vector<ItemDefinition> definitions, Moment now,
                          PlantChanges& changes) {
  SimDevice::Items old = device.TakeItems();
  std::unordered_map<std::string_view, std::unique_ptr<SimItem>*> oldOfTag;
  for (auto& item : old) oldOfTag.emplace(item->Definition().tag, &item);

  SimDevice::Items items;
  items.reserve(definitions.size());
  for (ItemDefinition& definition : definitions) {
    const auto found = oldOfTag.find(definition.tag);
    if (found != oldOfTag.end() && (*found->second)->Definition() == definition) {
      items.push_back(std::move(*found->second));
      continue;
    }
    items.push_back(std::make_unique<SimItem>(std::move(definition), device));
    changes.addedItems.push_back(items.back().get());
  }
  for (const auto& item : old) {
    if (item) changes.removedItems.push_back(item->Name());
  }
  device.GiveItems(std::move(items), now);
}

PlantChanges SimPlant::Renew(PlantDefinition definition, Moment now) {
  PlantChanges changes;
  Devices devices;
  for (DeviceDefinition& wanted : definition.devices) {
    std::unique_ptr<SimDevice> device = TakeDevice(wanted.name);
    if (!device) {
      device = std::make_unique<SimDevice>(wanted.name, interval_, now);
      changes.addedDevices.push_back(device.get());
    }
    device->Connected(wanted.connected, now);
    RenewItems(*device, std::move(wanted.items), now, changes);
    devices.push_back(std::move(device));
  }
  for (const auto& gone : devices_) {
    if (!gone) continue;
    for (const auto& item : gone->ItemList()) changes.removedItems.push_back(item->Name());
    changes.removedDevices.push_back(gone->Name());
  }
  devices_ = std::move(devices);
  caseSensitive_ = definition.caseSensitive;
  Index();
  return changes;
}

void SimPlant::Index() {
  items_.clear();
  for (const auto& device : devices_) {
    for (const auto& item : device->ItemList()) items_.emplace(NameKey(item->Name(), caseSensitive_), item.get());
  }
}

SimItem* SimPlant::Find(std::string_view name) const {
  const auto found = items_.find(NameKey(name, caseSensitive_));
  return found == items_.end() ? nullptr : found->second;
}

}  // namespace tavrin
