#include "online/opc/ua/Writer.h"

#include <algorithm>
#include <array>
#include <utility>

#include <open62541/client_highlevel_async.h>

#include "platform/RuntimeError.h"

namespace tavrin::ua {

namespace {

constexpr std::array kTypeAttributes{UA_ATTRIBUTEID_DATATYPE, UA_ATTRIBUTEID_VALUERANK};

/// Types that only say of which kind the value is, such as any number, have no form of their own: null.
const UA_DataType* ReadType(const UA_DataValue& result) {
  if (!result.hasValue || !UA_Variant_hasScalarType(&result.value, &UA_TYPES[UA_TYPES_NODEID])) return nullptr;
  const UA_DataType* type = UA_findDataType(static_cast<const UA_NodeId*>(result.value.data));
  return type == nullptr || type->typeKind == UA_DATATYPEKIND_VARIANT ? nullptr : type;
}

NodeType::Shape ReadShape(const UA_DataValue& result) {
  if (!result.hasValue || !UA_Variant_hasScalarType(&result.value, &UA_TYPES[UA_TYPES_INT32])) {
    return NodeType::Shape::Any;
  }
  const UA_Int32 rank = *static_cast<const UA_Int32*>(result.value.data);
  if (rank == UA_VALUERANK_SCALAR) return NodeType::Shape::Scalar;
  return rank >= UA_VALUERANK_ONE_OR_MORE_DIMENSIONS ? NodeType::Shape::Array : NodeType::Shape::Any;
}

}  // namespace

void Writer::Send(std::shared_ptr<WriteJob> job) {
  UnderWay& work = under_.emplace_back();
  work.owner = this;
  work.job = std::move(job);
  for (const ItemWrite& write : work.job->writes) {
    const NodeType* type = subscription_.TypeOf(write.itemID);
    if (type == nullptr) work.unknown.push_back(work.types.size());
    work.types.push_back(type == nullptr ? NodeType() : *type);
    work.nodeTexts.push_back(nodes_.TextOf(write.itemID));
  }
  if (work.unknown.empty()) {
    SendValues(work);
  } else {
    AskForTypes(work);
  }
}

void Writer::AskForTypes(UnderWay& work) {
  std::vector<UA_ReadValueId> wanted;
  for (const std::size_t number : work.unknown) {
    for (const UA_AttributeId attribute : kTypeAttributes) {
      UA_ReadValueId value;
      UA_ReadValueId_init(&value);
      value.nodeId = Node(work, number);
      value.attributeId = static_cast<UA_UInt32>(attribute);
      wanted.push_back(value);
    }
  }
  UA_ReadRequest request;
  UA_ReadRequest_init(&request);
  request.nodesToRead = wanted.data();
  request.nodesToReadSize = wanted.size();
  const auto take = [](UA_Client*, void* context, UA_UInt32, UA_ReadResponse* response) {
    auto* asked = static_cast<UnderWay*>(context);
    Client& client = asked->owner->client_;
    client.CalledBack([&] { asked->owner->TakeTypes(*asked, *response); });
  };
  const UA_StatusCode status = UA_Client_sendAsyncReadRequest(client_.Get(), &request, take, &work, nullptr);
  if (status != UA_STATUSCODE_GOOD) End(work, false);
}

void Writer::TakeTypes(UnderWay& work, const UA_ReadResponse& response) {
  const bool complete = response.resultsSize == work.unknown.size() * kTypeAttributes.size();
  if (response.responseHeader.serviceResult != UA_STATUSCODE_GOOD || !complete) return End(work, false);
  for (std::size_t i = 0; i < work.unknown.size(); ++i) {
    const UA_DataValue* results = response.results + i * kTypeAttributes.size();
    work.types[work.unknown[i]] = {ReadType(results[0]), ReadShape(results[1])};
  }
  SendValues(work);
}

void Writer::SendValues(UnderWay& work) {
  std::vector<UA_WriteValue> sent;
  std::vector<OwnedVariant> values;
  for (std::size_t i = 0; i < work.types.size(); ++i) {
    try {
      values.push_back(MakeValue(work.job->writes[i].value, work.types[i]));
    } catch (const RuntimeError&) {
      work.refused = true;
      continue;
    }
    UA_WriteValue write;
    UA_WriteValue_init(&write);
    write.nodeId = Node(work, i);
    write.attributeId = UA_ATTRIBUTEID_VALUE;
    write.value.hasValue = true;
    write.value.value = values.back().Get();
    sent.push_back(write);
  }
  if (sent.empty()) return End(work, false);

  UA_WriteRequest request;
  UA_WriteRequest_init(&request);
  request.nodesToWrite = sent.data();
  request.nodesToWriteSize = sent.size();
  const auto take = [](UA_Client*, void* context, UA_UInt32, UA_WriteResponse* response) {
    auto* asked = static_cast<UnderWay*>(context);
    Client& client = asked->owner->client_;
    client.CalledBack([&] { asked->owner->TakeResults(*asked, *response); });
  };
  const UA_StatusCode status = UA_Client_sendAsyncWriteRequest(client_.Get(), &request, take, &work, nullptr);
  if (status != UA_STATUSCODE_GOOD) End(work, false);
}

void Writer::TakeResults(UnderWay& work, const UA_WriteResponse& response) {
  const bool answered = response.responseHeader.serviceResult == UA_STATUSCODE_GOOD && response.resultsSize > 0;
  const bool allGood = answered && std::all_of(response.results, response.results + response.resultsSize,
                                               [](UA_StatusCode result) { return UA_StatusCode_isGood(result); });
  End(work, allGood && !work.refused);
}

void Writer::End(UnderWay& work, bool taken) {
  work.job->state = taken ? WriteJob::State::Taken : WriteJob::State::Refused;
  delivery_.Wake();
  under_.remove_if([&work](const UnderWay& one) { return &one == &work; });
}

UA_NodeId Writer::Node(const UnderWay& work, std::size_t number) const {
  return {nodes_.nameSpace, UA_NODEIDTYPE_STRING, {.string = View(work.nodeTexts[number])}};
}

}  // namespace tavrin::ua
