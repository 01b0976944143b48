#include "shell/frmInfo.h"

#include <array>
#include <string_view>
#include <utility>

#include "brand/Brand.h"
#include "model/shared/modMain.h"
#include "model/shared/modText.h"

namespace tavrin {

namespace {

constexpr int kOk = 0;

/// The same in every language.
constexpr std::array<std::string_view, 4> kWays{"Tel.:", "Fax:", "E-Mail:", "Web:"};
constexpr int kFirstWay = 4;
constexpr int kFirstContact = 8;

constexpr Rect kLogoPlace{0, 0, 2700, 495};

}  // namespace

frmInfo::frmInfo()
    : Form("frmInfo"),
      Picture1(*this, "Picture1", PictureKind::Image),
      Picture2(*this, "Picture2", PictureKind::Image),
      lblVersion(*this, "lblVersion"),
      Label1(*this, "Label1"),
      cmdAction(*this, "cmdAction") {
  Picture1.Image("ZELKAR");
  Picture2.Image("QORVANE");
  for (Picture* const logo : {&Picture1, &Picture2}) logo->Place(kLogoPlace);
  for (int index = 0; index < kFirstContact + static_cast<int>(kWays.size()); ++index) Label1.Load(index);
  Button& close = cmdAction.Load(kOk);
  close.Role(ButtonRole::Default);
  close.OnClick = [this] { cmdAction_Click(kOk); };
  Form_Load();
}

void frmInfo::Form_Load() try {
  GUI_Init();
  Picture1.Visible(!IsQorvane());
  Picture2.Visible(IsQorvane());
  const Contact& contact = OemBrand().contact;
  int index = 0;
  for (const std::string_view line : contact.address) Label1(index++).Caption(line);
  for (const std::string_view way : kWays) Label1(index++).Caption(way);
  for (const std::string_view line : contact.ways) Label1(index++).Caption(line);
  lblVersion.Caption(GetOPCVersion());
} catch (...) {
  modMain::Trap("frmInfo.Form_Load : ");
}

void frmInfo::GUI_Init() {
  Caption(ResText(1));
  cmdAction(kOk).Caption(ResText(30));
  Rows rows{{&Picture1}, {&Picture2}, {&lblVersion}};
  for (int line = 0; line < kFirstWay; ++line) rows.push_back({&Label1(line)});
  for (int way = kFirstWay; way < kFirstContact; ++way) {
    rows.push_back({&Label1(way), &Label1(way + kFirstContact - kFirstWay)});
  }
  rows.push_back({&cmdAction(kOk)});
  Arrangement(std::move(rows));
}

std::string frmInfo::GetOPCVersion() { return ResText(105) + ": "; }

void frmInfo::cmdAction_Click(int index) try {
  if (index == kOk) Hide();
} catch (...) {
  modMain::Trap("frmInfo.cmdAction_Click : ");
}

}  // namespace tavrin
