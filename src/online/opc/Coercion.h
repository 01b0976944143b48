#pragma once

#include <cstdint>
#include <optional>

#include "online/opc/Variant.h"
#include "platform/DateTime.h"

namespace tavrin {

/// A value as the type that another type code names: the type of a server's item decides what is sent to it.
/// Real numbers become whole ones by rounding to the nearest, ties to even. A text is read as the value that it shows,
/// with a point or a comma in front of the decimals. True is -1 as a number.
/// @throws RuntimeError 13 for a value that cannot be read so, for nothing, and for a scalar in place of an array or
/// the other way round; 6 for a number that the type cannot hold
[[nodiscard]] Variant Coerced(const Variant& value, std::uint16_t typeCode);

/// One value of an array or a scalar, as Coerced does.
[[nodiscard]] Scalar CoercedScalar(VariantType from, const Scalar& value, VariantType to);

/// The moment of a number of days since 1899-12-30, to the second; nothing outside of the years 100 to 9999.
[[nodiscard]] std::optional<UtcTime> TimeOfDays(double days);

/// The number of days since 1899-12-30, with their fraction.
[[nodiscard]] double DaysOf(UtcTime time);

}  // namespace tavrin
