#include "sim/UaNodestore.h"

#include <memory>
#include <string>
#include <utility>

#include <open62541/types_generated_handling.h>

namespace tavrin {

namespace {

struct NamedStore {
  UA_Nodestore inner;
  std::uint16_t space;
  OtherName otherName;
};

NamedStore& Of(void* context) { return *static_cast<NamedStore*>(context); }

std::string_view TextOf(const UA_String& text) {
  // The bytes of the library are unsigned.
  return {reinterpret_cast<const char*>(text.data), text.length};
}

/// Calls `find` with the id and, when nothing is there, with that of the node's own name.
template <class Find>
auto FindBothWays(NamedStore& store, const UA_NodeId& id, Find find) {
  auto found = find(&id);
  if (found != nullptr || id.namespaceIndex != store.space || id.identifierType != UA_NODEIDTYPE_STRING) return found;
  auto other = store.otherName(TextOf(id.identifier.string));
  if (!other) return found;
  UA_NodeId own = id;
  own.identifier.string.length = other->size();
  own.identifier.string.data = reinterpret_cast<UA_Byte*>(other->data());
  return find(&own);
}

void Clear(void* context) {
  const std::unique_ptr<NamedStore> store(&Of(context));
  store->inner.clear(store->inner.context);
}

UA_Node* NewNode(void* context, UA_NodeClass nodeClass) {
  const UA_Nodestore& inner = Of(context).inner;
  return inner.newNode(inner.context, nodeClass);
}

void DeleteNode(void* context, UA_Node* node) {
  const UA_Nodestore& inner = Of(context).inner;
  inner.deleteNode(inner.context, node);
}

const UA_Node* GetNode(void* context, const UA_NodeId* id, UA_UInt32 attributes, UA_ReferenceTypeSet references,
                       UA_BrowseDirection directions) {
  NamedStore& store = Of(context);
  return FindBothWays(store, *id, [&](const UA_NodeId* wanted) {
    return store.inner.getNode(store.inner.context, wanted, attributes, references, directions);
  });
}

const UA_Node* GetNodeFromPtr(void* context, UA_NodePointer pointer, UA_UInt32 attributes,
                              UA_ReferenceTypeSet references, UA_BrowseDirection directions) {
  const UA_Nodestore& inner = Of(context).inner;
  return inner.getNodeFromPtr(inner.context, pointer, attributes, references, directions);
}

void ReleaseNode(void* context, const UA_Node* node) {
  const UA_Nodestore& inner = Of(context).inner;
  inner.releaseNode(inner.context, node);
}

UA_StatusCode GetNodeCopy(void* context, const UA_NodeId* id, UA_Node** copy) {
  const UA_Nodestore& inner = Of(context).inner;
  return inner.getNodeCopy(inner.context, id, copy);
}

UA_StatusCode InsertNode(void* context, UA_Node* node, UA_NodeId* addedId) {
  const UA_Nodestore& inner = Of(context).inner;
  return inner.insertNode(inner.context, node, addedId);
}

UA_StatusCode ReplaceNode(void* context, UA_Node* node) {
  const UA_Nodestore& inner = Of(context).inner;
  return inner.replaceNode(inner.context, node);
}

UA_StatusCode RemoveNode(void* context, const UA_NodeId* id) {
  const UA_Nodestore& inner = Of(context).inner;
  return inner.removeNode(inner.context, id);
}

const UA_NodeId* GetReferenceTypeId(void* context, UA_Byte index) {
  const UA_Nodestore& inner = Of(context).inner;
  return inner.getReferenceTypeId(inner.context, index);
}

void Iterate(void* context, UA_NodestoreVisitor visitor, void* visitorContext) {
  const UA_Nodestore& inner = Of(context).inner;
  inner.iterate(inner.context, visitor, visitorContext);
}

}  // namespace

void AnswerOtherNames(UA_Nodestore& store, std::uint16_t space, OtherName otherName) {
  auto context = std::make_unique<NamedStore>(NamedStore{store, space, std::move(otherName)});
  store = {
      context.release(), Clear,       NewNode,    DeleteNode,         GetNode, GetNodeFromPtr, ReleaseNode, GetNodeCopy,
      InsertNode,        ReplaceNode, RemoveNode, GetReferenceTypeId, Iterate};
}

}  // namespace tavrin
