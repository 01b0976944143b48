#include "shell/frmOptions.h"

#include "support/ProjectTest.h"

namespace tavrin {
namespace {

using testing::ElementsAre;

class OptionsTest : public ProjectTest {
 protected:
  static void Set(bool onDelete, bool onSave) {
    modMain::globals.gbQueryOnDelete = onDelete;
    modMain::globals.gbQueryOnSave = onSave;
  }
  static std::pair<bool, bool> Settings() { return {modMain::globals.gbQueryOnDelete, modMain::globals.gbQueryOnSave}; }
  /// Opens the dialog and runs what a user does in it.
  template <class User>
  void Open(User&& user) {
    frmOptions options;
    desktop.OnModal = [&](Form& form) {
      EXPECT_EQ(&form, &options);
      user(options);
      EXPECT_FALSE(form.Visible());
    };
    desktop.ShowModal(options);
  }
};

TEST_F(OptionsTest, ItsWordsComeFromTheCatalogue) {
  const frmOptions options;
  EXPECT_EQ(options.Name(), "frmOptions");
  EXPECT_EQ(options.Caption(), "#137");
  EXPECT_EQ(options.chkMessageBoxOnDelete.Caption(), "#138");
  EXPECT_EQ(options.chkMessageBoxOnSave.Caption(), "#139");
  EXPECT_EQ(options.cmdAction(0).Caption(), "#30");
  EXPECT_EQ(options.cmdAction(1).Caption(), "#31");
}

TEST_F(OptionsTest, EnterIsOkEscapeIsCancelAndABoxHasARow) {
  frmOptions options;
  EXPECT_EQ(options.cmdAction(0).Role(), ButtonRole::Default);
  EXPECT_EQ(options.cmdAction(1).Role(), ButtonRole::Cancel);
  EXPECT_THAT(options.Arrangement(),
              ElementsAre(ElementsAre(&options.chkMessageBoxOnDelete), ElementsAre(&options.chkMessageBoxOnSave),
                          ElementsAre(&options.cmdAction(0), &options.cmdAction(1))));
}

TEST_F(OptionsTest, EachBoxShowsItsSetting) {
  for (const bool onDelete : {false, true}) {
    for (const bool onSave : {false, true}) {
      Set(onDelete, onSave);
      const frmOptions options;
      EXPECT_EQ(options.chkMessageBoxOnDelete.Checked(), onDelete);
      EXPECT_EQ(options.chkMessageBoxOnSave.Checked(), onSave);
    }
  }
}

TEST_F(OptionsTest, OkTakesEachBox) {
  Set(true, true);
  Open([](frmOptions& options) {
    options.chkMessageBoxOnDelete.UserClick();
    EXPECT_EQ(Settings(), std::pair(true, true)) << "nothing is taken before OK";
    options.cmdAction(0).UserClick();
  });
  EXPECT_EQ(Settings(), std::pair(false, true));
  Open([](frmOptions& options) {
    options.chkMessageBoxOnDelete.UserClick();
    options.chkMessageBoxOnSave.UserClick();
    options.cmdAction(0).UserClick();
  });
  EXPECT_EQ(Settings(), std::pair(true, false));
  EXPECT_TRUE(settings.values.empty()) << "the store is written when the program ends";
}

TEST_F(OptionsTest, CancelAndTheCloseBoxChangeNothing) {
  Set(true, false);
  Open([](frmOptions& options) {
    options.chkMessageBoxOnDelete.UserClick();
    options.chkMessageBoxOnSave.UserClick();
    options.cmdAction(1).UserClick();
  });
  EXPECT_EQ(Settings(), std::pair(true, false));
  Open([](frmOptions& options) {
    options.chkMessageBoxOnSave.UserClick();
    options.UserClose();
  });
  EXPECT_EQ(Settings(), std::pair(true, false));
}

}  // namespace
}  // namespace tavrin
