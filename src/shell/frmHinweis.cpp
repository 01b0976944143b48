#include "shell/frmHinweis.h"

#include "model/shared/modMain.h"
#include "model/shared/modText.h"

namespace tavrin {

namespace {

enum Action : int { kOk = 0, kCancel = 1 };

/// Wide enough for each of the two lines of the hint.
constexpr Rect kDesignPlace{0, 0, 6300, 2250};

}  // namespace

frmHinweis::frmHinweis()
    : Form("frmHinweis"), Label1(*this, "Label1"), chkShow(*this, "chkShow"), cmdAction(*this, "cmdAction") {
  Place(kDesignPlace);
  Label1.Load(0);
  Label1.Load(1);
  cmdAction.Load(kOk).Role(ButtonRole::Default);
  cmdAction.Load(kCancel).Role(ButtonRole::Cancel);
  cmdAction.ForEach([this](Button& button) { button.OnClick = [this, &button] { cmdAction_Click(button.Index()); }; });
  chkShow.OnClick = [this] { chkShow_Click(); };
  Arrangement({{&Label1(0)}, {&Label1(1)}, {&chkShow}, {&cmdAction(kOk), &cmdAction(kCancel)}});
  GUI_Init();
  chkShow.Checked(modMain::globals.gbShowHint);
}

void frmHinweis::GUI_Init() {
  Caption(ResText(155));
  Label1(0).Caption(ResText(156));
  Label1(1).Caption(ResText(157));
  chkShow.Caption(ResText(158));
  cmdAction(kOk).Caption(ResText(30));
  cmdAction(kCancel).Caption(ResText(31));
}

void frmHinweis::chkShow_Click() try { modMain::globals.gbShowHint = chkShow.Checked(); } catch (...) {
  modMain::Trap("frmHinweis.chkShow_Click : ");
}

void frmHinweis::cmdAction_Click(int index) try {
  bCancel_ = index == kCancel;
  Hide();
} catch (...) {
  modMain::Trap("frmHinweis.cmdAction_Click : ");
}

}  // namespace tavrin
