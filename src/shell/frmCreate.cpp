#include "shell/frmCreate.h"

#include <array>

#include "model/cOPC.h"
#include "model/shared/Messages.h"
#include "model/shared/modMain.h"
#include "model/shared/modText.h"
#include "model/sheets/KeyClass.h"

namespace tavrin {

namespace {

/// A type of network as the dialog offers it, by its number.
struct OfferedType {
  int text;
  bool offered;  ///< existing networks of the others are kept, but no new ones are made
};

constexpr std::array<OfferedType, 5> kTypes{{{34, true}, {35, false}, {36, true}, {27, true}, {26, false}}};

/// What tells a name apart, by mode. The file that the object would get must be free as well: two objects that write
/// the same file would lose one of them, and a network of the name of the root file the whole project.
struct NameCheck {
  int title;
  int taken;
  std::string_view fileEnd;
  bool (cOPC::*isUnique)(std::string_view) const;
};

constexpr std::array<NameCheck, 2> kChecks{
    {{37, 210, ".ini", &cOPC::CheckNetworkNameUnique}, {38, 211, ".csv", &cOPC::CheckDeviceNameUnique}}};

}  // namespace

frmCreate::frmCreate(Mode mode)
    : Form("frmCreate"),
      nMode(mode),
      lbl(*this, "lbl"),
      txtName(*this, "txtName"),
      rbType(*this, "rbType"),
      cmdAction(*this, "cmdAction") {
  GUI_Init();
  Arrange();
  OnUnload = [this](bool&) { bCancel = true; };
}

void frmCreate::GUI_Init() {
  Caption(ResText(kChecks[static_cast<std::size_t>(nMode)].title));
  lbl.Load(0).Caption(ResText(32));
  lbl.Load(1).Caption(ResText(33));
  lbl(1).Visible(nMode == kNetwork);
  txtName.SpokenName(ResText(32));
  txtName.OnKeyPress = [this](int& key) { txtName_KeyPress(key); };
  for (std::size_t type = 0; type < kTypes.size(); ++type) {
    RadioButton& button = rbType.Load(static_cast<int>(type));
    button.Caption(ResText(kTypes[type].text));
    button.Visible(nMode == kNetwork && kTypes[type].offered);
  }
  for (const int index : {0, 1}) {
    Button& button = cmdAction.Load(index);
    button.Caption(ResText(index == 0 ? 30 : 31));
    button.Role(index == 0 ? ButtonRole::Default : ButtonRole::Cancel);
    button.OnClick = [this, index] { cmdAction_Click(index); };
  }
}

void frmCreate::Arrange() {
  Rows rows{{&lbl(0), &txtName}};
  Control* legend = &lbl(1);
  rbType.ForEach([&](RadioButton& button) {
    if (!button.Visible()) return;
    rows.push_back(legend == nullptr ? std::vector<Control*>{nullptr, &button}
                                     : std::vector<Control*>{legend, &button});
    legend = nullptr;
  });
  rows.push_back({&cmdAction(0), &cmdAction(1)});
  Arrangement(std::move(rows));
  txtName.SetFocus();
}

void frmCreate::txtName_KeyPress(int& key) const {
  if (!Passes(KeyClass::Name, key)) key = 0;
}

void frmCreate::cmdAction_Click(int index) try {
  if (index != 0) {
    bCancel = true;
    return Hide();
  }
  const bool typed = nMode == kDevice || TakeType();
  const bool named = TakeName();
  if (typed && named) Hide();
} catch (...) {
  modMain::Trap("frmCreate.cmdAction_Click : ");
}

bool frmCreate::TakeType() {
  bool found = false;
  rbType.ForEach([&](const RadioButton& button) {
    if (found || !button.Checked()) return;
    found = true;
    nType = button.Index();
  });
  return found || Refuse(ResText(208));
}

bool frmCreate::TakeName() {
  const std::string name(modMain::TrimBlanks(txtName.Text()));
  if (name.empty()) {
    static_cast<void>(Refuse(ResText(209)));
    txtName.Text("");
    return false;
  }
  const NameCheck& check = kChecks[static_cast<std::size_t>(nMode)];
  const cOPC& project = modMain::OpenProject();
  if (!(project.*check.isUnique)(name)) return Refuse(NameProblem(check.taken, name));
  const std::string file = name + std::string(check.fileEnd);
  if (!project.CheckFilenameUnique(file)) return Refuse(NameProblem(212, file));
  szName = name;
  return true;
}

}  // namespace tavrin
