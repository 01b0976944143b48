#include "sim/UaValues.h"

#include <algorithm>
#include <array>
#include <span>

#include <open62541/types_generated_handling.h>

namespace tavrin {

namespace {

/// What a kind is in OPC UA, and how its elements get there and back.
struct UaKind {
  int typeIndex;
  void (*put)(const Values& values, void* data);
  Values (*get)(const void* data, std::size_t count);
};

template <class Element>
void Put(const Values& values, void* data) {
  std::transform(values.begin(), values.end(), static_cast<Element*>(data),
                 [](double value) { return static_cast<Element>(value); });
}

template <class Element>
Values Get(const void* data, std::size_t count) {
  const std::span elements(static_cast<const Element*>(data), count);
  Values values(count);
  std::transform(elements.begin(), elements.end(), values.begin(),
                 [](Element element) { return static_cast<double>(element); });
  return values;
}

template <class Element>
constexpr UaKind KindOf(int typeIndex) {
  return {typeIndex, Put<Element>, Get<Element>};
}

/// In the order of ValueKind.
constexpr std::array<UaKind, kValueKinds> kKinds{
    KindOf<UA_Boolean>(UA_TYPES_BOOLEAN), KindOf<UA_SByte>(UA_TYPES_SBYTE),   KindOf<UA_Byte>(UA_TYPES_BYTE),
    KindOf<UA_Int16>(UA_TYPES_INT16),     KindOf<UA_UInt16>(UA_TYPES_UINT16), KindOf<UA_Int32>(UA_TYPES_INT32),
    KindOf<UA_UInt32>(UA_TYPES_UINT32),   KindOf<UA_Float>(UA_TYPES_FLOAT),   KindOf<UA_Double>(UA_TYPES_DOUBLE),
};

const UaKind& Row(ValueKind kind) { return kKinds[static_cast<std::size_t>(kind)]; }

}  // namespace

const UA_DataType& UaType(ValueKind kind) { return UA_TYPES[Row(kind).typeIndex]; }

UA_StatusCode ToUa(const ItemType& type, const Values& values, UA_Variant& out) {
  const UA_DataType& uaType = UaType(type.kind);
  void* const data = UA_Array_new(values.size(), &uaType);
  if (data == nullptr) return UA_STATUSCODE_BADOUTOFMEMORY;
  Row(type.kind).put(values, data);
  if (type.count > 0) {
    UA_Variant_setArray(&out, data, values.size(), &uaType);
  } else {
    UA_Variant_setScalar(&out, data, &uaType);
  }
  return UA_STATUSCODE_GOOD;
}

std::optional<Values> FromUa(ValueKind kind, const UA_Variant& variant) {
  if (variant.type != &UaType(kind)) return std::nullopt;
  const std::size_t count = UA_Variant_isScalar(&variant) ? 1 : variant.arrayLength;
  return Row(kind).get(variant.data, count);
}

UA_DateTime ToUa(Moment moment) { return moment * UA_DATETIME_MSEC + UA_DATETIME_UNIX_EPOCH; }

Moment FromUa(UA_DateTime time) { return (time - UA_DATETIME_UNIX_EPOCH) / UA_DATETIME_MSEC; }

}  // namespace tavrin
