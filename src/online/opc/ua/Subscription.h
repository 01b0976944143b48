#pragma once

#include <cstddef>
#include <string>
#include <unordered_map>
#include <vector>

#include <open62541/client_subscriptions.h>

#include "online/opc/Delivery.h"
#include "online/opc/ua/Client.h"
#include "online/opc/ua/Values.h"

namespace tavrin::ua {

/// The items of a connection as the server tells of them, from the start of the subscription to the loss of the
/// connection. Used on the thread of its client, and outlives it.
class Subscription {
 public:
  Subscription(Client& client, const NodePattern& nodes, const std::vector<std::string>& itemIDs);

  /// Asks for the subscription and, as soon as it is there, for the items.
  void Begin();

  /// What the server has told since the last call.
  [[nodiscard]] std::vector<Delivery::Told> TakeTold();

  /// What the node of an item takes, as far as its values have shown it. Null: nothing known.
  [[nodiscard]] const NodeType* TypeOf(const std::string& itemID) const;

 private:
  struct Item {
    Subscription* owner;
    std::size_t number;
    std::string nodeText;
    NodeType type;
  };

  static Subscription& Of(void* context) { return *static_cast<Subscription*>(context); }
  /// How many items are asked for at once now.
  [[nodiscard]] std::size_t NextCount() const;
  void TakeSubscription(const UA_CreateSubscriptionResponse& response);
  void AskForItems();
  void TakeItems(const UA_CreateMonitoredItemsResponse& response);
  void TakeValue(Item& item, const UA_DataValue& value);

  Client& client_;
  const std::uint16_t nameSpace_;
  std::vector<Item> items_;  ///< never changes its length: the library keeps pointers
  std::unordered_map<std::string, std::size_t> byName_;
  std::vector<Delivery::Told> told_;
  UA_UInt32 subscription_ = 0;
  std::size_t asked_ = 0;  ///< number of the first item that has not been asked for
  std::size_t batch_;      ///< items asked for at once
};

}  // namespace tavrin::ua
