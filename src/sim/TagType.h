#pragma once

#include <optional>
#include <string_view>

#include "sim/ItemType.h"

namespace tavrin {

class cTag;

/// The type of a tag's value. The address says how much lies there; what it leaves open comes from the tag's own
/// numbers: a negative bound or test value makes whole numbers signed, a fraction or an exponent makes a double word a
/// real, and a test value with "|" makes an array with as many elements as it has pieces. An address of an unknown form
/// holds a double.
[[nodiscard]] ItemType TypeOf(const cTag& tag);

/// The test value of a tag as its type holds it: nothing when it is no number, or an array of another length.
[[nodiscard]] std::optional<Values> TestValues(std::string_view szTest, const ItemType& type);

}  // namespace tavrin
