#include "platform/DateTime.h"

namespace tavrin {

namespace {

namespace chrono = std::chrono;

chrono::sys_days DayOf(const DateTime& date) {
  return chrono::year_month_day(chrono::year(date.year), chrono::month(static_cast<unsigned>(date.month)),
                                chrono::day(static_cast<unsigned>(date.day)));
}

}  // namespace

DateTime Split(UtcTime time) {
  const auto day = chrono::floor<chrono::days>(time);
  const chrono::year_month_day date(day);
  const chrono::hh_mm_ss clock(chrono::floor<chrono::milliseconds>(time - day));
  return {static_cast<int>(date.year()),
          static_cast<int>(static_cast<unsigned>(date.month())),
          static_cast<int>(static_cast<unsigned>(date.day())),
          static_cast<int>(clock.hours().count()),
          static_cast<int>(clock.minutes().count()),
          static_cast<int>(clock.seconds().count()),
          static_cast<int>(clock.subseconds().count())};
}

UtcTime Join(const DateTime& parts) {
  return DayOf(parts) + chrono::hours(parts.hour) + chrono::minutes(parts.minute) + chrono::seconds(parts.second) +
         chrono::milliseconds(parts.milliseconds);
}

int DayOfWeek(const DateTime& date) { return static_cast<int>(chrono::weekday(DayOf(date)).c_encoding()) + 1; }

}  // namespace tavrin
