#include "sim/ItemNodes.h"

#include <array>

#include "platform/CodePage.h"
#include "sim/UaText.h"
#include "sim/UaValues.h"

namespace tavrin {

namespace {

/// The clock of what clients are told.
Moment Now() { return FromUa(UA_DateTime_now()); }

SimItem& ItemOf(void* nodeContext) { return *static_cast<SimItem*>(nodeContext); }

UA_StatusCode SetValue(const SimItem& item, const Values& values, const UA_NumericRange* range, UA_DataValue& out) {
  UA_Variant whole{};
  const UA_StatusCode status = ToUa(item.Definition().type, values, whole);
  if (status != UA_STATUSCODE_GOOD) return status;
  out.hasValue = true;
  if (range == nullptr) {
    out.value = whole;
    return UA_STATUSCODE_GOOD;
  }
  const UA_StatusCode cut = UA_Variant_copyRange(&whole, &out.value, *range);
  UA_Variant_clear(&whole);
  if (cut == UA_STATUSCODE_GOOD) return cut;
  out.hasValue = false;
  out.hasStatus = true;
  out.status = cut;
  return UA_STATUSCODE_GOOD;
}

/// While nodes are added, the library looks at their values and takes none that is bad.
bool IsAdding(UA_Server* server) { return UA_Server_getConfig(server)->context != nullptr; }

Reading ReadingFor(UA_Server* server, SimItem& item) {
  return IsAdding(server) ? item.Now(Now()) : item.Device().Read(item, Now());
}

UA_StatusCode ReadItem(UA_Server* server, const UA_NodeId*, void*, const UA_NodeId*, void* nodeContext,
                       UA_Boolean withTime, const UA_NumericRange* range, UA_DataValue* out) {
  SimItem& item = ItemOf(nodeContext);
  const Reading reading = ReadingFor(server, item);
  out->hasSourceTimestamp = withTime;
  out->sourceTimestamp = ToUa(reading.since);
  if (reading.good) return SetValue(item, reading.values, range, *out);
  out->hasStatus = true;
  out->status = UA_STATUSCODE_BADNOTCONNECTED;
  return UA_STATUSCODE_GOOD;
}

/// In the order of Taken.
constexpr std::array<UA_StatusCode, 5> kStatusOf{UA_STATUSCODE_GOOD, UA_STATUSCODE_BADNOTCONNECTED,
                                                 UA_STATUSCODE_BADNOTWRITABLE, UA_STATUSCODE_BADTYPEMISMATCH,
                                                 UA_STATUSCODE_BADOUTOFRANGE};

UA_StatusCode WriteItem(UA_Server*, const UA_NodeId*, void*, const UA_NodeId*, void* nodeContext,
                        const UA_NumericRange* range, const UA_DataValue* data) {
  if (range != nullptr) return UA_STATUSCODE_BADWRITENOTSUPPORTED;
  SimItem& item = ItemOf(nodeContext);
  auto values = FromUa(item.Definition().type.kind, data->value);
  if (!data->hasValue || !values || UA_Variant_isScalar(&data->value) != (item.Definition().type.count == 0)) {
    return UA_STATUSCODE_BADTYPEMISMATCH;
  }
  return kStatusOf[static_cast<std::size_t>(item.Device().Write(item, std::move(*values), Now()))];
}

UA_NodeId IdOf(std::uint16_t space, std::string_view utf8) {
  UA_NodeId id{};
  id.namespaceIndex = space;
  id.identifierType = UA_NODEIDTYPE_STRING;
  id.identifier.string = Borrow(utf8);
  return id;
}

UA_NodeId Standard(UA_UInt32 number) { return UA_NODEID_NUMERIC(0, number); }

bool AddFolder(UA_Server& server, const SimDevice& device) {
  const std::string name = ToUtf8(device.Name());
  UA_ObjectAttributes attributes = UA_ObjectAttributes_default;
  attributes.displayName.text = Borrow(name);
  return UA_STATUSCODE_GOOD == UA_Server_addObjectNode(&server, IdOf(kFolderSpace, name),
                                                       Standard(UA_NS0ID_OBJECTSFOLDER), Standard(UA_NS0ID_ORGANIZES),
                                                       {kFolderSpace, Borrow(name)}, Standard(UA_NS0ID_FOLDERTYPE),
                                                       attributes, nullptr, nullptr);
}

bool AddVariable(UA_Server& server, SimItem& item) {
  const ItemDefinition& definition = item.Definition();
  const std::string tag = ToUtf8(definition.tag);
  const std::string comment = ToUtf8(definition.comment);
  const std::string name = ToUtf8(item.Name());
  const std::string device = ToUtf8(item.Device().Name());
  UA_UInt32 length = definition.type.count;

  UA_VariableAttributes attributes = UA_VariableAttributes_default;
  attributes.displayName.text = Borrow(tag);
  attributes.description.text = Borrow(comment);
  attributes.dataType = UaType(definition.type.kind).typeId;
  attributes.valueRank = length == 0 ? UA_VALUERANK_SCALAR : UA_VALUERANK_ONE_DIMENSION;
  attributes.arrayDimensionsSize = length == 0 ? 0 : 1;
  attributes.arrayDimensions = &length;
  attributes.accessLevel = UA_ACCESSLEVELMASK_READ;
  if (definition.writable) attributes.accessLevel |= UA_ACCESSLEVELMASK_WRITE;
  return UA_STATUSCODE_GOOD ==
         UA_Server_addDataSourceVariableNode(&server, IdOf(kItemSpace, name), IdOf(kFolderSpace, device),
                                             Standard(UA_NS0ID_HASCOMPONENT), {kItemSpace, Borrow(tag)},
                                             Standard(UA_NS0ID_BASEDATAVARIABLETYPE), attributes, {ReadItem, WriteItem},
                                             &item, nullptr);
}

}  // namespace

std::size_t PublishNodes(UA_Server& server, const PlantChanges& changes) {
  const auto remove = [&server](std::uint16_t space, const std::string& name) {
    const std::string utf8 = ToUtf8(name);
    UA_Server_deleteNode(&server, IdOf(space, utf8), true);
  };
  for (const std::string& name : changes.removedItems) remove(kItemSpace, name);
  for (const std::string& name : changes.removedDevices) remove(kFolderSpace, name);
  std::size_t refused = 0;
  for (const SimDevice* const device : changes.addedDevices) refused += AddFolder(server, *device) ? 0 : 1;
  UA_ServerConfig& config = *UA_Server_getConfig(&server);
  config.context = &server;
  for (SimItem* const item : changes.addedItems) refused += AddVariable(server, *item) ? 0 : 1;
  config.context = nullptr;
  return refused;
}

}  // namespace tavrin
