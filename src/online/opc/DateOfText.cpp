#include "online/opc/DateOfText.h"

#include <array>
#include <charconv>
#include <chrono>
#include <string>
#include <system_error>

namespace tavrin {

namespace {

/// Numbers, each with the character that stands behind it; the last one with a blank.
struct Pieces {
  std::array<int, 6> numbers{};
  std::string marks;
};

std::optional<Pieces> SplitNumbers(std::string_view text) {
  Pieces pieces;
  const char* at = text.data();
  const char* const end = at + text.size();
  for (int& number : pieces.numbers) {
    const bool digit = at != end && *at >= '0' && *at <= '9';
    const auto result = std::from_chars(at, end, number);
    if (!digit || result.ec != std::errc()) return std::nullopt;
    pieces.marks += result.ptr == end ? ' ' : *result.ptr;
    if (result.ptr == end) return pieces;
    at = result.ptr + 1;
  }
  return std::nullopt;  // there is more behind the seconds
}

bool IsClock(const std::array<int, 6>& numbers) { return numbers[3] < 24 && numbers[4] < 60 && numbers[5] < 60; }

std::optional<UtcTime> Moment(int year, int month, int day, const Pieces& pieces) {
  const std::chrono::year_month_day date(std::chrono::year(year), std::chrono::month(static_cast<unsigned>(month)),
                                         std::chrono::day(static_cast<unsigned>(day)));
  if (!date.ok() || year < 100 || year > 9999 || !IsClock(pieces.numbers)) return std::nullopt;
  return Join({year, month, day, pieces.numbers[3], pieces.numbers[4], pieces.numbers[5], 0});
}

}  // namespace

std::optional<UtcTime> DateOfText(std::string_view text) {
  const auto pieces = SplitNumbers(text);
  if (!pieces) return std::nullopt;
  const auto& [first, second, third, hour, minute, last] = pieces->numbers;
  const std::string day = pieces->marks.substr(0, 3);
  const std::string clock = pieces->marks.size() > 3 ? pieces->marks.substr(3) : ": ";
  if (clock != ": " && clock != ":: ") return std::nullopt;
  if (day == ".. ") return Moment(third, second, first, *pieces);
  if (day == "-- " || day == "--T") return Moment(first, second, third, *pieces);
  return std::nullopt;
}

}  // namespace tavrin
