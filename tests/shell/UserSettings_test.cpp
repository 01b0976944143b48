#include "shell/UserSettings.h"

#include <array>

#include "brand/Brand.h"
#include "support/ShellTest.h"

namespace tavrin {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct SettingRow {
  const char* section;
  const char* key;
  const char* firstStart;  ///< what a first run leaves in the store
};

constexpr std::array<SettingRow, 11> kRows{{
    {"Settings", "Left", "500"},
    {"Settings", "Top", "500"},
    {"Settings", "Width", "12000"},
    {"Settings", "Height", "10000"},
    {"Settings", "SplitHorz", "2000"},
    {"Settings", "SplitVert", "2000"},
    {"Settings", "Fontsize", "8"},
    {"Settings", "Language", "9"},
    {"Settings", "ShowHint", "True"},
    {"Settings", "QueryOnDelete", "True"},
    {"Settings", "QueryOnSave", "True"},
}};

/// Settings that record the order in which they are asked for and saved.
class OrderedSettings : public MemorySettings {
 public:
  [[nodiscard]] std::string GetSetting(std::string_view application, std::string_view section, std::string_view key,
                                       std::string_view fallback) override {
    read.emplace_back(key);
    return MemorySettings::GetSetting(application, section, key, fallback);
  }
  void SaveSetting(std::string_view application, std::string_view section, std::string_view key,
                   std::string_view value) override {
    saved.emplace_back(key);
    MemorySettings::SaveSetting(application, section, key, value);
  }
  std::vector<std::string> read;
  std::vector<std::string> saved;
};

class UserSettingsTest : public ShellTest {
 protected:
  void Store(std::string_view key, std::string_view value, std::string_view section = "Settings") {
    settings.SaveSetting(OemBrand().settingsApplication, section, key, value);
  }
  [[nodiscard]] std::string Stored(std::string_view key, std::string_view section = "Settings") {
    return settings.GetSetting(OemBrand().settingsApplication, section, key, "none");
  }
  void Restart() {
    Window().settings.SaveSettings();
    window.reset();
    modMain::globals.gnLanguage = kEnglish;
    modMain::globals.gbShowHint = modMain::globals.gbQueryOnDelete = modMain::globals.gbQueryOnSave = true;
    Start();
  }
};

TEST_F(UserSettingsTest, AFirstStartHasAllDefaults) {
  Start();
  EXPECT_EQ(Window().szAppKey, OemBrand().settingsApplication);
  for (const std::string* path : {&Window().szMRU1, &Window().szMRU2, &Window().szMRU3, &Window().szMRU4}) {
    EXPECT_EQ(*path, "");
  }
  EXPECT_EQ(Window().fLeft, 500);
  EXPECT_EQ(Window().fTop, 500);
  EXPECT_EQ(Window().fWidth, 12000);
  EXPECT_EQ(Window().fHeight, 10000);
  EXPECT_EQ(Window().picSplitterHorz.Place().left, 2000);
  EXPECT_EQ(Window().picSplitterVert.Place().top, 2000);
  EXPECT_EQ(Window().nFontSize, 8);
  EXPECT_TRUE(Window().mnuSize(1).Checked());
  EXPECT_FALSE(Window().mnuSize(2).Checked());
  EXPECT_EQ(modMain::globals.gnLanguage, 9);
  EXPECT_TRUE(modMain::globals.gbShowHint);
  EXPECT_TRUE(modMain::globals.gbQueryOnDelete);
  EXPECT_TRUE(modMain::globals.gbQueryOnSave);
  EXPECT_TRUE(settings.values.empty()) << "a start writes nothing";
}

TEST_F(UserSettingsTest, EachKeyIsSavedInItsForm) {
  Start();
  Window().settings.SaveSettings();
  for (const SettingRow& row : kRows) EXPECT_EQ(Stored(row.key, row.section), row.firstStart) << row.key;
  EXPECT_EQ(settings.values.size(), kRows.size()) << "an empty list of recent projects is not written";
}

TEST_F(UserSettingsTest, EverythingIsAsItWasAfterARestart) {
  Start();
  Window().szMRU1 = "/one/ZOPCSRV.ini";
  Window().szMRU4 = " odd = \"path\" ";
  Window().UserPlace({-120, 30, 14000, 9600});
  Rect place = Window().picSplitterHorz.Place();
  place.left = 3456;
  Window().picSplitterHorz.Place(place);
  place = Window().picSplitterVert.Place();
  place.top = 4567;
  Window().picSplitterVert.Place(place);
  Window().mnuSize(2).UserClick();
  Window().mnuLanguage(1).UserClick();
  modMain::globals.gbShowHint = modMain::globals.gbQueryOnDelete = modMain::globals.gbQueryOnSave = false;
  Restart();
  EXPECT_EQ(Window().szMRU1, "/one/ZOPCSRV.ini");
  EXPECT_EQ(Window().szMRU2, "");
  EXPECT_EQ(Window().szMRU4, " odd = \"path\" ");
  EXPECT_EQ(Window().Form::Place(), (Rect{-120, 30, 14000, 9600}));
  EXPECT_EQ(Window().picSplitterHorz.Place().left, 3456);
  EXPECT_EQ(Window().picSplitterVert.Place().top, 4567);
  EXPECT_EQ(Window().nFontSize, 12);
  EXPECT_EQ(Window().vsgOPC.FontSize(), 12);
  EXPECT_TRUE(Window().mnuSize(2).Checked());
  EXPECT_EQ(modMain::globals.gnLanguage, 7);
  EXPECT_TRUE(Window().mnuLanguage(1).Checked());
  EXPECT_FALSE(modMain::globals.gbShowHint);
  EXPECT_FALSE(modMain::globals.gbQueryOnDelete);
  EXPECT_FALSE(modMain::globals.gbQueryOnSave);
}

TEST_F(UserSettingsTest, TheOrderIsFixed) {
  OrderedSettings ordered;
  const Services own{
      desktop, files, files, registry, texts, syntax, ordered, around.all, services.applicationDirectory};
  modMain::globals.services = &own;
  Start();
  EXPECT_THAT(ordered.read,
              ElementsAre("MRU1", "MRU2", "MRU3", "MRU4", "Left", "Top", "Width", "Height", "SplitHorz", "SplitVert",
                          "Fontsize", "Language", "ShowHint", "QueryOnDelete", "QueryOnSave"));
  Window().szMRU3 = "x";
  Window().settings.SaveSettings();
  EXPECT_THAT(ordered.saved,
              ElementsAre("MRU1", "MRU2", "MRU3", "MRU4", "Language", "Left", "Top", "Width", "Height", "SplitHorz",
                          "SplitVert", "Fontsize", "ShowHint", "QueryOnDelete", "QueryOnSave"));
}

struct NumberRow {
  const char* stored;
  float read;
};

TEST_F(UserSettingsTest, LengthsAreRoundedAndRubbishIsZero) {
  constexpr std::array<NumberRow, 9> kNumbers{{{"1234", 1234},
                                               {"1234.4", 1234},
                                               {"1234.5", 1234},
                                               {"1235.5", 1236},
                                               {"-75", -75},
                                               {"rubbish", 0},
                                               {"", 0},
                                               {"12 px", 12},
                                               {"0", 0}}};
  Start();
  for (const NumberRow& row : kNumbers) {
    for (const char* key : {"Left", "Top", "Width", "Height", "SplitHorz", "SplitVert"}) Store(key, row.stored);
    Window().settings.GetSettings();
    EXPECT_EQ(Window().fLeft, row.read) << row.stored;
    EXPECT_EQ(Window().fTop, row.read) << row.stored;
    EXPECT_EQ(Window().fWidth, row.read) << row.stored;
    EXPECT_EQ(Window().fHeight, row.read) << row.stored;
    EXPECT_EQ(Window().picSplitterHorz.Place().left, row.read) << row.stored;
    EXPECT_EQ(Window().picSplitterVert.Place().top, row.read) << row.stored;
  }
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(UserSettingsTest, ALengthBeyondAllBoundsIsALongOne) {
  Store("Left", "99999999999");
  Store("SplitHorz", "-1e3");
  Start();
  EXPECT_THAT(Boxes(), IsEmpty());
  EXPECT_EQ(Window().fLeft, 1e9F);
  EXPECT_EQ(Window().picSplitterHorz.Place().left, -1.0F);
}

TEST_F(UserSettingsTest, ANumberBeyondAllBoundsIsToldAndTheProgramStarts) {
  Store("Fontsize", "99999999999");
  Start();
  EXPECT_THAT(Boxes(), ElementsAre("#199 6 #200 frmOPC.GetSettings : Overflow"));
  EXPECT_TRUE(Window().Visible());
}

TEST_F(UserSettingsTest, ThereAreTwoFontSizesOnly) {
  struct FontRow {
    const char* stored;
    int size;
  };
  constexpr std::array<FontRow, 8> kSizes{
      {{"8", 8}, {"10", 8}, {"11.4", 8}, {"11.5", 12}, {"12", 12}, {"72", 12}, {"-3", 8}, {"large", 8}}};
  for (const FontRow& row : kSizes) {
    Store("Fontsize", row.stored);
    Start();
    EXPECT_EQ(Window().nFontSize, row.size) << row.stored;
    EXPECT_EQ(Window().mnuSize(1).Checked(), row.size == 8) << row.stored;
    EXPECT_EQ(Window().mnuSize(2).Checked(), row.size == 12) << row.stored;
    EXPECT_EQ(Window().vsgOPC.FontSize(), static_cast<float>(row.size)) << row.stored;
    window.reset();
  }
}

TEST_F(UserSettingsTest, TheFontSizeIsSavedAsTheSheetHasIt) {
  Start();
  Window().vsgOPC.FontSize(10.5F);
  Window().settings.SaveSettings();
  EXPECT_EQ(Stored("Fontsize"), "10.5");
}

TEST_F(UserSettingsTest, LanguageZeroIsNine) {
  for (const char* stored : {"0", "", "none at all"}) {
    Store("Language", stored);
    Start();
    EXPECT_EQ(modMain::globals.gnLanguage, 9) << stored;
    EXPECT_TRUE(Window().mnuLanguage(2).Checked()) << stored;
    window.reset();
  }
}

TEST_F(UserSettingsTest, ALanguageThatNoEntryHasIsKept) {
  Store("Language", "12");
  Start();
  EXPECT_EQ(modMain::globals.gnLanguage, 12);
  EXPECT_FALSE(Window().mnuLanguage(1).Checked());
  EXPECT_FALSE(Window().mnuLanguage(2).Checked());
  Window().settings.SaveSettings();
  EXPECT_EQ(Stored("Language"), "12");
}

TEST_F(UserSettingsTest, EachSwitchIsReadByItsKey) {
  struct SwitchRow {
    const char* key;
    bool modMain::State::*value;
  };
  constexpr std::array<SwitchRow, 3> kSwitches{{{"ShowHint", &modMain::State::gbShowHint},
                                                {"QueryOnDelete", &modMain::State::gbQueryOnDelete},
                                                {"QueryOnSave", &modMain::State::gbQueryOnSave}}};
  Start();
  for (const SwitchRow& row : kSwitches) {
    Store(row.key, "False");
    Window().settings.GetSettings();
    for (const SwitchRow& other : kSwitches) EXPECT_EQ(modMain::globals.*other.value, &other != &row) << row.key;
    Store(row.key, "True");
  }
}

TEST_F(UserSettingsTest, ABooleanThatCannotBeReadIsToldAndTheRestIsKept) {
  Store("QueryOnDelete", "perhaps");
  Store("QueryOnSave", "False");
  Store("Left", "777");
  Start();
  EXPECT_THAT(Boxes(), ElementsAre("#199 13 #200 frmOPC.GetSettings : Type mismatch"));
  EXPECT_TRUE(modMain::globals.gbQueryOnSave) << "not reached";
  EXPECT_EQ(Window().Form::Place().left, 777);
  EXPECT_TRUE(Window().Visible());
}

TEST_F(UserSettingsTest, OneRecentProjectWritesAllFourAndNoneWritesNone) {
  Start();
  Store("MRU1", "old", "MRU");
  Window().settings.SaveSettings();
  EXPECT_EQ(Stored("MRU1", "MRU"), "old") << "an empty list leaves the old values";
  Window().szMRU4 = "/four";
  Window().settings.SaveSettings();
  EXPECT_EQ(Stored("MRU1", "MRU"), "");
  EXPECT_EQ(Stored("MRU4", "MRU"), "/four");
}

TEST_F(UserSettingsTest, AMaximisedOrMinimisedWindowKeepsTheStoredPlace) {
  Start();
  Window().UserPlace({100, 200, 11000, 9000});
  Window().settings.SaveSettings();
  for (const WindowState state : {WindowState::Maximised, WindowState::Minimised}) {
    Window().UserState(state);
    Window().UserPlace({0, 0, 30000, 20000});
    Window().settings.SaveSettings();
    EXPECT_EQ(Stored("Left"), "100");
    EXPECT_EQ(Stored("Top"), "200");
    EXPECT_EQ(Stored("Width"), "11000");
    EXPECT_EQ(Stored("Height"), "9000");
  }
  Window().UserState(WindowState::Normal);
  Window().settings.SaveSettings();
  EXPECT_EQ(Stored("Width"), "30000");
}

TEST_F(UserSettingsTest, AFractionIsSavedAsItIs) {
  Start();
  Window().UserPlace({0.5F, 13.0909F, 12000, 10000});
  Window().settings.SaveSettings();
  EXPECT_EQ(Stored("Left"), "0.5");
  EXPECT_EQ(Stored("Top"), "13.0909");
}

TEST_F(UserSettingsTest, TheBrandsDoNotShareTheirSettings) {
  const std::string other = IsQorvane() ? "ZELKARTAVRIN" : "QORVANETAVRIN";
  settings.SaveSetting(other, "Settings", "Left", "1111");
  settings.SaveSetting(other, "MRU", "MRU1", "/other");
  Start();
  EXPECT_EQ(Window().fLeft, 500);
  EXPECT_EQ(Window().szMRU1, "");
}

TEST_F(UserSettingsTest, TheStoredListIsShownInTheMenu) {
  Store("MRU1", "/first", "MRU");
  Store("MRU2", "/second", "MRU");
  Start();
  EXPECT_EQ(Window().mnuFile(11).Caption(), "/first");
  EXPECT_TRUE(Window().mnuFile(12).Visible());
  EXPECT_TRUE(Window().mnuFile(10).Visible());
}

}  // namespace
}  // namespace tavrin
