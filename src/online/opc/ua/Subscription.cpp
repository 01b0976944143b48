#include "online/opc/ua/Subscription.h"

#include <algorithm>
#include <utility>

namespace tavrin::ua {

namespace {

constexpr double kPublishing = 100;  // ms
constexpr double kSampling = 100;
constexpr std::size_t kBatch = 500;

/// The server says at least once a second that it is there.
constexpr UA_UInt32 kKeepAlive = 10;

/// A server that has lost its client forgets the subscription after this many silent intervals.
constexpr UA_UInt32 kLifetime = 600;

}  // namespace

Subscription::Subscription(Client& client, const NodePattern& nodes, const std::vector<std::string>& itemIDs)
    : client_(client), nameSpace_(nodes.nameSpace), batch_(kBatch) {
  items_.reserve(itemIDs.size());
  for (const std::string& itemID : itemIDs) {
    byName_.emplace(itemID, items_.size());
    items_.push_back({this, items_.size(), nodes.TextOf(itemID), {}});
  }
}

void Subscription::Begin() {
  UA_CreateSubscriptionRequest request = UA_CreateSubscriptionRequest_default();
  request.requestedPublishingInterval = kPublishing;
  request.requestedMaxKeepAliveCount = kKeepAlive;
  request.requestedLifetimeCount = kLifetime;
  const auto gone = [](UA_Client*, UA_UInt32, void* context) { Of(context).client_.GiveUp(); };
  const auto changed = [](UA_Client*, UA_UInt32, void* context, UA_StatusChangeNotification*) {
    Of(context).client_.GiveUp();
  };
  const auto made = [](UA_Client*, void* context, UA_UInt32, void* response) {
    Subscription& self = Of(context);
    self.client_.CalledBack([&] { self.TakeSubscription(*static_cast<UA_CreateSubscriptionResponse*>(response)); });
  };
  const UA_StatusCode status =
      UA_Client_Subscriptions_create_async(client_.Get(), request, this, changed, gone, made, this, nullptr);
  if (status != UA_STATUSCODE_GOOD) client_.GiveUp();
}

std::vector<Delivery::Told> Subscription::TakeTold() { return std::exchange(told_, {}); }

const NodeType* Subscription::TypeOf(const std::string& itemID) const {
  const auto found = byName_.find(itemID);
  if (found == byName_.end()) return nullptr;
  const NodeType& type = items_[found->second].type;
  return type.type == nullptr ? nullptr : &type;
}

void Subscription::TakeSubscription(const UA_CreateSubscriptionResponse& response) {
  if (response.responseHeader.serviceResult != UA_STATUSCODE_GOOD) return client_.GiveUp();
  subscription_ = response.subscriptionId;
  AskForItems();
}

std::size_t Subscription::NextCount() const { return std::min(batch_, items_.size() - asked_); }

void Subscription::AskForItems() {
  const std::size_t count = NextCount();
  if (count == 0) return;
  std::vector<UA_MonitoredItemCreateRequest> wanted;
  std::vector<void*> contexts;
  for (std::size_t i = asked_; i < asked_ + count; ++i) {
    const UA_NodeId node{nameSpace_, UA_NODEIDTYPE_STRING, {.string = View(items_[i].nodeText)}};
    wanted.push_back(UA_MonitoredItemCreateRequest_default(node));
    wanted.back().requestedParameters.samplingInterval = kSampling;
    contexts.push_back(&items_[i]);
  }
  const auto take = [](UA_Client*, UA_UInt32, void*, UA_UInt32, void* context, UA_DataValue* value) {
    auto* item = static_cast<Item*>(context);
    item->owner->client_.CalledBack([&] { item->owner->TakeValue(*item, *value); });
  };
  std::vector<UA_Client_DataChangeNotificationCallback> callbacks(count, take);
  std::vector<UA_Client_DeleteMonitoredItemCallback> ends(count, nullptr);

  UA_CreateMonitoredItemsRequest request;
  UA_CreateMonitoredItemsRequest_init(&request);
  request.subscriptionId = subscription_;
  request.timestampsToReturn = UA_TIMESTAMPSTORETURN_BOTH;
  request.itemsToCreate = wanted.data();
  request.itemsToCreateSize = count;
  const auto made = [](UA_Client*, void* context, UA_UInt32, void* response) {
    Subscription& self = Of(context);
    self.client_.CalledBack([&] { self.TakeItems(*static_cast<UA_CreateMonitoredItemsResponse*>(response)); });
  };
  const UA_StatusCode status = UA_Client_MonitoredItems_createDataChanges_async(
      client_.Get(), request, contexts.data(), callbacks.data(), ends.data(), made, this, nullptr);
  if (status != UA_STATUSCODE_GOOD) client_.GiveUp();
}

void Subscription::TakeItems(const UA_CreateMonitoredItemsResponse& response) {
  const UA_StatusCode status = response.responseHeader.serviceResult;
  if (status == UA_STATUSCODE_BADTOOMANYOPERATIONS && batch_ > 1) {
    batch_ = batch_ / 2;
    return AskForItems();
  }
  // A number of results that nobody has asked for belongs to no items.
  if (status != UA_STATUSCODE_GOOD || response.resultsSize != NextCount()) return client_.GiveUp();
  for (std::size_t i = 0; i < response.resultsSize; ++i) {
    const UA_StatusCode result = response.results[i].statusCode;
    if (result != UA_STATUSCODE_GOOD) told_.push_back({asked_ + i, {Variant(), QualityOf(result), UtcNow()}});
  }
  asked_ += response.resultsSize;
  AskForItems();
}

void Subscription::TakeValue(Item& item, const UA_DataValue& value) {
  if (value.hasValue && value.value.type != nullptr) {
    const bool scalar = UA_Variant_isScalar(&value.value);
    item.type = {value.value.type, scalar ? NodeType::Shape::Scalar : NodeType::Shape::Array};
  }
  told_.push_back({item.number, StateOf(value)});
}

}  // namespace tavrin::ua
