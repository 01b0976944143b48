#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "online/opc/Variant.h"
#include "platform/DateTime.h"

namespace tavrin {

/// The items of the demonstration server and how they move.
class DemoItems {
 public:
  DemoItems();

  /// Nothing for an unknown name; names are exact.
  [[nodiscard]] std::optional<std::size_t> Find(std::string_view name) const;
  [[nodiscard]] const Variant& Value(std::size_t item) const { return values_[item]; }
  /// Moves by itself.
  [[nodiscard]] bool Moves(std::size_t item) const;

  /// All moving items go on by one step.
  void Step(UtcTime now);

  /// The value becomes one of the item's type. Whatever is written to the command of the device "Demo" shows in that
  /// device's results: the command itself, and an array of the command and the number of commands so far.
  /// @throws RuntimeError 70 for an item that only moves by itself, 13 or 6 for a value that the type cannot hold
  void Write(std::size_t item, const Variant& value);

 private:
  std::vector<Variant> values_;  ///< in the order of the table
  std::uint64_t steps_ = 0;
  std::uint64_t commands_ = 0;
};

}  // namespace tavrin
