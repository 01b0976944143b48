#include "platform/posix/PosixSettingsStore.h"

#include <array>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <optional>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/CodePage.h"
#include "platform/posix/PosixFiles.h"
#include "platform/profile/ProfiledFiles.h"
#include "support/TemporaryDirectory.h"

namespace tavrin {
namespace {

/// Sets variables of the environment, and back at its end.
class Environment {
 public:
  Environment() = default;
  Environment(const Environment&) = delete;
  Environment& operator=(const Environment&) = delete;
  ~Environment() {
    for (const auto& [name, value] : before_) Put(name, value);
  }
  void Set(const std::string& name, const std::optional<std::string>& value) {
    const char* const present = std::getenv(name.c_str());
    before_.try_emplace(name, present == nullptr ? std::nullopt : std::optional<std::string>(present));
    Put(name, value);
  }

 private:
  static void Put(const std::string& name, const std::optional<std::string>& value) {
    if (value) {
      setenv(name.c_str(), value->c_str(), 1);
    } else {
      unsetenv(name.c_str());
    }
  }
  std::map<std::string, std::optional<std::string>> before_;
};

/// A machine with an own home, as one run of the program sees it.
struct ProgramRun {
  PosixFiles systemFiles;
  ProfiledFiles files{systemFiles};
  PosixSettingsStore store{files};

