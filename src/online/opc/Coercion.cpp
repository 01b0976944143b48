#include "online/opc/Coercion.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <cmath>
#include <limits>
#include <string_view>
#include <system_error>
#include <utility>

#include "online/opc/DateOfText.h"
#include "platform/CodePage.h"
#include "platform/RuntimeError.h"

namespace tavrin {

namespace {

constexpr double kSecondsOfDay = 86'400;
constexpr double kFirstDay = -657'434;  // of the year 100
constexpr double kLastDay = 2'958'466;  // behind the year 9999

struct IntegerType {
  VariantType type;
  std::int64_t least;
  std::uint64_t most;
};

template <class T>
constexpr IntegerType Integer(VariantType type) {
  return {type, static_cast<std::int64_t>(std::numeric_limits<T>::min()),
          static_cast<std::uint64_t>(std::numeric_limits<T>::max())};
}

constexpr std::array kIntegers{
    Integer<std::int8_t>(VariantType::Int8),        Integer<std::int16_t>(VariantType::Int16),
    Integer<std::int32_t>(VariantType::Int32),      Integer<std::int64_t>(VariantType::Int64),
    Integer<std::uint8_t>(VariantType::UInt8),      Integer<std::uint16_t>(VariantType::UInt16),
    Integer<std::uint32_t>(VariantType::UInt32),    Integer<std::uint64_t>(VariantType::UInt64),
    Integer<std::int32_t>(VariantType::MachineInt), Integer<std::uint32_t>(VariantType::MachineUInt),
    Integer<std::int32_t>(VariantType::Error),
};

/// What CNumericArray takes and gives besides the whole numbers.
constexpr std::array kOtherNumbers{VariantType::Single, VariantType::Double, VariantType::Currency, VariantType::Date,
                                   VariantType::Boolean};

[[noreturn]] void Mismatch() { throw RuntimeError(ErrorNumber::TypeMismatch); }
[[noreturn]] void DoesNotFit() { throw RuntimeError(ErrorNumber::Overflow); }

const IntegerType* FindInteger(VariantType type) {
  const auto found = std::find_if(kIntegers.begin(), kIntegers.end(),
                                  [type](const IntegerType& integer) { return integer.type == type; });
  return found == kIntegers.end() ? nullptr : &*found;
}

bool IsNumber(VariantType type) {
  if (type == VariantType::Error) return false;
  const bool other = std::find(kOtherNumbers.begin(), kOtherNumbers.end(), type) != kOtherNumbers.end();
  return other || FindInteger(type) != nullptr;
}

std::string_view WithoutBlanks(std::string_view text) {
  const auto begin = text.find_first_not_of(' ');
  if (begin == std::string_view::npos) return {};
  return text.substr(begin, text.find_last_not_of(' ') - begin + 1);
}

/// The texts "inf" and "nan" are names, no numbers.
bool LooksLikeNumber(std::string_view text) {
  if (!text.empty() && text[0] == '-') text.remove_prefix(1);
  return !text.empty() && (text[0] == '.' || (text[0] >= '0' && text[0] <= '9'));
}

std::string PlainNumber(std::string_view text) {
  std::string plain(WithoutBlanks(text));
  if (plain.size() > 1 && plain[0] == '+' && plain[1] != '-') plain.erase(0, 1);
  const auto comma = plain.find(',');
  if (comma != std::string::npos) plain[comma] = '.';
  if (!LooksLikeNumber(plain)) Mismatch();
  return plain;
}

template <class T>
std::optional<T> ReadWhole(const std::string& text) {
  T value{};
  const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
  const bool whole = result.ec == std::errc() && result.ptr == text.data() + text.size();
  return whole ? std::optional(value) : std::nullopt;
}

/// Whole numbers keep all their digits, which a real number does not always have.
Scalar NumberOfText(std::string_view text) {
  const std::string plain = PlainNumber(text);
  if (const auto value = ReadWhole<std::int64_t>(plain)) return *value;
  if (const auto value = ReadWhole<std::uint64_t>(plain)) return *value;
  double value = 0;
  const auto result = std::from_chars(plain.data(), plain.data() + plain.size(), value);
  if (result.ptr != plain.data() + plain.size()) Mismatch();
  if (result.ec != std::errc()) DoesNotFit();
  return value;
}

struct ToDouble {
  double operator()(std::monostate) const { Mismatch(); }
  double operator()(bool value) const { return value ? -1 : 0; }
  double operator()(std::int64_t value) const { return static_cast<double>(value); }
  double operator()(std::uint64_t value) const { return static_cast<double>(value); }
  double operator()(double value) const { return value; }
  double operator()(const std::string& value) const { return std::visit(ToDouble{}, NumberOfText(value)); }
};

struct ToInteger {
  const IntegerType& type;

