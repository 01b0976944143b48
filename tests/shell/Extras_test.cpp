#include "shell/Extras.h"

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

TEST_F(ExtrasTest, ReconfigurationWithoutAProjectIsSilent) {
  Choose(10);
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(ExtrasTest, ReconfigurationWithUnsavedChangesIsRefused) {
  Window().mnuFile(1).UserClick();
  Choose(10);
  EXPECT_THAT(Boxes(), ElementsAre("#261"));
  Window().Toolbar1.Buttons(kToolReconfigure).UserClick();
  EXPECT_THAT(Boxes(), ElementsAre("#261"));
  Project().bDataDirty(false);
  Choose(10);
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(ExtrasTest, CleanUpWithoutAProjectIsRefused) {
  Choose(11);
  EXPECT_THAT(Boxes(), ElementsAre("#266"));
  OpenEmptyProject();
  Choose(11);
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
