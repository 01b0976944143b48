#include "platform/DateTime.h"

#include <algorithm>

namespace tavrin {

namespace {

namespace chrono = std::chrono;

/// The outermost moments that can be told, to the millisecond.
constexpr auto kFirst = chrono::ceil<chrono::milliseconds>(UtcTime::min());
constexpr auto kLast = chrono::floor<chrono::milliseconds>(UtcTime::max());

chrono::sys_days DayOf(const DateTime& date) {
  return chrono::year_month_day(chrono::year(date.year), chrono::month(static_cast<unsigned>(date.month)),
                                chrono::day(static_cast<unsigned>(date.day)));
}

}  // namespace

DateTime Split(UtcTime time) {
  const auto day = chrono::floor<chrono::days>(time);
  const chrono::year_month_day date(day);
  // Not the time since the day began: the first day of all begins before the first moment.
  auto sinceMidnight = time.time_since_epoch() % chrono::days(1);
  if (sinceMidnight < sinceMidnight.zero()) sinceMidnight += chrono::days(1);
  const chrono::hh_mm_ss clock(chrono::floor<chrono::milliseconds>(sinceMidnight));
  return {static_cast<int>(date.year()),
          static_cast<int>(static_cast<unsigned>(date.month())),
          static_cast<int>(static_cast<unsigned>(date.day())),
          static_cast<int>(clock.hours().count()),
          static_cast<int>(clock.minutes().count()),
          static_cast<int>(clock.seconds().count()),
          static_cast<int>(clock.subseconds().count())};
}

UtcTime Join(const DateTime& parts) {
  const auto moment = DayOf(parts) + chrono::hours(parts.hour) + chrono::minutes(parts.minute) +
                      chrono::seconds(parts.second) + chrono::milliseconds(parts.milliseconds);
  return std::clamp(moment, kFirst, kLast);
}

int DayOfWeek(const DateTime& date) { return static_cast<int>(chrono::weekday(DayOf(date)).c_encoding()) + 1; }

}  // namespace tavrin
