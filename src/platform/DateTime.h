#pragma once

#include <chrono>
#include <cstdint>
#include <ratio>

namespace tavrin {

/// A moment in UTC, to the tenth of a microsecond, as file systems and servers tell it.
using UtcTime = std::chrono::sys_time<std::chrono::duration<std::int64_t, std::ratio<1, 10'000'000>>>;

/// A moment as clocks on the wall show it. The default is the date zero, which stands for no date.
struct DateTime {
  int year = 1899;
  int month = 12;  ///< 1 to 12
  int day = 30;    ///< 1 to 31
  int hour = 0;
  int minute = 0;
  int second = 0;
  int milliseconds = 0;

  friend bool operator==(const DateTime&, const DateTime&) = default;
};

/// The moment split into its parts, in UTC.
[[nodiscard]] DateTime Split(UtcTime time);

/// The moment that the parts name, read as UTC.
[[nodiscard]] UtcTime Join(const DateTime& parts);

/// 1 for Sunday to 7 for Saturday.
[[nodiscard]] int DayOfWeek(const DateTime& date);

}  // namespace tavrin
