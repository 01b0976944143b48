#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "online/opc/OPCDataControl.h"

namespace tavrin {

/// Prints what a server tells of items, one line a change, each delivery at once; remembers which items are good.
class ItemPrinter {
 public:
  explicit ItemPrinter(bool json) : json_(json) {}

  void Print(const std::vector<OPCItem*>& changed);
  /// How many items were told to be good last.
  [[nodiscard]] std::size_t GoodItems() const { return good_; }

 private:
  void Note(const OPCItem& item);

  bool json_;
  std::string lines_;
  std::unordered_map<std::string, bool> isGood_;
  std::size_t good_ = 0;
};

}  // namespace tavrin