  Scalar operator()(std::monostate) const { Mismatch(); }
  Scalar operator()(bool value) const {
    if (!value) return Result(0, false);
    return type.least < 0 ? Result(1, true) : Scalar(type.most);  // all bits set, as far as the type has bits
  }
  Scalar operator()(std::int64_t value) const {
    const std::uint64_t bits = static_cast<std::uint64_t>(value);
    return value < 0 ? Result(0 - bits, true) : Result(bits, false);
  }
  Scalar operator()(std::uint64_t value) const { return Result(value, false); }
  Scalar operator()(double value) const {
    constexpr double kBeyond = 18'446'744'073'709'551'616.0;
    const double whole = std::nearbyint(value);  // in the default rounding mode: to the nearest, ties to even
    const double size = std::abs(whole);
    if (!(size < kBeyond)) DoesNotFit();
    return Result(static_cast<std::uint64_t>(size), whole < 0);
  }
  Scalar operator()(const std::string& value) const { return std::visit(*this, NumberOfText(value)); }

 private:
  [[nodiscard]] Scalar Result(std::uint64_t size, bool negative) const {
    const std::uint64_t most = negative ? 0 - static_cast<std::uint64_t>(type.least) : type.most;
    if (size > most) DoesNotFit();
    if (type.least == 0) return size;
    return static_cast<std::int64_t>(negative ? 0 - size : size);
  }
};

double Number(const Scalar& value) { return std::visit(ToDouble{}, value); }

double SingleNumber(const Scalar& value) {
  const double number = Number(value);
  if (std::isfinite(number) && std::abs(number) > std::numeric_limits<float>::max()) DoesNotFit();
  return static_cast<double>(static_cast<float>(number));
}

bool Truth(const Scalar& value) {
  if (const auto* text = std::get_if<std::string>(&value)) {
    const std::string_view word = WithoutBlanks(*text);
    if (EqualIgnoringCase(word, "True")) return true;
    if (EqualIgnoringCase(word, "False")) return false;
  }
  return Number(value) != 0;
}

double DateNumber(const Scalar& value) {
  if (const auto* text = std::get_if<std::string>(&value)) {
    if (const auto moment = DateOfText(WithoutBlanks(*text))) return DaysOf(*moment);
  }
  return Number(value);
}

}  // namespace

Scalar CoercedScalar(VariantType from, const Scalar& value, VariantType to) {
  if (const IntegerType* integer = FindInteger(to)) return std::visit(ToInteger{*integer}, value);
  if (std::holds_alternative<std::monostate>(value)) Mismatch();
  switch (to) {
    case VariantType::Single: return SingleNumber(value);
    case VariantType::Double:
    case VariantType::Currency: return Number(value);
    case VariantType::Date: return DateNumber(value);
    case VariantType::Boolean: return Truth(value);
    case VariantType::Text: return ScalarText(from, value, ".");
    default: Mismatch();
  }
}

Variant Coerced(const Variant& value, std::uint16_t typeCode) {
  const bool toArray = (typeCode & kArrayBit) != 0;
  if (toArray != value.IsArray()) Mismatch();
  const auto to = static_cast<VariantType>(typeCode & ~kArrayBit);
  std::vector<Scalar> elements;
  elements.reserve(value.Elements().size());
  for (const Scalar& element : value.Elements()) elements.push_back(CoercedScalar(value.ElementType(), element, to));
  return toArray ? Variant::Array(to, std::move(elements)) : Variant(to, std::move(elements.front()));
}

Variant CNumericArray(const Variant& value, std::uint16_t code) {
  const auto to = static_cast<VariantType>(code & ~kArrayBit);
  if (!value.IsArray() || !IsNumber(value.ElementType()) || !IsNumber(to)) Mismatch();
  return Coerced(value, static_cast<std::uint16_t>(code | kArrayBit));
}

std::optional<UtcTime> TimeOfDays(double days) {
  if (!(days >= kFirstDay && days < kLastDay)) return std::nullopt;
  const auto seconds = static_cast<std::int64_t>(std::nearbyint(days * kSecondsOfDay));
  return Join(DateTime{}) + std::chrono::seconds(seconds);
}

double DaysOf(UtcTime time) {
  return std::chrono::duration<double, std::chrono::days::period>(time - Join(DateTime{})).count();
}

}  // namespace tavrin
