#include "shell/Languages.h"

#include <filesystem>
#include <string>
#include <vector>

#include <fmt/format.h>

#include "support/ShellTest.h"

namespace tavrin {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Texts that tell their language: "7:56" is text 56 in German.
class LanguageTexts : public TextLibrary {
 public:
  void Init() override {}
  [[nodiscard]] std::string LoadText(int number, int language) override {
    return fmt::format("{}:{}", language, number);
  }
};

class LanguagesTest : public ShellTest {
 protected:
  LanguagesTest() { modMain::globals.services = &inLanguages; }

  void WriteLanguages(const std::string& lines) {
    std::filesystem::create_directory(directory.Path() + "app");
    directory.Write("app/Tavrin.INI", "[Other]\r\nx=1\r\n[Languages]\r\n" + lines + "[Editor]\r\ny=2\r\n");
  }
  void StoreLanguage(const std::string& language) {
    for (const char* application : {"ZELKARTAVRIN", "QORVANETAVRIN"}) {
      settings.SaveSetting(application, "Settings", "Language", language);
    }
  }
  /// "number caption|tag", then a star when it is checked and a word when it is hidden.
  [[nodiscard]] std::vector<std::string> Entries() const {
    std::vector<std::string> lines;
    for (const MenuEntry* entry : window->mnuExtras(3).Entries()) {
      lines.push_back(fmt::format("{} {}|{}{}{}", entry->Index(), entry->Caption(), entry->Tag(),
                                  entry->Checked() ? " *" : "", entry->Visible() ? "" : " hidden"));
    }
    return lines;
  }
  [[nodiscard]] std::string InApplication(const std::string& name) const { return directory.Path() + "app/" + name; }