  void Save(std::string_view value, std::string_view key = "Key") { store.SaveSetting("APP", "Section", key, value); }
  [[nodiscard]] std::string Get(std::string_view key = "Key", std::string_view fallback = "fallback") {
    return store.GetSetting("APP", "Section", key, fallback);
  }
};

class PosixSettingsStoreTest : public testing::Test {
 protected:
  PosixSettingsStoreTest() {
    environment.Set("HOME", directory.Path() + "home");
    environment.Set("XDG_CONFIG_HOME", std::nullopt);
    for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANG"}) environment.Set(name, std::nullopt);
  }
  TemporaryDirectory directory;
  Environment environment;
};

TEST_F(PosixSettingsStoreTest, AValueIsInTheFileOfTheApplicationAsSoonAsItIsSaved) {
  ProgramRun run;
  run.Save("value");
  EXPECT_EQ(directory.Read("home/.config/APP.ini"), "[Section]\r\nKey=\"value\"\r\n");
  EXPECT_EQ(run.Get(), "value");
  EXPECT_EQ(ProgramRun().Get(), "value");
}

TEST_F(PosixSettingsStoreTest, WhatIsMissingGivesTheFallbackAsItIs) {
  ProgramRun run;
  for (const char* fallback : {"", "fallback", " with blanks ", "True"}) EXPECT_EQ(run.Get("Key", fallback), fallback);
  EXPECT_FALSE(directory.Has("home")) << "reading makes nothing";
  run.Save("x", "Other");
  EXPECT_EQ(run.Get("Key", " f "), " f ");
}

TEST_F(PosixSettingsStoreTest, AnEmptyValueIsAValue) {
  ProgramRun run;
  run.Save("");
  EXPECT_EQ(run.Get(), "");
  EXPECT_EQ(ProgramRun().Get(), "");
}

TEST_F(PosixSettingsStoreTest, TheThreeLevelsTellValuesApartInAnyCase) {
  ProgramRun run;
  run.store.SaveSetting("A", "S", "K", "1");
  run.store.SaveSetting("B", "S", "K", "2");
  run.store.SaveSetting("A", "T", "K", "3");
  run.store.SaveSetting("A", "S", "L", "4");
  run.store.SaveSetting("A", "s", "k", "5");
  EXPECT_EQ(run.store.GetSetting("A", "S", "K", ""), "5");
  EXPECT_EQ(run.store.GetSetting("B", "S", "K", ""), "2");
  EXPECT_EQ(run.store.GetSetting("A", "T", "K", ""), "3");
  EXPECT_EQ(run.store.GetSetting("A", "S", "L", ""), "4");
}

TEST_F(PosixSettingsStoreTest, AnyCharactersOfAValueSurvive) {
  std::string all;
  for (int c = 1; c < 256; ++c) {
    if (c != '\r' && c != '\n') all += static_cast<char>(c);
  }
  for (const std::string& value :
       {std::string("  blanks  "), std::string("\ttabs\t"), std::string("\"quoted\""), std::string("'quoted'"),
        std::string("\""), std::string("'"), std::string("a=b=c"), std::string("=;"), std::string(";no comment"),
        std::string("a;b"), std::string("[Section]"), std::string("/K\xE4lte/ZOPCSRV.ini "), std::string("\x1A"),
        std::string("\\\\server\\share"), all}) {
    ProgramRun run;
    run.Save(value);
    EXPECT_EQ(run.Get(), value);
    EXPECT_EQ(ProgramRun().Get(), value);
  }
}

TEST_F(PosixSettingsStoreTest, ALongValueComesBackWhole) {
  for (const std::size_t length : {255U, 1024U, 32000U, 65000U}) {
    const std::string value(length, 'x');
    ProgramRun().Save(value);
    EXPECT_EQ(ProgramRun().Get(), value) << length;
  }
}

TEST_F(PosixSettingsStoreTest, AValueThatTheFileCannotHoldIsNotStored) {
  ProgramRun run;
  run.Save("before");
  for (const std::string& value : {std::string("a\nb"), std::string("a\rb"), std::string("\r\n"),
                                   std::string("a\0b", 3), std::string(65001, 'x')}) {
    run.Save(value);
    EXPECT_EQ(run.Get(), "before");
  }
}

TEST_F(PosixSettingsStoreTest, AFileThatAHandHasWrittenIsRead) {
  std::filesystem::create_directories(directory.Path() + "home/.config");
  directory.Write("home/.config/APP.ini", "; mine\n[section]\n key = plain \nOther='single'\n");
  ProgramRun run;
  EXPECT_EQ(run.Get(), "plain");
  EXPECT_EQ(run.Get("Other"), "single");
  run.Save("new");
  EXPECT_EQ(directory.Read("home/.config/APP.ini"), "; mine\n[section]\n key =\"new\"\nOther='single'\n");
}

TEST_F(PosixSettingsStoreTest, TheDirectoryIsMadeForTheUserAlone) {
  environment.Set("XDG_CONFIG_HOME", directory.Path() + "a/b/c");
  ProgramRun().Save("x");
  EXPECT_TRUE(directory.Has("a/b/c/APP.ini"));
  for (const char* made : {"a", "a/b", "a/b/c"}) {
    struct stat status {};
    ASSERT_EQ(stat((directory.Path() + made).c_str(), &status), 0) << made;
    EXPECT_EQ(status.st_mode & 07777U, 0700U) << made;
  }
}

TEST_F(PosixSettingsStoreTest, ARelativeDirectoryInTheEnvironmentIsIgnored) {
  for (const char* relative : {"", "config", "./config"}) {
    environment.Set("XDG_CONFIG_HOME", relative);
    ProgramRun().Save("x");
    EXPECT_TRUE(directory.Has("home/.config/APP.ini")) << relative;
    std::filesystem::remove_all(directory.Path() + "home");
  }
}

TEST_F(PosixSettingsStoreTest, AUserWithoutADirectoryHasNoSettings) {
  environment.Set("HOME", std::nullopt);
  ProgramRun run;
  run.Save("x");
  EXPECT_EQ(run.Get(), "fallback");
}

TEST_F(PosixSettingsStoreTest, ADirectoryOutsideOfTheCodePageHasNoSettings) {
  environment.Set("HOME", directory.Path() + "\xE6\xB0\xB4");
  ProgramRun run;
  run.Save("x");
  EXPECT_EQ(run.Get(), "fallback");
  EXPECT_FALSE(directory.Has("\xE6\xB0\xB4"));
}

TEST_F(PosixSettingsStoreTest, TheCodePageMayChangeAfterTheStart) {
  environment.Set("HOME", directory.Path() + "\xC5\x82");  // a letter of Windows-1250 that 1252 does not have
  ProgramRun run;
  const CodePage before = ActiveCodePage();
  UseCodePage(MakeCodePage("1250").value());
  run.Save("x");
  EXPECT_EQ(run.Get(), "x");
  UseCodePage(before);
  EXPECT_TRUE(directory.Has("\xC5\x82/.config/APP.ini"));
}

TEST_F(PosixSettingsStoreTest, WhatCannotBeWrittenIsLostWithoutAWord) {
  directory.Write("home", "a file where the home should be");
  ProgramRun run;
  run.Save("x");
  EXPECT_EQ(run.Get(), "fallback");
}

TEST_F(PosixSettingsStoreTest, ADirectoryInPlaceOfTheFileIsNoSettings) {
  std::filesystem::create_directories(directory.Path() + "home/.config/APP.ini");
  ProgramRun run;
  run.Save("x");
  EXPECT_EQ(run.Get(), "fallback");
}

TEST_F(PosixSettingsStoreTest, AReadOnlyFileIsReadAndNotChanged) {
  if (geteuid() == 0) GTEST_SKIP() << "the superuser may write everything";
  ProgramRun().Save("before");
  std::filesystem::permissions(directory.Path() + "home/.config/APP.ini", std::filesystem::perms::owner_read);
  ProgramRun run;
  run.Save("after");
  EXPECT_EQ(ProgramRun().Get(), "before");
}

/// A machine on which every access fails.
class BrokenProfiles : public ProfileFiles {
 public:
  [[nodiscard]] std::size_t GetString(OptionalText /*section*/, OptionalText /*key*/, OptionalText /*fallback*/,
                                      std::span<char> /*buffer*/, std::string_view /*file*/) override {
    throw std::bad_alloc();
  }
  [[nodiscard]] std::size_t GetSectionNames(std::span<char> /*buffer*/, std::string_view /*file*/) override {
    throw std::bad_alloc();
  }
  [[nodiscard]] std::size_t GetSection(OptionalText /*section*/, std::span<char> /*buffer*/,
                                       std::string_view /*file*/) override {
    throw std::bad_alloc();
  }
  ProfileError WriteString(OptionalText /*section*/, OptionalText /*key*/, OptionalText /*value*/,
                           std::string_view /*file*/) override {
    throw std::bad_alloc();
  }
};

TEST_F(PosixSettingsStoreTest, NoErrorEverLeavesTheStore) {
  BrokenProfiles broken;
  PosixSettingsStore store(broken);
  EXPECT_NO_THROW(store.SaveSetting("APP", "S", "K", "x"));
  EXPECT_EQ(store.GetSetting("APP", "S", "K", "fallback"), "fallback");
}

TEST_F(PosixSettingsStoreTest, RunsSideBySideSeeEachOthersValues) {
  ProgramRun one;
  ProgramRun two;
  for (int i = 0; i < 5; ++i) {
    one.Save("one " + std::to_string(i), "One");
    two.Save("two " + std::to_string(i), "Two");
    EXPECT_EQ(two.Get("One"), "one " + std::to_string(i));
    EXPECT_EQ(one.Get("Two"), "two " + std::to_string(i));
  }
}

struct LocaleRow {
  const char* all;
  const char* messages;
  const char* lang;
  bool german;
};
class LocaleTest : public PosixSettingsStoreTest, public testing::WithParamInterface<LocaleRow> {};

TEST_P(LocaleTest, TruthIsWrittenInTheLanguageOfTheFirstVariableThatIsSet) {
  environment.Set("LC_ALL", GetParam().all);
  environment.Set("LC_MESSAGES", GetParam().messages);
  environment.Set("LANG", GetParam().lang);
  const ProgramRun run;
  EXPECT_EQ(run.store.BooleanText(true), GetParam().german ? "Wahr" : "True");
  EXPECT_EQ(run.store.BooleanText(false), GetParam().german ? "Falsch" : "False");
  for (const bool value : {false, true}) EXPECT_EQ(run.store.ParseBoolean(run.store.BooleanText(value)), value);
}

INSTANTIATE_TEST_SUITE_P(Rows, LocaleTest,
                         testing::Values(LocaleRow{"", "", "", false}, LocaleRow{"", "", "C", false},
                                         LocaleRow{"", "", "de_DE.UTF-8", true}, LocaleRow{"", "", "de", true},
                                         LocaleRow{"", "", "de_AT@euro", true}, LocaleRow{"", "", "de.UTF-8", true},
                                         LocaleRow{"", "", "den_CA", false},
                                         LocaleRow{"", "en_US.UTF-8", "de_DE.UTF-8", false},
                                         LocaleRow{"", "de_DE", "en_US", true}, LocaleRow{"C", "de_DE", "de_DE", false},
                                         LocaleRow{"de_CH", "en_US", "C", true}));

TEST_F(PosixSettingsStoreTest, TruthIsReadFromWordsAndNumbers) {
  const ProgramRun english;
  environment.Set("LANG", "de_DE.UTF-8");
  const ProgramRun german;
  for (const ProgramRun* run : {&english, &german}) {
    for (const char* text : {"True", "TRUE", "true", "-1", "1", "0.5"}) {
      EXPECT_EQ(run->store.ParseBoolean(text), true) << text;
    }
    for (const char* text : {"False", "FALSE", "0", "0.0", "-0"}) {
      EXPECT_EQ(run->store.ParseBoolean(text), false) << text;
    }
    for (const char* text : {"", "yes", "Tru", " True", "x1", "vrai"}) {
      EXPECT_EQ(run->store.ParseBoolean(text), std::nullopt) << text;
    }
  }
  EXPECT_EQ(german.store.ParseBoolean("wahr"), true);
  EXPECT_EQ(german.store.ParseBoolean("FALSCH"), false);
  EXPECT_EQ(english.store.ParseBoolean("Wahr"), std::nullopt);
}

}  // namespace
}  // namespace tavrin
