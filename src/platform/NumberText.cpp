#include "platform/NumberText.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <system_error>

#include "platform/RuntimeError.h"

namespace tavrin {
namespace {

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

std::size_t SkipDigits(std::string_view text, std::size_t at) {
  while (at < text.size() && IsDigit(text[at])) ++at;
  return at;
}

/// Length of the number at the start: sign, digits, fraction; 0 when there is not a single digit.
std::size_t NumberLength(std::string_view text) {
  const std::size_t sign = !text.empty() && (text[0] == '+' || text[0] == '-') ? 1 : 0;
  const std::size_t point = SkipDigits(text, sign);
  if (point == text.size() || text[point] != '.') return point > sign ? point : 0;
  const std::size_t end = SkipDigits(text, point + 1);
  return end - sign > 1 ? end : 0;
}

}  // namespace

bool IsNumeric(std::string_view text) { return !text.empty() && NumberLength(text) == text.size(); }

double NumericPrefix(std::string_view text) {
  std::string_view number = text.substr(0, NumberLength(text));
  if (number.empty()) return 0;
  if (number[0] == '+') number.remove_prefix(1);
  double value = 0;
  const auto result = std::from_chars(number.data(), number.data() + number.size(), value, std::chars_format::fixed);
  if (result.ec != std::errc::result_out_of_range) return value;
  // Too many digits before the point for a double, or too many zeros behind it.
  const std::size_t significant = number.find_first_not_of("+-0");
  if (significant == std::string_view::npos || number[significant] == '.') return 0;
  const double infinity = std::numeric_limits<double>::infinity();
  return number[0] == '-' ? -infinity : infinity;
}

std::int32_t RoundToInt32(double value) {
  using Limits = std::numeric_limits<std::int32_t>;
  const double rounded = std::nearbyint(value);  // in the default rounding mode: to the nearest, ties to even
  const bool fits = rounded >= Limits::min() && rounded <= Limits::max();
  if (!fits) throw RuntimeError(ErrorNumber::Overflow);
  return static_cast<std::int32_t>(rounded);
}

std::int32_t NextNumber(std::int32_t value) {
  if (value == std::numeric_limits<std::int32_t>::max()) throw RuntimeError(ErrorNumber::Overflow);
  return value + 1;
}

std::string DecimalText(double value) {
  if (value == 0) return "0";  // a negative zero has no sign either
  std::array<char, 512> text;  // the longest doubles need about 310 digits before or 345 characters behind the point
  const auto result = std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed);
  return {text.data(), result.ptr};
}

}  // namespace tavrin
