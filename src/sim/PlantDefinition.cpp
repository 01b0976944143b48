#include "sim/PlantDefinition.h"

#include <algorithm>
#include <array>
#include <unordered_set>

#include "model/cOPC.h"
#include "model/shared/modMain.h"
#include "platform/CodePage.h"
#include "sim/TagType.h"

namespace tavrin {

namespace {

using TextOf = const std::string& (cDevice::*)() const;

/// Of each device type.
constexpr std::array<TextOf, 5> kSimulation{&cDevice::szMPI_Simulation, &cDevice::szH1_Simulation,
                                            &cDevice::szTCPISO_Simulation, &cDevice::szTCPRW_Simulation,
                                            &cDevice::szTCPIPK_Simulation};

struct ReservedTag {
  std::string_view tag;
  ItemRole role;
};

constexpr std::array kReservedTags{ReservedTag{"COMMAND", ItemRole::Command}, ReservedTag{"RESULT", ItemRole::Result},
                                   ReservedTag{"RESULTARRAY", ItemRole::ResultArray}};

bool IsSimulated(const cDevice& device) {
  const auto type = static_cast<std::size_t>(device.nDeviceType());
  if (type >= kSimulation.size()) return false;
  return EqualIgnoringCase(modMain::TrimBlanks((device.*kSimulation[type])()), "ON");
}

ItemDefinition DefineItem(const cTag& tag, bool upperCase) {
  ItemDefinition item;
  item.tag = upperCase ? UpperCase(tag.szTag()) : std::string(tag.szTag());
  item.comment = tag.szComment();
  item.test = tag.szTest();
  item.type = TypeOf(tag);
  item.bounds = ItemBounds::Of(tag);
  item.writable = tag.szRW() == "RW";
  return item;
}

ItemRole RoleOf(std::string_view tag, bool caseSensitive) {
  for (const ReservedTag& reserved : kReservedTags) {
    if (NameKey(tag, caseSensitive) == reserved.tag) return reserved.role;
  }
  return ItemRole::Plain;
}

/// The test run writes to every tag of the device, so the partner's results take a write too, without an effect.
void MakeResult(ItemDefinition& item, std::size_t plainItems) {
  item.writable = true;
  item.bounds = {};
  if (item.role == ItemRole::ResultArray)
    item.type.count = static_cast<std::uint32_t>(std::max<std::size_t>(1, plainItems));
}

void AssignRoles(std::vector<ItemDefinition>& items, bool caseSensitive) {
  for (ItemDefinition& item : items) item.role = RoleOf(item.tag, caseSensitive);
  const auto has = [&items](ItemRole role) {
    return std::count_if(items.begin(), items.end(), [role](const auto& item) { return item.role == role; });
  };
  const bool hasPartner = has(ItemRole::Command) > 0;
  const auto plainItems = static_cast<std::size_t>(has(ItemRole::Plain));
  for (ItemDefinition& item : items) {
    if (!hasPartner) item.role = ItemRole::Plain;
    if (item.role == ItemRole::Result || item.role == ItemRole::ResultArray) MakeResult(item, plainItems);
  }
}

/// Makes the definition of a plant, one device after the other.
class Definer {
 public:
  Definer(const cOPC& project, bool allGood) : upperCase_(project.nSaveTagsUppercase() == 1), allGood_(allGood) {
    plant_.caseSensitive = project.nCaseSensitive() == 1;
  }

  void Add(const cDevice& device) {
    if (!IsNew(devices_, device.szDeviceName())) return;
    DeviceDefinition definition{device.szDeviceName(), allGood_ || IsSimulated(device), {}};
    definition.items.reserve(static_cast<std::size_t>(device.Tags().Count()));
    for (const cTag& tag : device.Tags()) AddItem(definition, tag);
    AssignRoles(definition.items, plant_.caseSensitive);
    plant_.devices.push_back(std::move(definition));
  }

  [[nodiscard]] PlantDefinition Take() { return std::move(plant_); }

 private:
  using Names = std::unordered_set<std::string>;

  [[nodiscard]] bool IsNew(Names& names, const std::string& name) {
    const bool isNew = names.insert(NameKey(name, plant_.caseSensitive)).second;
    if (!isNew) plant_.dropped.push_back(name);
    return isNew;
  }

  void AddItem(DeviceDefinition& device, const cTag& tag) {
    ItemDefinition item = DefineItem(tag, upperCase_);
    const std::string name = device.name + "/" + item.tag;
    if (item.tag.empty()) {
      plant_.dropped.push_back(name);
    } else if (IsNew(items_, name)) {
      device.items.push_back(std::move(item));
    }
  }

  PlantDefinition plant_;
  Names devices_;
  Names items_;
  bool upperCase_;
  bool allGood_;
};

}  // namespace

PlantDefinition DefinePlant(const cOPC& project, bool allGood) {
  Definer definer(project, allGood);
  for (const cNetwork& network : project.Networks()) {
    for (const cDevice& device : network.Devices()) definer.Add(device);
  }
  return definer.Take();
}

std::string NameKey(std::string_view name, bool caseSensitive) {
  return caseSensitive ? std::string(name) : UpperCase(name);
}

}  // namespace tavrin
