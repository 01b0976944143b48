#include "shell/frmOptions.h"

#include <array>

#include "model/shared/modMain.h"
#include "model/shared/modText.h"

namespace tavrin {

namespace {

enum Action : int { kOk = 0, kCancel = 1 };

/// One box with the setting that it shows.
struct OptionRow {
  CheckBox frmOptions::*box;
  bool modMain::State::*setting;
  int text;
};

constexpr std::array kOptionRows{
    OptionRow{&frmOptions::chkMessageBoxOnDelete, &modMain::State::gbQueryOnDelete, 138},
    OptionRow{&frmOptions::chkMessageBoxOnSave, &modMain::State::gbQueryOnSave, 139},
};

}  // namespace

frmOptions::frmOptions()
    : Form("frmOptions"),
      chkMessageBoxOnDelete(*this, "chkMessageBoxOnDelete"),
      chkMessageBoxOnSave(*this, "chkMessageBoxOnSave"),
      cmdAction(*this, "cmdAction") {
  cmdAction.Load(kOk).Role(ButtonRole::Default);
  cmdAction.Load(kCancel).Role(ButtonRole::Cancel);
  cmdAction.ForEach([this](Button& button) { button.OnClick = [this, &button] { cmdAction_Click(button.Index()); }; });
  Arrangement({{&chkMessageBoxOnDelete}, {&chkMessageBoxOnSave}, {&cmdAction(kOk), &cmdAction(kCancel)}});
  GUI_Init();
  for (const OptionRow& row : kOptionRows) (this->*row.box).Checked(modMain::globals.*row.setting);
}

void frmOptions::GUI_Init() {
  Caption(ResText(137));
  cmdAction(kOk).Caption(ResText(30));
  cmdAction(kCancel).Caption(ResText(31));
  for (const OptionRow& row : kOptionRows) (this->*row.box).Caption(ResText(row.text));
}

void frmOptions::cmdAction_Click(int index) try {
  if (index == kOk) {
    for (const OptionRow& row : kOptionRows) modMain::globals.*row.setting = (this->*row.box).Checked();
  }
  Hide();
} catch (...) {
  modMain::Trap("frmOptions.cmdAction_Click : ");
}

}  // namespace tavrin
