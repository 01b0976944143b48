#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include <open62541/types.h>
#include <open62541/types_generated_handling.h>

#include "online/opc/OpcServers.h"

namespace tavrin::ua {

/// Classic quality code of a status code, with the two bits that tell whether the value is at a limit.
[[nodiscard]] std::uint16_t QualityOf(UA_StatusCode status);

/// A moment outside of the years 100 to 9999 is the nearest one within.
[[nodiscard]] UtcTime TimeOf(UA_DateTime time);

/// A matrix gives its elements in a row; nothing for a structure.
[[nodiscard]] Variant ValueOf(const UA_Variant& value);

/// The time stamp is that of the source, else the server's, else the present moment.
[[nodiscard]] ItemState StateOf(const UA_DataValue& value);

/// A value of the library that is freed with its owner.
class OwnedVariant {
 public:
  OwnedVariant() { UA_Variant_init(&value_); }
  OwnedVariant(const OwnedVariant&) = delete;
  OwnedVariant& operator=(const OwnedVariant&) = delete;
  OwnedVariant(OwnedVariant&& other) noexcept : value_(other.value_) { UA_Variant_init(&other.value_); }
  OwnedVariant& operator=(OwnedVariant&&) = delete;
  ~OwnedVariant() { UA_Variant_clear(&value_); }

  [[nodiscard]] UA_Variant& Get() { return value_; }

 private:
  UA_Variant value_;
};

/// What a node takes.
struct NodeType {
  const UA_DataType* type = nullptr;  ///< null: what the value itself is
  enum class Shape { Any, Scalar, Array } shape = Shape::Any;
};

/// The value as the node takes it. @throws RuntimeError 13 or 6 when it cannot be had so
[[nodiscard]] OwnedVariant MakeValue(const Variant& value, const NodeType& node);

/// A text of the library that only points to a text of the program.
[[nodiscard]] UA_String View(const std::string& text);

}  // namespace tavrin::ua
