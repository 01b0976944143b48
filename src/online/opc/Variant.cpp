#include "online/opc/Variant.h"

namespace tavrin {

Variant Variant::Array(VariantType type, std::vector<Scalar> elements) {
  Variant made;
  made.type_ = type;
  made.array_ = true;
  made.elements_ = std::move(elements);
  return made;
}

std::uint16_t Variant::TypeCode() const {
  const auto code = static_cast<std::uint16_t>(type_);
  return array_ ? static_cast<std::uint16_t>(code | kArrayBit) : code;
}

}  // namespace tavrin
