#pragma once

#include <string>

#include "platform/DateTime.h"

namespace tavrin {

/// Clock, time zone and the user's habits of writing dates and numbers. Texts are in the code page.
class Regional {
 public:
  Regional() = default;
  Regional(const Regional&) = delete;
  Regional& operator=(const Regional&) = delete;
  virtual ~Regional() = default;

  /// Local time.
  [[nodiscard]] virtual DateTime Now() = 0;
  [[nodiscard]] virtual DateTime ToLocal(UtcTime time) = 0;
  /// A local time that the change of the clocks leaves out or doubles gives one of its neighbours.
  [[nodiscard]] virtual UtcTime FromLocal(const DateTime& local) = 0;

  [[nodiscard]] virtual std::string ShortDate(const DateTime& date) = 0;  ///< e.g. "20.11.2026"
  [[nodiscard]] virtual std::string LongTime(const DateTime& time) = 0;   ///< e.g. "14:05:09"

  [[nodiscard]] virtual std::string DecimalSeparator() = 0;  ///< e.g. ","
  [[nodiscard]] virtual std::string GroupSeparator() = 0;    ///< between thousands, e.g. "."

  /// Number of the user's language with its country, e.g. 1031 for German in Germany.
  [[nodiscard]] virtual int LanguageId() = 0;
};

}  // namespace tavrin
