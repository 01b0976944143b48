#include "shell/Extras.h"

#include "platform/RuntimeError.h"
#include "shell/frmOptions.h"
#include "support/ShellTest.h"

namespace tavrin {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ExtrasTest : public ShellTest {
 protected:
  ExtrasTest() { Start("-TEST"); }
  void Choose(int index) { Window().mnuExtras(index).UserClick(); }
  void OpenEmptyProject() {
    Window().mnuFile(1).UserClick();
    Project().bDataDirty(false);
  }
  /// The names of the windows that the action opens.
  template <class Action>
  std::vector<std::string> Opened(Action&& action) {
    std::vector<std::string> names;
    desktop.OnModal = [&names](Form& form) {
      names.push_back(form.Name());
      form.UserClose();
    };
    action();
    desktop.OnModal = nullptr;
    return names;
  }
  /// What the choice of an entry has started.
  std::vector<RecordingPrograms::Started> StartedBy(int index) {
    around.programs.started.clear();
    Choose(index);
    return around.programs.started;
  }
  static RecordingPrograms::Started Program(Administration purpose, WindowStyle style) {
    return {std::to_string(static_cast<int>(purpose)), "", static_cast<int>(style)};
  }
  /// The standard report of an error of the routine.
  static std::string Report(int number, const std::string& routine, ErrorNumber error) {
    return "#199 " + std::to_string(number) + " #200 " + routine + std::string(Describe(error));
  }
};

TEST_F(ExtrasTest, ReadAndWriteWarningsAreShownInTheirGrid) {
  OpenEmptyProject();
  modMain::ReadWarnings().AddWarning(WarningKind::Opc, "read.ini", "read");
  modMain::WriteWarnings().AddWarning(WarningKind::Tag, "written.ini", "written");
  Choose(1);
  EXPECT_TRUE(Window().vsgWarnings.Visible());
  EXPECT_TRUE(Window().lblWarnings.Visible());
  EXPECT_FALSE(Window().vsgOPC.Visible());
  ASSERT_EQ(Window().vsgWarnings.Rows(), 2);
  EXPECT_EQ(Window().vsgWarnings.Text({1, 1}), "read.ini");
  Choose(2);
  ASSERT_EQ(Window().vsgWarnings.Rows(), 2);
  EXPECT_EQ(Window().vsgWarnings.Text({1, 1}), "written.ini");
}

TEST_F(ExtrasTest, AListThatWasNeverMadeIsShownEmpty) {
  modMain::globals.gReadWarnings.reset();
  modMain::globals.gWriteWarnings.reset();
  Window().extras.mnuExtras_Click(1);
  EXPECT_TRUE(Window().vsgWarnings.Visible());
  EXPECT_EQ(Window().vsgWarnings.Rows(), 1);
  Window().extras.mnuExtras_Click(2);
  EXPECT_EQ(Window().vsgWarnings.Rows(), 1);
  EXPECT_TRUE(modMain::globals.gReadWarnings);
  EXPECT_TRUE(modMain::globals.gWriteWarnings);
}

TEST_F(ExtrasTest, WarningListsCanBeChosenOnlyWhileAProjectIsOpen) {
  Window().mnuMain(3).UserOpen();
  EXPECT_FALSE(Window().mnuExtras(1).Enabled());
  EXPECT_FALSE(Window().mnuExtras(2).Enabled());
  OpenEmptyProject();
  Window().mnuMain(3).UserOpen();
  EXPECT_TRUE(Window().mnuExtras(1).Enabled());
  EXPECT_TRUE(Window().mnuExtras(2).Enabled());
}

TEST_F(ExtrasTest, EachAdministrationEntryStartsItsProgramsInTheirWindowStyle) {
  EXPECT_THAT(StartedBy(5), ElementsAre(Program(Administration::OpcSettings, WindowStyle::Normal)));
  EXPECT_THAT(StartedBy(7), ElementsAre(Program(Administration::UserManager, WindowStyle::Normal),
                                        Program(Administration::UserPasswords, WindowStyle::Normal)));
  EXPECT_THAT(StartedBy(8), ElementsAre(Program(Administration::Services, WindowStyle::Minimised),
                                        Program(Administration::ServerManager, WindowStyle::Minimised)));
  EXPECT_THAT(StartedBy(9), ElementsAre(Program(Administration::EventLog, WindowStyle::Normal)));
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(ExtrasTest, MissingOpcSettingsAreReported) {
  around.programs.missing = true;
  EXPECT_THAT(StartedBy(5), testing::SizeIs(1));
  EXPECT_THAT(Boxes(), ElementsAre(Report(53, "frmOPC.mnuExtras_Click : ", ErrorNumber::FileNotFound)));
}

TEST_F(ExtrasTest, OtherMissingProgramsArePassedOverAndTheSecondGenerationIsTriedAllTheSame) {
  around.programs.missing = true;
  EXPECT_THAT(StartedBy(7), testing::SizeIs(2));
  EXPECT_THAT(StartedBy(8), testing::SizeIs(2));
  EXPECT_THAT(StartedBy(9), testing::SizeIs(1));
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(ExtrasTest, EntriesWithAMenuBelowDoNothingThemselves) {
  OpenEmptyProject();
  for (const int index : {3, 4, 6}) {
    EXPECT_THAT(Opened([&] { Window().extras.mnuExtras_Click(index); }), IsEmpty()) << index;
    EXPECT_THAT(around.programs.started, IsEmpty()) << index;
  }
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(ExtrasTest, ReconfigurationWithoutAProjectIsSilent) {
  EXPECT_THAT(Opened([&] { Choose(10); }), IsEmpty());
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(ExtrasTest, ReconfigurationWithUnsavedChangesIsRefused) {
  Window().mnuFile(1).UserClick();
  EXPECT_THAT(Opened([&] { Choose(10); }), IsEmpty());
  EXPECT_THAT(Boxes(), ElementsAre("#261"));
  EXPECT_THAT(Opened([&] { Window().Toolbar1.Buttons(kToolReconfigure).UserClick(); }), IsEmpty());
  EXPECT_THAT(Boxes(), ElementsAre("#261"));
}

TEST_F(ExtrasTest, ReconfigurationOfASavedProjectOpensItsWindowFromMenuAndToolBar) {
  OpenEmptyProject();
  EXPECT_THAT(Opened([&] { Choose(10); }), ElementsAre("frmReconfig"));
  EXPECT_THAT(Opened([&] { Window().Toolbar1.Buttons(kToolReconfigure).UserClick(); }), ElementsAre("frmReconfig"));
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(ExtrasTest, CleanUpWithoutAProjectIsRefused) {
  EXPECT_THAT(Opened([&] { Choose(11); }), IsEmpty());
  EXPECT_THAT(Boxes(), ElementsAre("#266"));
}

TEST_F(ExtrasTest, CleanUpOpensItsWindowAlsoForAProjectWithUnsavedChanges) {
  Window().mnuFile(1).UserClick();
  EXPECT_THAT(Opened([&] { Choose(11); }), ElementsAre("frmSettle"));
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(ExtrasTest, OptionsOpenModally) {
  desktop.OnModal = [](Form& form) {
    EXPECT_EQ(form.Name(), "frmOptions");
    dynamic_cast<frmOptions&>(form).chkMessageBoxOnSave.UserClick();
    dynamic_cast<frmOptions&>(form).cmdAction(0).UserClick();
  };
  Choose(12);
  EXPECT_FALSE(modMain::globals.gbQueryOnSave);
  EXPECT_TRUE(modMain::globals.gbQueryOnDelete);
}

}  // namespace
}  // namespace tavrin
