#include "sim/SimClient.h"

#include <array>
#include <chrono>

#include <gtest/gtest.h>
#include <open62541/client_config_default.h>
#include <open62541/client_highlevel.h>
#include <open62541/client_subscriptions.h>

#include "sim/ItemNodes.h"
#include "sim/UaText.h"
#include "sim/UaValues.h"

namespace tavrin {

namespace {

constexpr std::chrono::seconds kPatience{4};
constexpr double kSamplingMilliseconds = 10;

/// The tests print nothing of what the library does.
void LogNothing(void*, UA_LogLevel, UA_LogCategory, const char*, va_list) {}
UA_Logger silent{LogNothing, nullptr, nullptr};

UA_NodeId ItemId(const std::string& name, std::uint16_t space = kItemSpace) {
  UA_NodeId id{};
  id.namespaceIndex = space;
  id.identifierType = UA_NODEIDTYPE_STRING;
  id.identifier.string = Borrow(name);
  return id;
}

std::string NameOf(UA_StatusCode status) { return UA_StatusCode_name(status); }

ItemReply ReplyOf(const UA_DataValue& data) {
  ItemReply reply;
  reply.status = NameOf(data.hasStatus ? data.status : UA_STATUSCODE_GOOD);
  reply.since = data.hasSourceTimestamp ? FromUa(data.sourceTimestamp) : 0;
  if (!data.hasValue || data.value.type == nullptr) return reply;
  reply.type = data.value.type->typeName;
  if (!UA_Variant_isScalar(&data.value)) reply.type += "[]";
  for (std::size_t kind = 0; kind < kValueKinds; ++kind) {
    const auto values = FromUa(static_cast<ValueKind>(kind), data.value);
    if (values) reply.values = *values;
  }
  return reply;
}

UA_Client* NewClient() {
  UA_ClientConfig config{};
  config.logging = &silent;
  UA_ClientConfig_setDefault(&config);
  return UA_Client_newWithConfig(&config);
}

void TakeChange(UA_Client*, UA_UInt32, void*, UA_UInt32, void* context, UA_DataValue* value) {
  static_cast<std::vector<ItemReply>*>(context)->push_back(ReplyOf(*value));
}

}  // namespace

SimClient::SimClient(const std::string& url) : client_(NewClient()) {
  EXPECT_EQ(NameOf(UA_Client_connect(client_, url.c_str())), "Good") << url;
}

bool SimClient::Reaches(const std::string& url) {
  UA_Client* const client = NewClient();
  const bool reached = UA_Client_connect(client, url.c_str()) == UA_STATUSCODE_GOOD;
  UA_Client_delete(client);
  return reached;
}

SimClient::~SimClient() { UA_Client_delete(client_); }

ItemReply SimClient::Read(const std::string& item, const std::string& range) {
  UA_ReadValueId wanted{};
  wanted.nodeId = ItemId(item);
  wanted.attributeId = UA_ATTRIBUTEID_VALUE;
  wanted.indexRange = Borrow(range);
  UA_ReadRequest request{};
  request.nodesToRead = &wanted;
  request.nodesToReadSize = 1;
  request.timestampsToReturn = UA_TIMESTAMPSTORETURN_SOURCE;
  UA_ReadResponse response = UA_Client_Service_read(client_, request);
  ItemReply reply;
  reply.status = NameOf(response.responseHeader.serviceResult);
  if (response.resultsSize == 1) reply = ReplyOf(response.results[0]);
  UA_ReadResponse_clear(&response);
  return reply;
}

std::string SimClient::Write(const std::string& item, ItemType type, const Values& values) {
  UA_Variant variant{};
  EXPECT_EQ(ToUa(type, values, variant), UA_STATUSCODE_GOOD);
  const UA_StatusCode status = UA_Client_writeValueAttribute(client_, ItemId(item), &variant);
  UA_Variant_clear(&variant);
  return NameOf(status);
}

bool SimClient::IsWritable(const std::string& item) {
  UA_Byte level = 0;
  EXPECT_EQ(UA_Client_readAccessLevelAttribute(client_, ItemId(item), &level), UA_STATUSCODE_GOOD) << item;
  return (level & UA_ACCESSLEVELMASK_WRITE) != 0;
}

std::string SimClient::Description(const std::string& item) {
  UA_LocalizedText text{};
  EXPECT_EQ(UA_Client_readDescriptionAttribute(client_, ItemId(item), &text), UA_STATUSCODE_GOOD) << item;
  std::string description(ViewOf(text.text));
  UA_LocalizedText_clear(&text);
  return description;
}

std::vector<FoundNode> SimClient::Browse(const std::string& device) {
  UA_BrowseDescription start{};
  start.nodeId = device.empty() ? UA_NODEID_NUMERIC(0, UA_NS0ID_OBJECTSFOLDER) : ItemId(device, kFolderSpace);
  start.browseDirection = UA_BROWSEDIRECTION_FORWARD;
  start.referenceTypeId = UA_NODEID_NUMERIC(0, UA_NS0ID_HIERARCHICALREFERENCES);
  start.includeSubtypes = true;
  start.resultMask = UA_BROWSERESULTMASK_ALL;
  UA_BrowseRequest request{};
  request.nodesToBrowse = &start;
  request.nodesToBrowseSize = 1;
  UA_BrowseResponse response = UA_Client_Service_browse(client_, request);
  std::vector<FoundNode> found;
  for (std::size_t i = 0; response.resultsSize == 1 && i < response.results[0].referencesSize; ++i) {
    const UA_ReferenceDescription& reference = response.results[0].references[i];
    const UA_NodeId& id = reference.nodeId.nodeId;
    if (id.identifierType != UA_NODEIDTYPE_STRING) continue;  // of the server itself
    found.push_back({std::string(ViewOf(id.identifier.string)), id.namespaceIndex,
                     std::string(ViewOf(reference.displayName.text))});
  }
  UA_BrowseResponse_clear(&response);
  return found;
}

std::string SimClient::Delete(const std::string& item) {
  return NameOf(UA_Client_deleteNode(client_, ItemId(item), true));
}

void SimClient::Subscribe(const std::vector<std::string>& items) {
  UA_CreateSubscriptionRequest request = UA_CreateSubscriptionRequest_default();
  request.requestedPublishingInterval = kSamplingMilliseconds;
  UA_CreateSubscriptionResponse subscription =
      UA_Client_Subscriptions_create(client_, request, nullptr, nullptr, nullptr);
  ASSERT_EQ(NameOf(subscription.responseHeader.serviceResult), "Good");
  for (const std::string& item : items) {
    UA_MonitoredItemCreateRequest watch = UA_MonitoredItemCreateRequest_default(ItemId(item));
    watch.requestedParameters.samplingInterval = kSamplingMilliseconds;
    watch.requestedParameters.queueSize = 100;
    UA_MonitoredItemCreateResult result = UA_Client_MonitoredItems_createDataChange(
        client_, subscription.subscriptionId, UA_TIMESTAMPSTORETURN_BOTH, watch, &told_[item], TakeChange, nullptr);
    EXPECT_EQ(NameOf(result.statusCode), "Good") << item;
    UA_MonitoredItemCreateResult_clear(&result);
  }
  UA_CreateSubscriptionResponse_clear(&subscription);
}

bool SimClient::WaitUntil(const std::function<bool()>& done) {
  const auto end = std::chrono::steady_clock::now() + kPatience;
  while (!done()) {
    if (std::chrono::steady_clock::now() > end) return false;
    UA_Client_run_iterate(client_, 10);
  }
  return true;
}

}  // namespace tavrin
