#pragma once

#include <string>

#include <locale.h>

#include "platform/Regional.h"

namespace tavrin {

/// Clock, time zone and locale of the process's user (LC_ALL, LC_TIME, LC_NUMERIC, LC_MESSAGES, LANG) as they are when
/// the object is made, whatever locale the process has set. Safe from every thread.
///
/// Where no language is set, or the system does not have the one that is set, dates read "2026-11-20", times
/// "14:05:09" and numbers "1,024.5". A date or time in characters that the code page does not have reads so too.
class PosixRegional : public Regional {
 public:
  PosixRegional();
  ~PosixRegional() override;

  [[nodiscard]] DateTime Now() override;
  [[nodiscard]] DateTime ToLocal(UtcTime time) override;
  [[nodiscard]] UtcTime FromLocal(const DateTime& local) override;
  [[nodiscard]] std::string ShortDate(const DateTime& date) override;
  [[nodiscard]] std::string LongTime(const DateTime& time) override;
  [[nodiscard]] std::string DecimalSeparator() override { return decimalSeparator_; }
  [[nodiscard]] std::string GroupSeparator() override { return groupSeparator_; }
  [[nodiscard]] int LanguageId() override { return languageId_; }

 private:
  [[nodiscard]] std::string Formatted(const DateTime& time, const char* form, const char* plainForm) const;

  locale_t times_;  // null where no language is set
  std::string decimalSeparator_ = ".";
  std::string groupSeparator_ = ",";
  int languageId_;
};

}  // namespace tavrin
