#pragma once

#include <cstdint>
#include <string>

#include "platform/DateTime.h"

namespace tavrin {

/// A moment in eight parts.
struct TimeParts {
  std::int16_t year = 0;
  std::int16_t month = 0;      ///< 1 to 12
  std::int16_t day = 0;        ///< 1 to 31
  std::int16_t dayOfWeek = 0;  ///< 1 for Sunday to 7 for Saturday
  std::int16_t hour = 0;
  std::int16_t minute = 0;
  std::int16_t second = 0;
  std::int16_t milliseconds = 0;

  friend bool operator==(const TimeParts&, const TimeParts&) = default;
};

[[nodiscard]] TimeParts PartsOf(const DateTime& moment);

/// Turns UTC into the local time of the user, in place; the day of the week follows the date.
/// @return 0; another number when the parts are no moment, which then stay as they are
std::int16_t Utc2LocalTime(TimeParts& time);

/// Local day, month, year, hour, minute and second of a moment, e.g. "20.11.2026 14:05:09", in every language.
[[nodiscard]] std::string LocalTimeText(UtcTime moment);

}  // namespace tavrin
