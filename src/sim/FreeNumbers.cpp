#include "sim/FreeNumbers.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <string>

#include "platform/CodePage.h"

namespace tavrin {

namespace {

std::string_view WithoutBlanks(std::string_view text) {
  while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
  while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
  return text;
}

}  // namespace

std::optional<double> FreeNumber(std::string_view text) {
  std::string number(WithoutBlanks(text));
  if (EqualIgnoringCase(number, "TRUE")) return 1;
  if (EqualIgnoringCase(number, "FALSE")) return 0;
  std::replace(number.begin(), number.end(), ',', '.');
  const bool hasPlus = number.size() > 1 && number[0] == '+' && number[1] != '-';
  const char* const end = number.data() + number.size();
  double value = 0;
  const auto [stopped, error] = std::from_chars(number.data() + (hasPlus ? 1 : 0), end, value);
  if (error != std::errc{} || stopped != end || !std::isfinite(value)) return std::nullopt;
  return value;
}

bool IsWrittenAsReal(std::string_view text) {
  return FreeNumber(text).has_value() && text.find_first_of(".,eE") != std::string_view::npos &&
         !EqualIgnoringCase(WithoutBlanks(text), "TRUE") && !EqualIgnoringCase(WithoutBlanks(text), "FALSE");
}

std::vector<std::string_view> TestPieces(std::string_view text) {
  std::vector<std::string_view> pieces;
  for (std::size_t bar = text.find('|'); bar != std::string_view::npos; bar = text.find('|')) {
    pieces.push_back(text.substr(0, bar));
    text.remove_prefix(bar + 1);
  }
  pieces.push_back(text);
  return pieces;
}

}  // namespace tavrin
