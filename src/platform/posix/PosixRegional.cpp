#include "platform/posix/PosixRegional.h"

#include <array>
#include <chrono>
#include <cstdlib>
#include <ctime>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include <iconv.h>
#include <langinfo.h>

#include "platform/BestFit.h"
#include "platform/LanguageTable.h"

namespace tavrin {
namespace {

/// Name of the user's locale for one category; empty when none is set.
std::string_view LocaleNameOf(const char* category) {
  for (const char* variable : {"LC_ALL", category, "LANG"}) {
    const char* value = std::getenv(variable);
    if (value != nullptr && value[0] != '\0') return value;
  }
  return {};
}

/// True for the locale that is in no language.
bool IsPlain(std::string_view name) {
  name = name.substr(0, name.find('.'));
  return name.empty() || name == "C" || name == "POSIX";
}

locale_t OpenLocale(int mask, const char* category) {
  const std::string name(LocaleNameOf(category));
  return IsPlain(name) ? nullptr : newlocale(mask, name.c_str(), nullptr);
}

/// Text of a locale in the code page; nothing when it is broken or the code page cannot spell it.
std::optional<std::string> InCodePage(std::string text, locale_t locale) {
  const iconv_t converter = iconv_open("UTF-16LE", nl_langinfo_l(CODESET, locale));
  if (reinterpret_cast<std::intptr_t>(converter) == -1) return std::nullopt;
  std::vector<char> output(4 * text.size() + 4);
  char* from = text.data();
  char* to = output.data();
  std::size_t fromLeft = text.size();
  std::size_t toLeft = output.size();
  const std::size_t result = iconv(converter, &from, &fromLeft, &to, &toLeft);
  iconv_close(converter);
  if (result == static_cast<std::size_t>(-1)) return std::nullopt;
  std::u16string units;
  for (std::size_t at = 0; at + 2 <= output.size() - toLeft; at += 2) {
    const auto low = static_cast<unsigned char>(output[at]);
    const auto high = static_cast<unsigned char>(output[at + 1]);
    units += static_cast<char16_t>(low | (high << 8U));
  }
  for (char16_t& unit : units) {
    if (unit == 0x2009 || unit == 0x202F) unit = 0xA0;  // narrow blanks, which separate groups of digits
  }
  std::string page = FromUtf16(units);
  if (page.find('?') != std::string::npos) return std::nullopt;
  return page;
}

/// A form can end in something that this moment does not have, such as the name of a time zone.
std::string WithoutBlanksAtEnd(std::string text) {
  text.resize(text.find_last_not_of(' ') + 1);
  return text;
}

std::tm ToTm(const DateTime& time) {
  std::tm result{};
  result.tm_year = time.year - 1900;
  result.tm_mon = time.month - 1;
  result.tm_mday = time.day;
  result.tm_hour = time.hour;
  result.tm_min = time.minute;
  result.tm_sec = time.second;
  result.tm_wday = DayOfWeek(time) - 1;
  result.tm_isdst = -1;
  return result;
}

}  // namespace

PosixRegional::PosixRegional()
    : times_(OpenLocale(LC_TIME_MASK | LC_CTYPE_MASK, "LC_TIME")),
      languageId_(LanguageIdOf(LocaleNameOf("LC_MESSAGES"))) {
  tzset();
  const locale_t numbers = OpenLocale(LC_NUMERIC_MASK | LC_CTYPE_MASK, "LC_NUMERIC");
  if (numbers == nullptr) return;
  decimalSeparator_ = InCodePage(nl_langinfo_l(RADIXCHAR, numbers), numbers).value_or(decimalSeparator_);
  groupSeparator_ = InCodePage(nl_langinfo_l(THOUSEP, numbers), numbers).value_or(groupSeparator_);
  freelocale(numbers);
}

PosixRegional::~PosixRegional() {
  if (times_ != nullptr) freelocale(times_);
}

DateTime PosixRegional::Now() {
  return ToLocal(std::chrono::floor<UtcTime::duration>(std::chrono::system_clock::now()));
}

DateTime PosixRegional::ToLocal(UtcTime time) {
  const auto seconds = std::chrono::floor<std::chrono::seconds>(time);
  const std::time_t number = seconds.time_since_epoch().count();
  std::tm parts{};
  if (localtime_r(&number, &parts) == nullptr) return Split(time);
  const auto milliseconds = std::chrono::floor<std::chrono::milliseconds>(time - seconds);
  return {parts.tm_year + 1900,
          parts.tm_mon + 1,
          parts.tm_mday,
          parts.tm_hour,
          parts.tm_min,
          parts.tm_sec,
          static_cast<int>(milliseconds.count())};
}

UtcTime PosixRegional::FromLocal(const DateTime& local) {
  std::tm parts = ToTm(local);
  parts.tm_wday = -1;  // stays so when the call fails, whose result is also that of a moment
  const std::time_t seconds = std::mktime(&parts);
  if (parts.tm_wday == -1) return Join(local);
  return UtcTime(std::chrono::seconds(seconds) + std::chrono::milliseconds(local.milliseconds));
}

std::string PosixRegional::ShortDate(const DateTime& date) { return Formatted(date, "%x", "%Y-%m-%d"); }

std::string PosixRegional::LongTime(const DateTime& time) { return Formatted(time, "%X", "%H:%M:%S"); }

std::string PosixRegional::Formatted(const DateTime& time, const char* form, const char* plainForm) const {
  const std::tm parts = ToTm(time);
  std::array<char, 256> text{};
  if (times_ != nullptr && strftime_l(text.data(), text.size(), form, &parts, times_) > 0) {
    if (auto page = InCodePage(text.data(), times_)) return WithoutBlanksAtEnd(std::move(*page));
  }
  return {text.data(), std::strftime(text.data(), text.size(), plainForm, &parts)};
}

}  // namespace tavrin