  LanguageTexts languageTexts;
  Services inLanguages{
      desktop, files, files, registry, languageTexts, syntax, settings, around.all, directory.Path() + "app"};
};

// ---- the menu

TEST_F(LanguagesTest, WithoutAFileThereAreGermanAndEnglish) {
  Start();
  EXPECT_THAT(Entries(), ElementsAre("1 9:56|7", "2 9:57|9 *"));
}

TEST_F(LanguagesTest, AnEmptySectionGivesTheSameTwo) {
  WriteLanguages("; none\r\n");
  Start();
  EXPECT_THAT(Entries(), ElementsAre("1 9:56|7", "2 9:57|9 *"));
}

TEST_F(LanguagesTest, EveryLineIsAnEntryWithItsWholeValueAsTag) {
  WriteLanguages("Deutsch=7,OPC_D.PDF\r\nEnglish=9,OPC_E.PDF\r\nDansk=6\r\n");
  Start();
  EXPECT_THAT(Entries(), ElementsAre("1 Deutsch|7,OPC_D.PDF", "2 English|9,OPC_E.PDF *", "3 Dansk|6"));
}

TEST_F(LanguagesTest, ALineMayMarkTheLetterThatChoosesItsEntry) {
  WriteLanguages("&Deutsch=7\r\nEnglish=9\r\n");
  Start();
  EXPECT_THAT(Entries(), ElementsAre("1 &Deutsch|7", "2 English|9 *"));
  EXPECT_EQ(window->mnuLanguage(1).ShownCaption(), "Deutsch");
}

TEST_F(LanguagesTest, OneLineGivesOneEntry) {
  WriteLanguages("English=9\r\n");
  Start();
  EXPECT_THAT(Entries(), ElementsAre("1 English|9 *"));
}

TEST_F(LanguagesTest, ALineWithoutOrWithTwoEqualSignsLeavesAGap) {
  WriteLanguages("Deutsch=7\r\nno language\r\na=b=c\r\nEnglish=9\r\n");
  Start();
  EXPECT_THAT(Entries(), ElementsAre("1 Deutsch|7", "4 English|9 *"));
  EXPECT_FALSE(window->mnuLanguage.Has(2));
  EXPECT_FALSE(window->mnuLanguage.Has(3));
}

TEST_F(LanguagesTest, ASkippedFirstLineLeavesTheFirstEntryHidden) {
  WriteLanguages("no language\r\nEnglish=9\r\n");
  Start();
  EXPECT_THAT(Entries(), ElementsAre("1 | hidden", "2 English|9 *"));
}

TEST_F(LanguagesTest, NamesAndValuesMayBeEmpty) {
  WriteLanguages("=5\r\nNothing=\r\nEnglish=9\r\n");
  Start();
  EXPECT_THAT(Entries(), ElementsAre("1 |5", "2 Nothing|", "3 English|9 *"));
}

TEST_F(LanguagesTest, WhatLiesBehindABufferOf1024IsCut) {
  std::string lines;
  for (int i = 1; i <= 110; ++i) lines += fmt::format("L{:03}=1{:03}\r\n", i, i);  // 10 characters each with the NUL
  WriteLanguages(lines);
  Start();
  // 1022 characters of the list fit: 102 whole lines, and two characters that are no entry.
  EXPECT_EQ(window->mnuLanguage.Count(), 102U);
  EXPECT_EQ(window->mnuLanguage(102).Caption(), "L102");
  EXPECT_EQ(window->mnuLanguage(102).Tag(), "1102");
}

TEST_F(LanguagesTest, ACutLastEntryMayBeAnotherLanguage) {
  std::string lines;
  for (int i = 1; i <= 101; ++i) lines += fmt::format("L{:03}=1{:03}\r\n", i, i);
  WriteLanguages(lines + "Long name=77\r\n");
  Start();
  EXPECT_EQ(window->mnuLanguage.Count(), 102U);
  EXPECT_EQ(window->mnuLanguage(102).Caption(), "Long name");
  EXPECT_EQ(window->mnuLanguage(102).Tag(), "77");
  window.reset();
  WriteLanguages(lines + "Long names=77\r\n");
  Start();
  EXPECT_EQ(window->mnuLanguage(102).Tag(), "7");
}

// ---- the choice

TEST_F(LanguagesTest, TheFirstStartIsEnglishWithTheManualOfItsEntry) {
  WriteLanguages("Deutsch=7,OPC_D.PDF\r\nEnglish=9,OPC_E.PDF\r\n");
  Start();
  EXPECT_EQ(modMain::globals.gnLanguage, 9);
  EXPECT_EQ(modMain::globals.gszManual, InApplication("OPC_E.PDF"));
  EXPECT_EQ(window->Caption(), "9:1");
}

TEST_F(LanguagesTest, AFallbackEntryGivesTheGermanManualWhateverTheLanguage) {
  Start();
  EXPECT_EQ(modMain::globals.gnLanguage, 9);
  EXPECT_EQ(modMain::globals.gszManual, InApplication("OPC_D.PDF"));
}

TEST_F(LanguagesTest, TheStoredLanguageIsChosen) {
  WriteLanguages("English=9,OPC_E.PDF\r\nDeutsch=7,Handbuch.pdf\r\n");
  StoreLanguage("7");
  Start();
  EXPECT_THAT(Entries(), ElementsAre("1 English|9,OPC_E.PDF", "2 Deutsch|7,Handbuch.pdf *"));
  EXPECT_EQ(modMain::globals.gszManual, InApplication("Handbuch.pdf"));
  EXPECT_EQ(window->vsgOPC.Text({0, 0}), "7:2");
}

TEST_F(LanguagesTest, AStoredLanguageWithoutAnEntryIsUsedAndNothingIsChecked) {
  WriteLanguages("Deutsch=7,OPC_D.PDF\r\nEnglish=9,OPC_E.PDF\r\n");
  StoreLanguage("12");
  Start();
  EXPECT_THAT(Entries(), ElementsAre("1 Deutsch|7,OPC_D.PDF", "2 English|9,OPC_E.PDF"));
  EXPECT_EQ(modMain::globals.gnLanguage, 12);
  EXPECT_EQ(modMain::globals.gszManual, InApplication("OPC_E.PDF"));
  EXPECT_EQ(window->Caption(), "12:1");
  EXPECT_EQ(window->mnuMain(1).Caption(), "12:40");
}

TEST_F(LanguagesTest, OfTwoEntriesOfOneLanguageTheFirstIsChosen) {
  WriteLanguages("Plain=9\r\nOther=9,b.pdf\r\n");
  Start();
  EXPECT_THAT(Entries(), ElementsAre("1 Plain|9 *", "2 Other|9,b.pdf"));
}

struct ManualRow {
  std::string value;
  std::string manual;
};

class ManualTest : public LanguagesTest, public testing::WithParamInterface<ManualRow> {};

TEST_P(ManualTest, OnlyAValueOfTwoPartsNamesAManual) {
  WriteLanguages("First=3\r\nChosen=" + GetParam().value + "\r\n");
  Start();
  window->mnuLanguage(2).UserClick();
  EXPECT_EQ(modMain::globals.gnLanguage, 7);
  EXPECT_EQ(modMain::globals.gszManual, InApplication(GetParam().manual));
}

INSTANTIATE_TEST_SUITE_P(Values, ManualTest,
                         testing::Values(ManualRow{"7", "OPC_D.PDF"}, ManualRow{"7,X.PDF", "X.PDF"},
                                         ManualRow{"7,", ""}, ManualRow{"7,X.PDF,Y.PDF", "OPC_D.PDF"},
                                         ManualRow{"7 German", "OPC_D.PDF"}));

TEST_F(LanguagesTest, AChoiceAtRunTimeTakesEffectAtOnceAndMovesTheCheckMark) {
  WriteLanguages("Deutsch=7,OPC_D.PDF\r\nEnglish=9,OPC_E.PDF\r\n");
  Start();
  window->mnuLanguage(1).UserClick();
  EXPECT_THAT(Entries(), ElementsAre("1 Deutsch|7,OPC_D.PDF *", "2 English|9,OPC_E.PDF"));
  EXPECT_EQ(window->Caption(), "7:1");
  EXPECT_EQ(window->mnuMain(1).Caption(), "7:40");
  EXPECT_EQ(window->vsgMPINW.Text({0, 1}), "7:3");
  EXPECT_EQ(window->vsgMPINW.Text({3, 0}), "7:111");
  EXPECT_EQ(window->Toolbar1.Buttons(kToolNew).ToolTip(), "7:41");
}

TEST_F(LanguagesTest, TheProjectStaysTheNodeIsShownAnewAndItsCommandsWaitForAClick) {
  Start();
  OpenSample("plant");
  TreeNode* network = window->tvwMain.Node("#1")->Children().front().get();
  window->tvwMain.UserPress(MouseButton::Left, network);
  ASSERT_TRUE(window->mnuEdit(2).Enabled());
  const cOPC* project = modMain::globals.gOPC.get();
  Grid* shown = nullptr;
  for (Grid* sheet : window->Sheets()) {
    if (sheet->Visible()) shown = sheet;
  }
  ASSERT_NE(shown, nullptr);
  const std::string fileName = shown->Text({2, 1});
  shown->Text({2, 1}, "to be written again");

  window->mnuLanguage(1).UserClick();
  EXPECT_EQ(modMain::globals.gOPC.get(), project);
  EXPECT_EQ(window->tvwMain.SelectedItem(), network);
  EXPECT_TRUE(shown->Visible());
  EXPECT_EQ(shown->Text({2, 1}), fileName);
  EXPECT_EQ(shown->Text({2, 0}), "7:100");
  EXPECT_EQ(window->Caption(), "7:1");
  for (int index = 1; index <= 5; ++index) EXPECT_FALSE(window->mnuEdit(index).Enabled()) << index;
  EXPECT_FALSE(window->Toolbar1.Buttons(kToolDelete).Enabled());

  window->tvwMain.UserPress(MouseButton::Left, network);
  EXPECT_TRUE(window->mnuEdit(2).Enabled());
}

TEST_F(LanguagesTest, TagsAreFilledAgainForADevice) {
  Start();
  OpenSample("plant");
  TreeNode* device = window->tvwMain.Node("#1")->Children().front()->Children().front().get();
  window->tvwMain.UserPress(MouseButton::Left, device);
  const int rows = window->vsgTags.Rows();
  ASSERT_GT(rows, 2);
  window->mnuLanguage(1).UserClick();
  EXPECT_EQ(window->vsgTags.Rows(), rows);
  EXPECT_EQ(window->vsgTags.Text({0, 1}), "7:4");
}

TEST_F(LanguagesTest, ANumberBeyondAllLanguagesIsToldAndLeavesTheLanguage) {
  WriteLanguages("English=9\r\nTooMuch=99999999999\r\n");
  Start();
  window->mnuLanguage(2).UserClick();
  EXPECT_THAT(Boxes(), ElementsAre("9:199 6 9:200 frmOPC.mnuLanguage_Click : Overflow"));
  EXPECT_EQ(modMain::globals.gnLanguage, 9);
}

// ---- the words

class StaticTextsTest : public ShellTest {
 protected:
  StaticTextsTest() { Start(); }
};

TEST_F(StaticTextsTest, TheCaptionIsTheTitleAlsoWhenItNamedAProject) {
  OpenSample("plant");
  ASSERT_NE(window->Caption(), "#1");
  window->languages.GetStaticTexts();
  EXPECT_EQ(window->Caption(), "#1");
}

TEST_F(StaticTextsTest, TagsAndWarningsHaveTheirHeadings) {
  EXPECT_EQ(window->vsgTags.RowText(0), "\t#4\t#5\t#6\t#116\t#117\t#118\t#119\t#136\t#15");
  EXPECT_EQ(window->vsgWarnings.RowText(0), "#7\t#8\t#9");
}

struct CaptionRow {
  std::string menu;
  int index;
  std::string caption;
};

const std::vector<CaptionRow> kCaptions{
    {"mnuMain", 1, "#40"},     {"mnuMain", 2, "#46"},      {"mnuMain", 3, "#52"},      {"mnuMain", 4, "&?"},
    {"mnuFile", 1, "#41"},     {"mnuFile", 2, "#42"},      {"mnuFile", 3, "#43"},      {"mnuFile", 4, "#44"},
    {"mnuFile", 10, "-"},      {"mnuFile", 11, ""},        {"mnuFile", 14, ""},        {"mnuFile", 20, "-"},
    {"mnuFile", 21, "#45"},    {"mnuEdit", 1, "#47"},      {"mnuEdit", 2, "#48"},      {"mnuEdit", 3, "#49"},
    {"mnuEdit", 4, "#50"},     {"mnuEdit", 5, "#51"},      {"mnuEdit", 6, "Testen"},   {"mnuExtras", 1, "#53"},
    {"mnuExtras", 2, "#54"},   {"mnuExtras", 3, "#55"},    {"mnuExtras", 4, "#58"},    {"mnuExtras", 5, "#61"},
    {"mnuExtras", 6, "#62"},   {"mnuExtras", 7, "#63"},    {"mnuExtras", 8, "#64"},    {"mnuExtras", 9, "#66"},
    {"mnuExtras", 10, "#160"}, {"mnuExtras", 11, "#267"},  {"mnuExtras", 12, "#67"},   {"mnuSize", 1, "#59"},
    {"mnuSize", 2, "#60"},     {"mnuLog", 1, "LOG&1.TXT"}, {"mnuLog", 2, "LOG&2.TXT"}, {"mnuHelp", 1, "#69"},
    {"mnuHelp", 2, "#70"},     {"mnuHelp", 3, "#71"},      {"mnuHelp", 4, "#72"},      {"mnuTest", 1, "#65"},
    {"mnuLanguage", 1, "#56"}, {"mnuLanguage", 2, "#57"},
};

TEST_F(StaticTextsTest, EveryMenuHasItsCaption) {
  for (const CaptionRow& row : kCaptions) {
    EXPECT_EQ(window->Menu(row.menu)(row.index).Caption(), row.caption) << row.menu << ' ' << row.index;
  }
}

TEST_F(StaticTextsTest, EveryToolButtonHasItsTipWhichIsAlsoItsName) {
  std::vector<std::string> tips;
  window->Toolbar1.Buttons.ForEach([&](const ToolButton& button) {
    tips.push_back(fmt::format("{} {}", button.Index(), button.ToolTip()));
    EXPECT_EQ(button.SpokenName(), button.ToolTip());
  });
  EXPECT_THAT(tips, ElementsAre("2 #41", "3 #42", "4 #43", "6 #73", "8 #160"));
}

TEST_F(StaticTextsTest, WhatHasNoCaptionHasASpokenName) {
  EXPECT_EQ(window->tvwMain.SpokenName(), "#10");
  for (const Grid* sheet : window->Sheets()) EXPECT_EQ(sheet->SpokenName(), "#2") << sheet->Name();
  EXPECT_EQ(window->vsgTags.SpokenName(), "#4");
  EXPECT_EQ(window->lblTags.SpokenName(), "#4");
  EXPECT_EQ(window->vsgWarnings.SpokenName(), "#9");
  EXPECT_EQ(window->lblWarnings.SpokenName(), "#9");
}

TEST_F(StaticTextsTest, TipsLeaveOutWhatBelongsToMenusOnly) {
  class MenuTexts : public TextLibrary {
   public:
    void Init() override {}
    [[nodiscard]] std::string LoadText(int number, int /*language*/) override {
      return number == 42 ? "&Open && look..." : "&Plain";
    }
  };
  MenuTexts menuTexts;
  const Services spoken{
      desktop, files, files, registry, menuTexts, syntax, settings, around.all, directory.Path() + "app"};
  modMain::globals.services = &spoken;
  window->languages.GetStaticTexts();
  modMain::globals.services = &services;
  EXPECT_EQ(window->Toolbar1.Buttons(kToolOpen).ToolTip(), "Open & look");
  EXPECT_EQ(window->Toolbar1.Buttons(kToolOpen).SpokenName(), "Open & look");
  EXPECT_EQ(window->Toolbar1.Buttons(kToolNew).ToolTip(), "Plain");
  EXPECT_EQ(window->mnuFile(2).Caption(), "&Open && look...");
}

TEST_F(StaticTextsTest, RecentProjectsKeepTheirPaths) {
  OpenSample("plant");
  const std::string path = window->mnuFile(11).Caption();
  ASSERT_THAT(path, testing::EndsWith("ZOPCSRV.ini"));
  window->languages.GetStaticTexts();
  EXPECT_EQ(window->mnuFile(11).Caption(), path);
}

TEST_F(LanguagesTest, TheRootOfTheTreeSpeaksTheNewLanguageAtOnce) {
  Start();
  OpenSample("plant");
  TreeNode& root = *Window().tvwMain.Node(1);
  Window().tvwMain.Text(root, "old");
  Window().mnuLanguage(1).UserClick();
  EXPECT_EQ(root.Text(), "7:10");
}

}  // namespace
}  // namespace tavrin
