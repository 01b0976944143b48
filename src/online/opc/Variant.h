#pragma once

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

namespace tavrin {

/// Type codes of the values of OPC items (classic OPC, Automation variant types).
enum class VariantType : std::uint16_t {
  Empty = 0x00,
  Null = 0x01,
  Int16 = 0x02,
  Int32 = 0x03,
  Single = 0x04,
  Double = 0x05,
  Currency = 0x06,
  Date = 0x07,
  Text = 0x08,
  Error = 0x0A,
  Boolean = 0x0B,
  Int8 = 0x10,
  UInt8 = 0x11,
  UInt16 = 0x12,
  UInt32 = 0x13,
  Int64 = 0x14,
  UInt64 = 0x15,
  MachineInt = 0x16,
  MachineUInt = 0x17,
};

/// Set in the type code of an array.
inline constexpr std::uint16_t kArrayBit = 0x2000;

/// One value: nothing, truth, whole number, real number, or a text in the code page. A date is a number of days since
/// 1899-12-30; a currency is its amount.
using Scalar = std::variant<std::monostate, bool, std::int64_t, std::uint64_t, double, std::string>;

/// The value of an OPC item: one scalar, or an array of one dimension, with its type code.
class Variant {
 public:
  Variant() = default;
  Variant(VariantType type, Scalar value) : type_(type), elements_{std::move(value)} {}
  [[nodiscard]] static Variant Array(VariantType type, std::vector<Scalar> elements);
  [[nodiscard]] static Variant OfText(std::string text) { return {VariantType::Text, std::move(text)}; }

  [[nodiscard]] VariantType ElementType() const { return type_; }
  /// The type code, with the array bit for an array.
  [[nodiscard]] std::uint16_t TypeCode() const;
  [[nodiscard]] bool IsArray() const { return array_; }
  /// Index of the last element of an array, whose first is 0: -1 for an empty one.
  [[nodiscard]] std::int32_t UpperBound() const { return static_cast<std::int32_t>(elements_.size()) - 1; }
  /// The elements of an array; the value itself of a scalar.
  [[nodiscard]] const std::vector<Scalar>& Elements() const { return elements_; }

  friend bool operator==(const Variant&, const Variant&) = default;

 private:
  VariantType type_ = VariantType::Empty;
  bool array_ = false;
  std::vector<Scalar> elements_ = std::vector<Scalar>(1);
};

/// Default text form of one value: numbers with as many digits as they need (7 for Single, 15 for Double) and the
/// decimal separator given; True, False; nothing for an empty value.
/// @throws RuntimeError 13 for Null
[[nodiscard]] std::string ScalarText(VariantType type, const Scalar& value, const std::string& decimalSeparator);

/// The elements as "(first | second | ...)"; a one-element array gives its value in brackets.
[[nodiscard]] std::string ArrayText(const Variant& array, const std::string& decimalSeparator);

/// Conversion of arrays of numbers: `code` 5 makes an array of doubles of it; the type code of an array of numbers,
/// with or without the array bit, makes such an array of doubles back.
/// @throws RuntimeError 13 for a value that is no array of numbers, 6 for an element that the type cannot hold
[[nodiscard]] Variant CNumericArray(const Variant& value, std::uint16_t code);

}  // namespace tavrin
