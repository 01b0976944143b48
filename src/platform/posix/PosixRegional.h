#pragma once

#include "platform/Regional.h"

namespace tavrin {

/// Clock, time zone and locale of the process's user (LC_TIME, LC_NUMERIC, LANG), whatever locale the process has set.
class PosixRegional : public Regional {
 public:
  [[nodiscard]] DateTime Now() override;
  [[nodiscard]] DateTime ToLocal(UtcTime time) override;
  [[nodiscard]] UtcTime FromLocal(const DateTime& local) override;
  [[nodiscard]] std::string ShortDate(const DateTime& date) override;
  [[nodiscard]] std::string LongTime(const DateTime& time) override;
  [[nodiscard]] std::string DecimalSeparator() override;
  [[nodiscard]] std::string GroupSeparator() override;
  [[nodiscard]] int LanguageId() override;
};

}  // namespace tavrin
