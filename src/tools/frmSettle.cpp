#include "tools/frmSettle.h"

#include <algorithm>
#include <unordered_set>
#include <vector>

#include "model/cOPC.h"
#include "model/shared/modFiles.h"
#include "model/shared/modMain.h"
#include "model/shared/modText.h"
#include "platform/CodePage.h"
#include "platform/controls/MenuEntry.h"

namespace tavrin {

namespace {

enum Action : int { kClose = 0, kDelete = 1 };

constexpr std::string_view kOk = "OK";
constexpr std::string_view kNotOk = "NOK";

constexpr Rect kWindow{0, 0, 7500, 6000};
constexpr Rect kList{120, 120, 7140, 4200};
constexpr float kRoomForScrollBar = 360;

using Names = std::unordered_set<std::string>;

/// The files that the open project names, in upper case. The file of a device's section is no name of its own.
Names NamesOfProject() {
  const cOPC& project = modMain::OpenProject();
  Names names{UpperCase(project.szFileName())};
  for (const cNetwork& network : project.Networks()) {
    names.insert(UpperCase(network.szFileName()));
    for (const cDevice& device : network.Devices()) names.insert(UpperCase(device.szTagFileName()));
  }
  return names;
}

ListItem RowOf(const std::string& path) {
  return {UpperCase(path), path.substr(path.rfind(kPathSeparator) + 1), std::string(kOk), false};
}

}  // namespace

frmSettle::frmSettle()
    : Form("frmSettle"),
      ListView1(*this, "ListView1"),
      Picture1(*this, "Picture1", PictureKind::Image),
      Picture2(*this, "Picture2", PictureKind::Image),
      Label1(*this, "Label1"),
      cmdAction(*this, "cmdAction") {
  Arrange();
  GUI_Init();
  SetupList();
  ShowFiles();
  MarkFiles();
}

void frmSettle::Arrange() {
  Place(kWindow);
  ListView1.Place(kList);
  Picture1.Image(kNotOk);
  Picture2.Image(kOk);
  cmdAction.Load(kClose).Role(ButtonRole::Cancel);
  // Enter must not delete what cannot be brought back.
  cmdAction.Load(kDelete).Role(ButtonRole::Plain);
  cmdAction.ForEach([this](Button& button) { button.OnClick = [this, &button] { cmdAction_Click(button.Index()); }; });
  Arrangement({{&ListView1},
               {&Picture1, &Label1.Load(0)},
               {&Picture2, &Label1.Load(1)},
               {&cmdAction(kDelete), &cmdAction(kClose)}});
}

void frmSettle::GUI_Init() try {
  // The text is a menu entry's as well, and a title has no mnemonic.
  Caption(WithoutMnemonic(ResText(267)));
  cmdAction(kClose).Caption(ResText(28));
  cmdAction(kDelete).Caption(ResText(268));
  Label1(0).Caption(ResText(269));
  Label1(1).Caption(ResText(270));
} catch (...) {
  modMain::Trap("frmSettle.GUI_Init : ");
}

void frmSettle::SetupList() {
  ListView1.SpokenName(ResText(272));
  ListView1.OnItemCheck = [this](int) { ListView1_ItemCheck(); };
  ListView1.SetFocus();
}

void frmSettle::ShowFiles() try {
  directory_ = modMain::globals.gszProjectDir;
  ListView1.Clear();
  ListView1.Header(ResText(272) + ' ' + modMain::globals.gszProjectDir, ListView1.Place().width - kRoomForScrollBar);
  // Without a name the root of the disk would be listed.
  if (directory_.empty()) return;
  // Without a separator behind it, what is deleted would lie beside the directory and not in it.
  if (directory_.back() != kPathSeparator) directory_ += kPathSeparator;
  const std::vector<std::string> paths = ListFiles(directory_, "*.*");
  std::vector<ListItem> rows;
  rows.reserve(paths.size());
  std::transform(paths.begin() + 1, paths.end(), std::back_inserter(rows), RowOf);
  ListView1.Add(std::move(rows));
} catch (...) {
  modMain::Trap("frmSettle.ShowFiles : ");
}

void frmSettle::MarkFiles() {
  const Names names = NamesOfProject();
  for (int row = 0; row < ListView1.Count(); ++row) {
    const bool known = names.contains(UpperCase(ListView1.Item(row).text));
    ListView1.Mark(row, known ? kOk : kNotOk, !known);
  }
  OfferDelete();
}

void frmSettle::OfferDelete() {
  const std::vector<ListItem>& rows = ListView1.Items();
  cmdAction(kDelete).Enabled(std::any_of(rows.begin(), rows.end(), [](const ListItem& row) { return row.checked; }));
}

void frmSettle::ListView1_ItemCheck() { OfferDelete(); }

void frmSettle::DeleteMarkedFiles() {
  if (directory_.empty()) return;
  Files& files = modMain::Platform().files;
  // The text and not the key, since on a disk that knows case another file may have the name in upper case. And a file
  // that has gone meanwhile must be left out: its path would stand for the file that differs from it only in case.
  const std::vector<std::string> listed = files.List(directory_);
  const Names present(listed.begin(), listed.end());
  for (const ListItem& row : ListView1.Items()) {
    if (!row.checked || !present.contains(row.text)) continue;
    modMain::IgnoreErrors([&] { files.Remove(directory_ + row.text); });
  }
}

void frmSettle::cmdAction_Click(int index) {
  if (index == kClose) return Hide();
  if (index != kDelete || !modMain::QueryDelete(ResText(271))) return;
  DeleteMarkedFiles();
  ShowFiles();
  MarkFiles();
}

}  // namespace tavrin
