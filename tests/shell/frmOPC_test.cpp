#include "shell/frmOPC.h"

#include <array>
#include <filesystem>
#include <vector>

#include "brand/Brand.h"
#include "support/ShellTest.h"

namespace tavrin {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;

/// Words that cannot be had.
class NoTexts : public TextLibrary {
 public:
  void Init() override { throw RuntimeError(ErrorNumber::FileNotFound); }
  [[nodiscard]] std::string LoadText(int /*number*/, int /*language*/) override {
    throw RuntimeError(ErrorNumber::FileNotFound);
  }
};

class FormTest : public ShellTest {
 protected:
  /// Gives the machine a unit for the server of the brand.
  void InstallServer(const std::string& description = "OPC server") {
    std::filesystem::create_directories(directory.Path() + "etc/systemd/system");
    const std::string unit = IsQorvane() ? "QorvaneOpcServer" : "ZelkarOpcServer";
    directory.Write("etc/systemd/system/" + unit + ".service", "[Unit]\nDescription=" + description + "\n");
  }
  [[nodiscard]] bool OffersReconfiguration() {
    const bool entry = Window().mnuExtras(10).Enabled();
    EXPECT_EQ(entry, Window().Toolbar1.Buttons(kToolReconfigure).Enabled());
    return entry;
  }
  void NewProject() { Window().mnuFile(1).UserClick(); }
  [[nodiscard]] std::string Stored(const std::string& key) {
    return settings.GetSetting(OemBrand().settingsApplication, "Settings", key, "none");
  }
};

TEST_F(FormTest, ANormalStartShowsTheWindowWithoutAProject) {
  Start();
  EXPECT_TRUE(Window().Visible());
  EXPECT_FALSE(modMain::globals.gOPC);
  EXPECT_FALSE(desktop.Ended());
  EXPECT_THAT(Boxes(), IsEmpty());
  for (const Grid* grid : Window().Grids()) EXPECT_FALSE(grid->Visible()) << grid->Name();
  EXPECT_FALSE(Window().tvwMain.Visible());
  EXPECT_FALSE(Window().lblTags.Visible());
  EXPECT_FALSE(Window().lblWarnings.Visible());
  EXPECT_TRUE(Window().Toolbar1.Visible());
  EXPECT_EQ(Window().Caption(), "#1");
}

TEST_F(FormTest, TheLogoIsThatOfTheBrand) {
  Start();
  EXPECT_EQ(Window().PicLogo2.Visible(), IsQorvane());
  EXPECT_EQ(Window().picLogo1.Visible(), !IsQorvane());
}

struct CommandLineRow {
  const char* words;
  bool demo;
  bool test;
};
class CommandLineTest : public ShellTest, public testing::WithParamInterface<CommandLineRow> {};

TEST_P(CommandLineTest, TwoWordsInAnyCaseAndOrderAreKnownAndAllOthersIgnored) {
  Start(GetParam().words);
  EXPECT_EQ(modMain::globals.gbDemo, GetParam().demo);
  EXPECT_EQ(modMain::globals.gbTest, GetParam().test);
  EXPECT_THAT(Boxes(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(
    Rows, CommandLineTest,
    testing::Values(CommandLineRow{"", false, false}, CommandLineRow{"-DEMO", true, false},
                    CommandLineRow{"-demo", true, false}, CommandLineRow{"-TEST", false, true},
                    CommandLineRow{"-Test", false, true}, CommandLineRow{"-DEMO -TEST", true, true},
                    CommandLineRow{"  -TEST   -DEMO ", true, true}, CommandLineRow{"-DEMOS", false, false},
                    CommandLineRow{"-TESTING -DEMO2", false, false}, CommandLineRow{"DEMO /TEST", false, false},
                    CommandLineRow{"-DEMO\t-TEST", false, false}, CommandLineRow{"project.ini -x -TEST", false, true}));

TEST_F(FormTest, PendingEventsRunSixTimesBeforeTheLibrariesAreProbed) {
  int rounds = 0;
  syntax.source = [&](std::string& source, std::int32_t type, std::int32_t plc) {
    rounds = desktop.EventRounds();
    EXPECT_EQ(source, "MB10");
    EXPECT_EQ(type, 0);
    EXPECT_EQ(plc, 1);
    return 2;  // the result concerns nobody
  };
  Start();
  EXPECT_EQ(rounds, 6);
  EXPECT_EQ(desktop.EventRounds(), 6);
  EXPECT_TRUE(Window().Visible());
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(FormTest, WithoutTextsTheProcessEndsAfterAGermanBox) {
  NoTexts none;
  const Services poor{
      desktop, files, files, registry, none, syntax, settings, around.all, services.applicationDirectory};
  modMain::globals.services = &poor;
  bool probed = false;
  syntax.source = [&](std::string& /*source*/, std::int32_t /*type*/, std::int32_t /*plc*/) {
    probed = true;
    return 0;
  };
  Start();
  EXPECT_THAT(Boxes(), ElementsAre("Die Datei 'Tavrin.DLL' konnte nicht im Verzeichnis " + directory.Path() +
                                   "app gefunden werden. Die Anwendung wird beendet."));
  EXPECT_TRUE(desktop.Ended());
  EXPECT_FALSE(Window().Visible());
  EXPECT_FALSE(probed);
  EXPECT_THAT(settings.values, IsEmpty()) << "settings that were never read must not be overwritten";
}

TEST_F(FormTest, WithoutSyntaxChecksTheProcessEndsAfterAGermanBox) {
  syntax.source = [](std::string& /*source*/, std::int32_t /*type*/, std::int32_t /*plc*/) -> std::int32_t {
    throw RuntimeError(ErrorNumber::FileNotFound);
  };
  Start();
  EXPECT_THAT(Boxes(), ElementsAre("Die Datei 'ZOPCPARS.DLL' konnte nicht im Verzeichnis " + directory.Path() +
                                   "app gefunden werden. Die Anwendung wird beendet."));
  EXPECT_TRUE(desktop.Ended());
  EXPECT_FALSE(Window().Visible());
}

TEST_F(FormTest, AFirstStartOpensAtTheDefaultPlace) {
  Start();
  EXPECT_EQ(Window().Form::Place(), (Rect{500, 500, 12000, 10000}));
}

TEST_F(FormTest, AStoredWindowThatIsTooSmallIsEnlargedWhenItIsShown) {
  settings.SaveSetting(OemBrand().settingsApplication, "Settings", "Width", "8999");
  settings.SaveSetting(OemBrand().settingsApplication, "Settings", "Height", "10");
  Start();
  EXPECT_EQ(Window().Form::Place(), (Rect{500, 500, 9000, 6000}));
}

TEST_F(FormTest, AnErrorOfTheStartIsToldAndTheStepsBehindItAreNotDone) {
  window = std::make_unique<frmOPC>("");
  const Connection failing = Window().Changed.Connect([this] {
    if (Window().Form::Place().left == 777) throw RuntimeError(ErrorNumber::PermissionDenied);
  });
  settings.SaveSetting(OemBrand().settingsApplication, "Settings", "Left", "777");
  settings.SaveSetting(OemBrand().settingsApplication, "MRU", "MRU1", "/p/ZOPCSRV.ini");
  Window().Form_Load();
  EXPECT_THAT(Boxes(), ElementsAre("#199 70 #200 frmOPC.Form_Load : Permission denied"));
  EXPECT_TRUE(Window().mnuFile(11).Visible()) << "what was done before stays";
  EXPECT_FALSE(Window().Visible());
  EXPECT_TRUE(Window().vsgOPC.Visible());
  EXPECT_TRUE(OffersReconfiguration()) << "nobody has looked for the server";
  EXPECT_FALSE(desktop.Ended());
}

TEST_F(FormTest, TheWindowIsPlacedAndEmptiedBeforeItIsShown) {
  window = std::make_unique<frmOPC>("");
  settings.SaveSetting(OemBrand().settingsApplication, "Settings", "Left", "777");
  settings.SaveSetting(OemBrand().settingsApplication, "Settings", "Width", "13000");
  bool shown = false;
  const Connection watching = Window().Changed.Connect([&] {
    if (shown || !Window().Visible()) return;
    shown = true;
    EXPECT_EQ(Window().Form::Place(), (Rect{777, 500, 13000, 10000}));
    for (const Grid* grid : Window().Grids()) EXPECT_FALSE(grid->Visible()) << grid->Name();
    EXPECT_FALSE(Window().tvwMain.Visible());
    EXPECT_EQ(Window().Caption(), "#1");
  });
  Window().Form_Load();
  EXPECT_TRUE(shown);
}

/// A machine that notes whether the window was on the screen when it was asked.
class WatchedRegistry : public Registry {
 public:
  [[nodiscard]] std::optional<std::string> QueryText(std::string_view /*keyPath*/,
                                                     std::string_view /*valueName*/) override {
    asked.push_back(form != nullptr && form->Visible());
    return std::nullopt;
  }
  const Form* form = nullptr;
  std::vector<bool> asked;
};

TEST_F(FormTest, TheServerIsLookedForWhenTheWindowIsOnTheScreen) {
  WatchedRegistry watched;
  const Services own{
      desktop, files, files, watched, texts, syntax, settings, around.all, services.applicationDirectory};
  modMain::globals.services = &own;
  window = std::make_unique<frmOPC>("");
  watched.form = window.get();
  Window().Form_Load();
  EXPECT_THAT(watched.asked, ElementsAre(true));
}

TEST_F(FormTest, ATestRunDoesNotLookForTheServer) {
  WatchedRegistry watched;
  const Services own{
      desktop, files, files, watched, texts, syntax, settings, around.all, services.applicationDirectory};
  modMain::globals.services = &own;
  Start("-TEST");
  EXPECT_THAT(watched.asked, IsEmpty());
}

TEST_F(FormTest, OnlyTheSideThatIsTooSmallIsEnlarged) {
  Start();
  Window().UserPlace({10, 20, 9000, 5999});
  EXPECT_EQ(Window().Form::Place(), (Rect{10, 20, 9000, 6000}));
  Window().UserPlace({10, 20, 100, 7000});
  EXPECT_EQ(Window().Form::Place(), (Rect{10, 20, 9000, 7000}));
}

TEST_F(FormTest, AMaximisedWindowKeepsTheSizeOfItsScreen) {
  Start();
  Window().UserState(WindowState::Maximised);
  Window().UserPlace({0, 0, 8000, 5000});
  EXPECT_EQ(Window().Form::Place(), (Rect{0, 0, 8000, 5000}));
}

TEST_F(FormTest, ResizingMovesTheLineAndTheLogos) {
  Start();
  Window().UserPlace({0, 0, 15000, 9000});
  EXPECT_EQ(Window().Frame1.Place().left, 0);
  EXPECT_EQ(Window().Frame1.Place().top, 330);
  EXPECT_EQ(Window().Frame1.Place().width, 15000);
  for (const Picture* logo : {&Window().picLogo1, &Window().PicLogo2}) {
    EXPECT_EQ(logo->Place().left, 15000 - logo->Place().width - 180) << logo->Name();
    EXPECT_EQ(logo->Place().top, Window().Toolbar1.Place().top) << logo->Name();
  }
  EXPECT_EQ(Window().tvwMain.Place().width, Window().picSplitterHorz.Place().left - Window().tvwMain.Place().left);
}

TEST_F(FormTest, ReconfigurationIsOfferedWhenTheServerIsInstalled) {
  InstallServer();
  Start();
  EXPECT_TRUE(OffersReconfiguration());
}

TEST_F(FormTest, ReconfigurationIsOffWithoutTheServer) {
  Start();
  EXPECT_FALSE(OffersReconfiguration());
}

TEST_F(FormTest, AServiceWithoutADisplayNameIsNoServer) {
  InstallServer("");
  Start();
  EXPECT_FALSE(OffersReconfiguration());
}

TEST_F(FormTest, TheServiceOfTheOtherBrandIsNoServer) {
  std::filesystem::create_directories(directory.Path() + "etc/systemd/system");
  const std::string other = IsQorvane() ? "ZelkarOpcServer" : "QorvaneOpcServer";
  directory.Write("etc/systemd/system/" + other + ".service", "[Unit]\nDescription=x\n");
  Start();
  EXPECT_FALSE(OffersReconfiguration());
}

TEST_F(FormTest, ATestRunNeedsNoServer) {
  Start("-TEST");
  EXPECT_TRUE(OffersReconfiguration());
}

TEST_F(FormTest, ClosingWithoutAProjectEndsTheProcess) {
  Start();
  Window().UserClose();
  EXPECT_TRUE(desktop.Ended());
  EXPECT_FALSE(Window().Visible());
  EXPECT_EQ(Stored("Language"), "9");
}

TEST_F(FormTest, ClosingAfterWritingEndsTheProcess) {
  Start();
  NewProject();
  modMain::globals.gszProjectDir = directory.Path();
  desktop.AnswerNext(true);
  Window().UserClose();
  EXPECT_THAT(desktop.Questions(), ElementsAre("#21"));
  EXPECT_TRUE(directory.Has("ZOPCSRV.ini"));
  EXPECT_TRUE(desktop.Ended());
}

TEST_F(FormTest, ClosingWithANoLosesTheChanges) {
  Start();
  NewProject();
  modMain::globals.gszProjectDir = directory.Path();
  desktop.AnswerNext(false);
  Window().UserClose();
  EXPECT_FALSE(directory.Has("ZOPCSRV.ini"));
  EXPECT_TRUE(desktop.Ended());
}

TEST_F(FormTest, AProjectWithoutADirectoryKeepsTheWindowOpen) {
  Start();
  NewProject();
  desktop.AnswerNext(true);
  Window().UserClose();
  EXPECT_THAT(Boxes(), ElementsAre("#214"));
  EXPECT_FALSE(desktop.Ended());
  EXPECT_TRUE(Window().Visible());
  EXPECT_EQ(Stored("Language"), "9") << "settings are written before the question";
}

TEST_F(FormTest, AProjectWithoutAFileNameKeepsTheWindowOpen) {
  Start();
  modMain::globals.gOPC = std::make_unique<cOPC>();
  modMain::globals.gOPC->bDataDirty(true);
  modMain::globals.gbQueryOnSave = false;
  bool cancel = false;
  Window().Form_Unload(cancel);
  EXPECT_TRUE(cancel);
  EXPECT_THAT(Boxes(), ElementsAre("#213"));
  EXPECT_FALSE(desktop.Ended());
}

/// Counts the times when all settings are written.
class CountingSettings : public MemorySettings {
 public:
  void SaveSetting(std::string_view application, std::string_view section, std::string_view key,
                   std::string_view value) override {
    if (key == "Language") ++saved;
    MemorySettings::SaveSetting(application, section, key, value);
  }
  int saved = 0;
};

TEST_F(FormTest, SettingsAreWrittenASecondTimeWhenNothingWasSaved) {
  CountingSettings counting;
  const Services own{
      desktop, files, files, registry, texts, syntax, counting, around.all, services.applicationDirectory};
  modMain::globals.services = &own;
  Start();
  Window().UserClose();
  EXPECT_EQ(counting.saved, 2);
}

TEST_F(FormTest, SettingsAreWrittenOnceWhenTheProjectWasSaved) {
  CountingSettings counting;
  const Services own{
      desktop, files, files, registry, texts, syntax, counting, around.all, services.applicationDirectory};
  modMain::globals.services = &own;
  Start();
  NewProject();
  modMain::globals.gszProjectDir = directory.Path();
  desktop.AnswerNext(true);
  Window().UserClose();
  EXPECT_EQ(counting.saved, 1);
}

TEST_F(FormTest, TheEntryEndRunsTheSameUnload) {
  Start();
  NewProject();
  desktop.AnswerNext(true);
  Window().mnuFile(21).UserClick();
  EXPECT_THAT(Boxes(), ElementsAre("#214"));
  EXPECT_FALSE(desktop.Ended());
  desktop.AnswerNext(false);
  Window().mnuFile(21).UserClick();
  EXPECT_TRUE(desktop.Ended());
}

/// A store that is broken in every way.
class BrokenSettings : public SettingsStore {
 public:
  [[nodiscard]] std::string GetSetting(std::string_view /*application*/, std::string_view /*section*/,
                                       std::string_view /*key*/, std::string_view /*fallback*/) override {
    throw RuntimeError(ErrorNumber::PermissionDenied);
  }
  void SaveSetting(std::string_view /*application*/, std::string_view /*section*/, std::string_view /*key*/,
                   std::string_view /*value*/) override {
    throw RuntimeError(ErrorNumber::PermissionDenied);
  }
  [[nodiscard]] std::string BooleanText(bool /*value*/) const override { return {}; }
  [[nodiscard]] std::optional<bool> ParseBoolean(std::string_view /*text*/) const override { return std::nullopt; }
};

TEST_F(FormTest, ABrokenStoreKeepsTheProgramNeitherFromStartingNorFromClosing) {
  BrokenSettings broken;
  const Services own{desktop, files, files, registry, texts, syntax, broken, around.all, services.applicationDirectory};
  modMain::globals.services = &own;
  Start();
  EXPECT_TRUE(Window().Visible());
  EXPECT_THAT(Boxes(), ElementsAre("#199 70 #200 frmOPC.GetSettings : Permission denied"));
  Window().UserClose();
  EXPECT_THAT(Boxes(), Each("#199 70 #200 frmOPC.SaveSettings : Permission denied"));
  EXPECT_TRUE(desktop.Ended());
}

TEST_F(FormTest, TheWindowIsThePaneOfTheProcessForAsLongAsItLives) {
  Start();
  EXPECT_EQ(modMain::globals.pane, &Window());
  window.reset();
  EXPECT_EQ(modMain::globals.pane, nullptr);
}

}  // namespace
}  // namespace tavrin
