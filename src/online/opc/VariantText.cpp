#include <cmath>

#include <fmt/format.h>

#include "online/opc/Coercion.h"
#include "platform/RuntimeError.h"

namespace tavrin {

namespace {

constexpr int kSingleDigits = 7;
constexpr int kDoubleDigits = 15;

std::string NumberText(double value, int digits, const std::string& decimalSeparator) {
  if (std::isnan(value)) return "1.#QNAN";
  if (std::isinf(value)) return value < 0 ? "-1.#INF" : "1.#INF";
  if (value == 0) return "0";  // a negative zero has no sign
  std::string text = fmt::format("{:.{}G}", value, digits);
  const auto point = text.find('.');
  if (point != std::string::npos) text.replace(point, 1, decimalSeparator);
  return text;
}

std::string ClockText(const DateTime& time) {
  return fmt::format("{:02}:{:02}:{:02}", time.hour, time.minute, time.second);
}

/// Day and time of day; the time alone on the day zero, the day alone at midnight.
std::string DateText(double days, const std::string& decimalSeparator) {
  const auto moment = TimeOfDays(days);
  if (!moment) return NumberText(days, kDoubleDigits, decimalSeparator);
  const DateTime parts = Split(*moment);
  const DateTime zero;
  const bool dayZero = parts.year == zero.year && parts.month == zero.month && parts.day == zero.day;
  if (dayZero) return ClockText(parts);
  const std::string day = fmt::format("{:02}.{:02}.{}", parts.day, parts.month, parts.year);
  const bool midnight = parts.hour == 0 && parts.minute == 0 && parts.second == 0;
  return midnight ? day : day + ' ' + ClockText(parts);
}

struct TextOf {
  VariantType type;
  const std::string& decimalSeparator;

  std::string operator()(std::monostate) const { return {}; }
  std::string operator()(bool value) const { return value ? "True" : "False"; }
  std::string operator()(std::int64_t value) const {
    return (type == VariantType::Error ? "Error " : "") + std::to_string(value);
  }
  std::string operator()(std::uint64_t value) const { return std::to_string(value); }
  std::string operator()(double value) const {
    if (type == VariantType::Date) return DateText(value, decimalSeparator);
    return NumberText(value, type == VariantType::Single ? kSingleDigits : kDoubleDigits, decimalSeparator);
  }
  std::string operator()(const std::string& value) const { return value; }
};

}  // namespace

std::string ScalarText(VariantType type, const Scalar& value, const std::string& decimalSeparator) {
  if (type == VariantType::Null) throw RuntimeError(ErrorNumber::TypeMismatch);
  return std::visit(TextOf{type, decimalSeparator}, value);
}

std::string ArrayText(const Variant& array, const std::string& decimalSeparator) {
  std::string text = "(";
  for (std::size_t i = 0; i < array.Elements().size(); ++i) {
    if (i > 0) text += " | ";
    text += ScalarText(array.ElementType(), array.Elements()[i], decimalSeparator);
  }
  return text + ")";
}

}  // namespace tavrin
