#include "shell/frmHinweis.h"

#include "support/ProjectTest.h"

namespace tavrin {
namespace {

using testing::ElementsAre;

class HinweisTest : public ProjectTest {
 protected:
  /// Opens the dialog and runs what a user does in it. @return bCancel afterwards
  template <class User>
  bool Open(User&& user) {
    frmHinweis hint;
    desktop.OnModal = [&](Form& form) {
      EXPECT_EQ(&form, &hint);
      user(hint);
      EXPECT_FALSE(form.Visible());
    };
    desktop.ShowModal(hint);
    return hint.bCancel();
  }
};

TEST_F(HinweisTest, ItsWordsComeFromTheCatalogue) {
  const frmHinweis hint;
  EXPECT_EQ(hint.Name(), "frmHinweis");
  EXPECT_EQ(hint.Caption(), "#155");
  EXPECT_EQ(hint.Label1(0).Caption(), "#156");
  EXPECT_EQ(hint.Label1(1).Caption(), "#157");
  EXPECT_EQ(hint.chkShow.Caption(), "#158");
  EXPECT_EQ(hint.cmdAction(0).Caption(), "#30");
  EXPECT_EQ(hint.cmdAction(1).Caption(), "#31");
}

TEST_F(HinweisTest, EnterIsOkEscapeIsCancel) {
  const frmHinweis hint;
  EXPECT_EQ(hint.cmdAction(0).Role(), ButtonRole::Default);
  EXPECT_EQ(hint.cmdAction(1).Role(), ButtonRole::Cancel);
  EXPECT_THAT(hint.Arrangement(),
              ElementsAre(ElementsAre(&hint.Label1(0)), ElementsAre(&hint.Label1(1)), ElementsAre(&hint.chkShow),
                          ElementsAre(&hint.cmdAction(0), &hint.cmdAction(1))));
}

TEST_F(HinweisTest, TheBoxShowsTheSetting) {
  for (const bool show : {true, false}) {
    modMain::globals.gbShowHint = show;
    const frmHinweis hint;
    EXPECT_EQ(hint.chkShow.Checked(), show);
  }
}

TEST_F(HinweisTest, EachTickSetsTheSetting) {
  modMain::globals.gbShowHint = true;
  Open([](frmHinweis& hint) {
    hint.chkShow.UserClick();
    EXPECT_FALSE(modMain::globals.gbShowHint);
    hint.chkShow.UserClick();
    EXPECT_TRUE(modMain::globals.gbShowHint);
    hint.chkShow.UserClick();
    hint.cmdAction(0).UserClick();
  });
  EXPECT_FALSE(modMain::globals.gbShowHint);
}

TEST_F(HinweisTest, OnlyCancelIsRemembered) {
  EXPECT_FALSE(frmHinweis().bCancel());
  EXPECT_FALSE(Open([](frmHinweis& hint) { hint.cmdAction(0).UserClick(); }));
  EXPECT_FALSE(Open([](frmHinweis& hint) { hint.UserClose(); }));
  EXPECT_TRUE(Open([](frmHinweis& hint) { hint.cmdAction(1).UserClick(); }));
}

}  // namespace
}  // namespace tavrin
