#pragma once

#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "online/TestCommand.h"
#include "online/opc/OPCDataControl.h"

namespace tavrin {

class TestDevice;
class cTag;

/// The talk of the test run with the server: which items it has subscribed to, what it writes to them, what comes back.
class TestItems {
 public:
  /// Both outlive this object.
  TestItems(OPCDataControl& control, TestDevice& device) : control_(control), device_(device) {}

  /// Connects anew, so that the items for the talk with the partner are there whatever was subscribed to before.
  /// @throws RuntimeError 5 when the server cannot be reached
  void CreateCommandItems();
  /// Writes the number of the command to the item of the partner. @throws RuntimeError 5 when that fails
  void Command(TestCommand command);
  /// Subscribes to every tag of the device and to nothing else. @throws as CreateCommandItems
  void Subscribe();
  /// Writes the set value of a tag to its item; a text with "|" element by element into the array that the item holds.
  /// A tag without one gets back what it has, and that the server refuses a read-only tag is expected.
  /// @throws RuntimeError 5 for an item that is not there or not writable,
  ///         13 for a set value that is no number where the item holds numbers
  void WriteSetValue(const cTag& tag);

  /// Takes what the server tells into the tags. Items that are no tag of the device are passed over.
  void Take(const std::vector<OPCItem*>& changed);

  /// Keeps the names of changed items for later. Ending the connection forgets them.
  void Hold(const std::vector<OPCItem*>& changed);
  /// The items held since the last call, in the order in which they first changed.
  [[nodiscard]] std::vector<OPCItem*> Held();

 private:
  void Disconnect();
  [[nodiscard]] OPCItem& ItemOf(std::string_view tag);
  void AddItem(std::string_view tag);

  OPCDataControl& control_;
  TestDevice& device_;
  std::vector<std::string> held_;
  std::unordered_set<std::string> isHeld_;
};

}  // namespace tavrin
