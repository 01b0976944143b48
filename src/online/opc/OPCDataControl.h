#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "online/opc/OpcServers.h"

namespace tavrin {

/// An item of the collection of an OPC client, with what the server has told of it last.
class OPCItem {
 public:
  explicit OPCItem(std::string itemID) : itemID_(std::move(itemID)) {}

  /// The full name given to AddItem.
  [[nodiscard]] const std::string& ItemID() const { return itemID_; }
  /// Type code of the value, 0x2000 more for an array.
  [[nodiscard]] std::uint16_t ItemDataType() const { return state_.value.TypeCode(); }
  [[nodiscard]] const Variant& ItemValue() const { return state_.value; }
  /// A value that ControlWrite is to send.
  void ItemValue(Variant value);
  [[nodiscard]] std::uint16_t ItemQuality() const { return state_.quality; }
  /// True: ControlWrite sends the value, also one that was not set.
  void ItemWriteFlag(bool value) { write_ = value; }
  /// UTC.
  [[nodiscard]] UtcTime ItemTimeStamp() const { return state_.timeStamp; }

 private:
  friend class OPCDataControl;

  std::string itemID_;
  ItemState state_;
  bool write_ = false;
};

/// The items of an OPC client in the order in which they were added.
class OPCItems {
 public:
  /// @throws RuntimeError 457 for a name that has been added
  OPCItem& AddItem(const std::string& itemID);
  /// @throws RuntimeError 5 for an unknown name
  [[nodiscard]] OPCItem& ItemByName(std::string_view itemID);
  void ClearItems();

 private:
  friend class OPCDataControl;

  std::vector<std::unique_ptr<OPCItem>> items_;
  std::unordered_map<std::string, OPCItem*> byName_;
};

/// The OPC client of a window: names a server, holds items, keeps their values up to date while it is connected.
class OPCDataControl {
 public:
  /// @param servers nullptr where nothing online can be had: connecting is then error 5
  explicit OPCDataControl(OpcServers* servers) : servers_(servers) {}

  /// Selects the server; takes effect with the next ControlConnect.
  void ServerProgID(std::string_view progID) { progID_ = progID; }
  /// Connects and activates the items of the collection. Without effect when connected.
  /// @throws RuntimeError 5 when the server cannot be reached
  void ControlConnect();
  /// Harmless when not connected.
  void ControlDisconnect();
  [[nodiscard]] OPCItems& ControlItems() { return items_; }
  /// Sends the values of the items that were set or flagged since the last call.
  /// @throws RuntimeError 5 when there is no connection or the server has refused a value; what was to be sent is then
  /// forgotten
  void ControlWrite();

  /// The items whose data has changed, on the thread of the window.
  std::function<void(const std::vector<OPCItem*>& changed)> OnDataChanged;

 private:
  void Take(const std::vector<ItemChange>& changes);

  OpcServers* servers_;
  std::string progID_;
  OPCItems items_;
  std::unique_ptr<OpcLink> link_;
};

}  // namespace tavrin
