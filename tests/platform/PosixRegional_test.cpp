#include "platform/posix/PosixRegional.h"

#include <chrono>
#include <clocale>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include <gtest/gtest.h>
#include <locale.h>
#include <time.h>

#include "platform/CodePage.h"
#include "platform/posix/Process.h"
#include "support/TemporaryDirectory.h"

// The C library forgets its list of the folders that LOCPATH names. Only tests set that.
extern "C" const char*
__lsan_default_suppressions();  // NOLINT(bugprone-reserved-identifier): the sanitizer asks for it
extern "C" const char* __lsan_default_suppressions() {
  return "leak:argz_add_sep\n";
}  // NOLINT(bugprone-reserved-identifier)

namespace tavrin {
namespace {

using namespace std::chrono_literals;

constexpr std::string_view kNoLocales = "localedef or the sources of the locales (package locales) are missing";
constexpr DateTime kMoment{2026, 11, 20, 14, 5, 9, 7};

/// A user's environment, set back at the end.
class PosixRegionalTest : public testing::Test {
 protected:
  PosixRegionalTest() {
    for (const char* name : {"LC_ALL", "LC_TIME", "LC_NUMERIC", "LC_MESSAGES", "LANG", "LOCPATH", "TZ"}) {
      const char* value = std::getenv(name);
      before_[name] = value == nullptr ? std::nullopt : std::optional<std::string>(value);
      unsetenv(name);
    }
  }
  ~PosixRegionalTest() override {
    for (const auto& [name, value] : before_) {
      if (value) setenv(name.c_str(), value->c_str(), 1);
      if (!value) unsetenv(name.c_str());
    }
    tzset();
  }

  static void Set(const char* name, const char* value) { setenv(name, value, 1); }

  static bool IsInstalled(const char* name) {
    const locale_t locale = newlocale(LC_ALL_MASK, name, nullptr);
    if (locale != nullptr) freelocale(locale);
    return locale != nullptr;
  }

  /// Makes a user's locale of UTF-8 the one in use, built here, since most machines have but a few.
  /// @param name without its encoding, e.g. "de_DE"
  /// @return false where the system has neither the tool nor the sources that it takes
  bool UseLocale(const std::string& name) {
    const std::string full = name + ".UTF-8";
    if (!std::filesystem::exists("/usr/share/i18n/locales/" + name)) return false;
    const ProcessResult made = RunProcess({"localedef", "-c", "-i", name, "-f", "UTF-8", locales_.Path() + full}, 60s);
    if (made.end == ProcessResult::End::NotStarted) return false;
    Set("LOCPATH", locales_.Path().c_str());
    Set("LC_ALL", full.c_str());
    EXPECT_TRUE(IsInstalled(full.c_str())) << made.output;
    return true;
  }

