#pragma once

#include <optional>

#include <open62541/types.h>

#include "sim/ItemType.h"

namespace tavrin {

/// The built-in type of OPC UA for a kind of value.
[[nodiscard]] const UA_DataType& UaType(ValueKind kind);

/// Makes a variant of a value: an array when the type has a count. `out` is empty before.
[[nodiscard]] UA_StatusCode ToUa(const ItemType& type, const Values& values, UA_Variant& out);

/// The elements of a variant; nothing when they are not of the kind.
[[nodiscard]] std::optional<Values> FromUa(ValueKind kind, const UA_Variant& variant);

/// 100 ns since the beginning of 1601.
[[nodiscard]] UA_DateTime ToUa(Moment moment);
[[nodiscard]] Moment FromUa(UA_DateTime time);

}  // namespace tavrin
