#pragma once

#include <optional>
#include <string>

#include "sim/MovingValue.h"
#include "sim/PlantDefinition.h"

namespace tavrin {

class SimDevice;

/// What a client is told of an item.
struct Reading {
  bool good = false;
  Values values;  ///< of a good item
  Moment since = 0;
};

/// One item of the simulated server: a value that moves until something has been written to it.
class SimItem {
 public:
  /// @param device outlives the item
  SimItem(ItemDefinition definition, SimDevice& device);

  /// Device, "/", tag, in the code page.
  [[nodiscard]] std::string Name() const;
  [[nodiscard]] const ItemDefinition& Definition() const { return definition_; }
  [[nodiscard]] SimDevice& Device() const { return *device_; }
  [[nodiscard]] bool Is(ItemRole role) const { return definition_.role == role; }
  /// Elements of the value, 1 for a scalar.
  [[nodiscard]] std::size_t Length() const;

  /// The value at the moment as if the device were connected.
  [[nodiscard]] Reading Now(Moment now);
  /// A value that stays, from the moment on.
  void Hold(Values values, Moment since);
  /// The value that the item starts with, until Release.
  void HoldStart(Moment since);
  /// The value moves again when it stands at its start.
  void Release();

 private:
  struct Held {
    Values values;
    Moment since = 0;
    bool atStart = false;
  };
  struct Told {
    Values values;
    Moment since = 0;
  };

  ItemDefinition definition_;
  SimDevice* device_;
  MovingValue moving_;
  std::optional<Held> held_;
  std::optional<Told> told_;  // of a moving value with a hysteresis
};

}  // namespace tavrin