 private:
  TemporaryDirectory locales_;
  std::map<std::string, std::optional<std::string>> before_;
};

TEST_F(PosixRegionalTest, WithoutALanguageDatesAreInOrderOfSize) {
  for (const char* name : {"", "C", "POSIX", "C.UTF-8", "xx_XX.UTF-8"}) {
    Set("LANG", name);
    PosixRegional regional;
    EXPECT_EQ(regional.ShortDate(kMoment), "2026-11-20") << name;
    EXPECT_EQ(regional.LongTime(kMoment), "14:05:09") << name;
    EXPECT_EQ(regional.DecimalSeparator(), ".") << name;
    EXPECT_EQ(regional.GroupSeparator(), ",") << name;
    EXPECT_EQ(regional.LanguageId(), 1033) << name;
  }
}

TEST_F(PosixRegionalTest, TheDateZeroCanBeWritten) {
  PosixRegional regional;
  EXPECT_EQ(regional.ShortDate({}), "1899-12-30");
  EXPECT_EQ(regional.LongTime({}), "00:00:00");
}

TEST_F(PosixRegionalTest, AGermanUserReadsGermanForms) {
  if (!UseLocale("de_DE")) GTEST_SKIP() << kNoLocales;
  PosixRegional regional;
  EXPECT_EQ(regional.ShortDate(kMoment), "20.11.2026");
  EXPECT_EQ(regional.LongTime(kMoment), "14:05:09");
  EXPECT_EQ(regional.DecimalSeparator(), ",");
  EXPECT_EQ(regional.GroupSeparator(), ".");
  EXPECT_STREQ(std::setlocale(LC_ALL, nullptr), "C") << "the process keeps its own locale";
}

TEST_F(PosixRegionalTest, ANarrowBlankBetweenDigitsBecomesOneOfThePage) {
  if (!UseLocale("fr_FR")) GTEST_SKIP() << kNoLocales;
  PosixRegional regional;
  EXPECT_EQ(regional.GroupSeparator(), "\xA0");
  EXPECT_EQ(regional.DecimalSeparator(), ",");
}

TEST_F(PosixRegionalTest, ADateThatThePageCannotSpellIsPlain) {
  if (!UseLocale("ja_JP")) GTEST_SKIP() << kNoLocales;
  PosixRegional regional;
  EXPECT_EQ(regional.ShortDate(kMoment), "2026-11-20");
  EXPECT_EQ(regional.LongTime(kMoment), "14:05:09");
}

TEST_F(PosixRegionalTest, ATimeEndsWithItsLastCharacterWhereItsFormGoesOn) {
  if (!UseLocale("en_IN")) GTEST_SKIP() << kNoLocales;  // whose form ends in a time zone, which no time here has
  PosixRegional regional;
  EXPECT_EQ(regional.LongTime(kMoment), "02:05:09 PM");
  EXPECT_EQ(regional.ShortDate(kMoment), "20/11/26");
}

TEST_F(PosixRegionalTest, TheStrongestVariableNamesTheLanguage) {
  Set("LANG", "de_DE.UTF-8");
  EXPECT_EQ(PosixRegional().LanguageId(), 1031);
  Set("LC_MESSAGES", "fr_FR.UTF-8");
  EXPECT_EQ(PosixRegional().LanguageId(), 1036);
  Set("LC_ALL", "de_AT.UTF-8");
  EXPECT_EQ(PosixRegional().LanguageId(), 3079);
  Set("LC_ALL", "");
  EXPECT_EQ(PosixRegional().LanguageId(), 1036) << "an empty variable is none";
}

TEST_F(PosixRegionalTest, LocalTimeFollowsTheZoneAndItsSummer) {
  Set("TZ", "CET-1CEST,M3.5.0,M10.5.0/3");
  PosixRegional regional;
  EXPECT_EQ(regional.ToLocal(Join({2026, 11, 20, 13, 5, 9, 7})), kMoment);
  EXPECT_EQ(regional.ToLocal(Join({2026, 7, 1, 22, 30, 0, 0})), (DateTime{2026, 7, 2, 0, 30, 0, 0}));
  EXPECT_EQ(regional.FromLocal(kMoment), Join({2026, 11, 20, 13, 5, 9, 7}));
  EXPECT_EQ(regional.FromLocal({2026, 7, 2, 0, 30, 0, 0}), Join({2026, 7, 1, 22, 30, 0, 0}));
}

TEST_F(PosixRegionalTest, TimesBefore1970AreRoundedDownToTheMillisecond) {
  Set("TZ", "UTC0");
  PosixRegional regional;
  const UtcTime time = Join({1969, 12, 31, 23, 59, 58, 250}) + UtcTime::duration(9);
  EXPECT_EQ(regional.ToLocal(time), (DateTime{1969, 12, 31, 23, 59, 58, 250}));
  EXPECT_EQ(regional.FromLocal({1969, 12, 31, 23, 59, 59, 0}), Join({1969, 12, 31, 23, 59, 59, 0}));
  EXPECT_EQ(regional.FromLocal({1899, 12, 30, 0, 0, 0, 0}), Join({1899, 12, 30, 0, 0, 0, 0}));
}

TEST_F(PosixRegionalTest, AnHourThatTheClocksLeaveOutGivesANeighbour) {
  Set("TZ", "CET-1CEST,M3.5.0,M10.5.0/3");
  PosixRegional regional;
  const UtcTime given = regional.FromLocal({2026, 3, 29, 2, 30, 0, 0});
  EXPECT_TRUE(given == Join({2026, 3, 29, 0, 30, 0, 0}) || given == Join({2026, 3, 29, 1, 30, 0, 0}));
}

TEST_F(PosixRegionalTest, NowIsTheTimeOfTheClock) {
  Set("TZ", "UTC0");
  PosixRegional regional;
  const auto before = std::chrono::floor<std::chrono::milliseconds>(std::chrono::system_clock::now());
  const UtcTime now = Join(regional.Now());
  EXPECT_GE(now, before);
  EXPECT_LE(now, std::chrono::system_clock::now());
}

}  // namespace
}  // namespace tavrin
