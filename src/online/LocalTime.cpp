#include "online/LocalTime.h"

#include <fmt/format.h>

#include "model/shared/modMain.h"
#include "platform/Regional.h"

namespace tavrin {

namespace {

constexpr std::int16_t kDone = 0;
constexpr std::int16_t kNoMoment = 1;

std::int16_t Short(int value) { return static_cast<std::int16_t>(value); }

DateTime DateTimeOf(const TimeParts& time) {
  return {time.year, time.month, time.day, time.hour, time.minute, time.second, time.milliseconds};
}

}  // namespace

TimeParts PartsOf(const DateTime& moment) {
  return {Short(moment.year), Short(moment.month),  Short(moment.day),    Short(DayOfWeek(moment)),
          Short(moment.hour), Short(moment.minute), Short(moment.second), Short(moment.milliseconds)};
}

std::int16_t Utc2LocalTime(TimeParts& time) {
  const DateTime utc = DateTimeOf(time);
  const UtcTime moment = Join(utc);
  if (Split(moment) != utc) return kNoMoment;
  time = PartsOf(modMain::Platform().around.regional.ToLocal(moment));
  return kDone;
}

std::string LocalTimeText(UtcTime moment) {
  TimeParts time = PartsOf(Split(moment));
  time.milliseconds = 0;
  Utc2LocalTime(time);
  return fmt::format("{:02}.{:02}.{} {:02}:{:02}:{:02}", time.day, time.month, time.year, time.hour, time.minute,
                     time.second);
}

}  // namespace tavrin
