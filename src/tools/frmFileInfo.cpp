#include "tools/frmFileInfo.h"

#include <algorithm>
#include <array>
#include <memory>
#include <string>
#include <vector>

#include "model/shared/modFiles.h"
#include "model/shared/modMain.h"
#include "model/shared/modText.h"
#include "tools/CFileInfo.h"
#include "tools/CFileVersionInfo.h"

namespace tavrin {

namespace {

enum Action : int { kSave = 0, kClose = 1 };

/// The words are the same in every language.
constexpr std::string_view kSortTip = "Doppelclicken zum Sortieren";

constexpr Rect kWindow{0, 0, 8100, 6000};

struct ReportColumn {
  int heading;
  float width;              ///< twips; 0 leaves it as it is, since the last column reaches to the edge
  std::int32_t characters;  ///< in the file
};

constexpr std::array<ReportColumn, 3> kColumns{{{100, 3000, 32}, {104, 1800, 20}, {105, 0, 18}}};

/// A library of the system, and the name that tells support that it is missing.
struct Library {
  std::string_view name;
  std::string_view missing;
};

/// The first is known to support by the name of the library that once did its work, and is looked for by its own.
constexpr std::array<Library, 5> kLibraries{{{"OPCDAAuto.dll", "opcAutoSofting.dll"},
                                             {"OPCCOMN_PS.DLL", "OPCCOMN_PS.DLL"},
                                             {"OPCPROXY.DLL", "OPCPROXY.DLL"},
                                             {"OPCENUM.EXE", "OPCENUM.EXE"},
                                             {"OPC_AEPS.DLL", "OPC_AEPS.DLL"}}};

/// Some disks allow control characters in names, and authors type them into versions: they would make further cells and
/// lines.
std::string OneCell(std::string text) {
  std::replace_if(
      text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < ' '; }, ' ');
  return text;
}

/// Up to the tab that would begin a cell behind the last column.
std::string UpToTab(const std::string& text) { return text.substr(0, text.find('\t')); }

std::string RowOf(const CFileInfo& file) {
  CFileVersionInfo version;
  version.FullPathName(file.FullPathName());
  std::string row = OneCell(file.FileName()) + '\t' + CFileInfo::FormatFileDate(file.CreationTime());
  if (version.Available()) row += '\t' + OneCell(UpToTab(version.FileVersion()));
  return row;
}

std::string RowOf(const Library& library, const std::string& directory) {
  CFileInfo file;
  file.FullPathName(directory + kPathSeparator + std::string(library.name));
  return file.FileName().empty() ? std::string(library.missing) + '\t' + ResText(222) : RowOf(file);
}

std::string LineOf(const Grid& grid, int row) {
  std::string line;
  for (std::size_t col = 0; col < kColumns.size(); ++col) {
    line += modMain::PadRight(grid.Text({row, static_cast<int>(col)}), kColumns[col].characters);
  }
  return line + "\r\n";
}

}  // namespace

frmFileInfo::frmFileInfo() : Form("frmFileInfo"), vsgFileInfo(*this, "vsgFileInfo"), cmdAction(*this, "cmdAction") {
  Arrange();
  GUI_Init();
  GetFileVersions();
}

void frmFileInfo::Arrange() {
  Place(kWindow);
  cmdAction.Load(kSave);
  cmdAction.Load(kClose).Role(ButtonRole::Cancel);
  cmdAction.ForEach([this](Button& button) { button.OnClick = [this, &button] { cmdAction_Click(button.Index()); }; });
  vsgFileInfo.Shape(1, static_cast<int>(kColumns.size()), 1, 0);
  vsgFileInfo.OnDblClick = [this] { vsgFileInfo_DblClick(); };
  vsgFileInfo.OnMouseMove = [this] { vsgFileInfo_MouseMove(); };
  Arrangement({{&vsgFileInfo}, {&cmdAction(kSave), &cmdAction(kClose)}});
}

void frmFileInfo::GUI_Init() try {
  Caption(ResText(39));
  vsgFileInfo.SpokenName(ResText(39));
  cmdAction(kSave).Caption(ResText(29));
  cmdAction(kClose).Caption(ResText(28));
  for (std::size_t i = 0; i < kColumns.size(); ++i) {
    const int col = static_cast<int>(i);
    vsgFileInfo.Text({0, col}, ResText(kColumns[i].heading));
    if (kColumns[i].width > 0) vsgFileInfo.ColWidth(col, kColumns[i].width);
  }
} catch (...) {
  modMain::Trap("frmFileInfo.GUI_Init : ");
}

void frmFileInfo::GetFileVersions() try {
  const std::vector<std::string> paths = ListFiles(modMain::Platform().applicationDirectory, "*.*");
  for (std::size_t i = 1; i < paths.size(); ++i) {
    // In the spelling of the disk: where case counts, any other one may be another file's.
    CFileInfo file;
    file.FullPathName(paths[i]);
    vsgFileInfo.AddItem(RowOf(file));
  }
  const std::string directory = SystemDirectory();
  for (const Library& library : kLibraries) vsgFileInfo.AddItem(RowOf(library, directory));
  vsgFileInfo.Select({1, 0});
} catch (...) {
  modMain::Trap("frmFileInfo.GetFileVersions : ");
}

void frmFileInfo::Save() try {
  const Services& services = modMain::Platform();
  const std::string path = services.applicationDirectory + kPathSeparator + "LOG" + kPathSeparator + "VERSIONS.TXT";
  const std::unique_ptr<OutputFile> file = services.files.Create(path);
  for (int row = 1; row < vsgFileInfo.Rows(); ++row) file->Write(LineOf(vsgFileInfo, row));
  services.desktop.ShowBox(ResText(19) + " (" + path + ")");
} catch (...) {
  modMain::Trap("frmFileInfo.Save : ");
}

void frmFileInfo::vsgFileInfo_DblClick() {
  const Cell clicked = vsgFileInfo.MouseCell();
  if (clicked.row != 0) return;
  vsgFileInfo.Select({vsgFileInfo.Row(), clicked.col});
  vsgFileInfo.SortAscending();
}

void frmFileInfo::vsgFileInfo_MouseMove() {
  vsgFileInfo.ToolTip(vsgFileInfo.MouseCell().row == 0 ? kSortTip : std::string_view{});
}

void frmFileInfo::cmdAction_Click(int index) {
  if (index == kSave) Save();
  if (index == kClose) Hide();
}

}  // namespace tavrin
