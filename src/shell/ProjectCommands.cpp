#include "shell/ProjectCommands.h"

#include <array>
#include <memory>

#include "model/ProjectLoad.h"
#include "model/cOPC.h"
#include "model/shared/AtExit.h"
#include "model/shared/Messages.h"
#include "model/shared/cWarnings.h"
#include "model/shared/modFiles.h"
#include "model/shared/modMain.h"
#include "model/shared/modText.h"
#include "shell/frmOPC.h"

namespace tavrin {

namespace {

constexpr std::string_view kRootFile = "ZOPCSRV.ini";
constexpr std::string_view kSampleFolder = "INI";

/// Numbers of the entries of mnuFile.
enum FileEntry : int { kNew = 1, kOpen = 2, kSave = 3, kSaveAs = 4, kFirstRecent = 11, kLastRecent = 14, kEnd = 21 };

/// Entries that mean something only while a project is open, by the menu that holds them.
struct ProjectEntries {
  int menu;
  ControlArray<MenuEntry> MainControls::*entries;
  std::array<int, 2> indices;
};

constexpr std::array kProjectEntries{
    ProjectEntries{1, &MainControls::mnuFile, {kSave, kSaveAs}},
    ProjectEntries{3, &MainControls::mnuExtras, {kExtrasReadWarnings, kExtrasWriteWarnings}},
};

/// Offers a list of warnings to the user, unless it is empty.
void Offer(const cWarnings& list, std::int32_t questionText, RightPane& pane) {
  if (list.Count() == 0 || !modMain::Platform().desktop.AskYesNo(ResText(questionText))) return;
  list.Show(pane.vsgWarnings, pane.lblWarnings);
}

/// The writers of INI files do not look whether their lines reach the disk: that is told here, once, and the project
/// stays one with changes.
void SaveAll(cOPC& project) {
  const Services& services = modMain::Platform();
  const std::size_t lostBefore = services.profiles.FailedWrites();
  bool bOK = true;
  project.UpdateAll(false, bOK);
  if (services.profiles.FailedWrites() == lostBefore) return;
  project.bDataDirty(true);
  services.desktop.ShowBox(TextAnd(205, project.szFullName()));
}

}  // namespace

ProjectCommands::ProjectCommands(frmOPC& form) : form_(form) {
  form_.mnuMain.ForEach([this](MenuEntry& menu) { menu.OnOpen = [this, &menu] { mnuMain_Click(menu.Index()); }; });
  form_.mnuFile.ForEach([this](MenuEntry& entry) { entry.OnClick = [this, &entry] { mnuFile_Click(entry.Index()); }; });
  form_.Toolbar1.Buttons.ForEach(
      [this](ToolButton& button) { button.OnClick = [this, &button] { Toolbar1_ButtonClick(button.Index()); }; });
  form_.OnDropFile = [this](const std::string& path) { DropFile(path); };
}

void ProjectCommands::mnuMain_Click(int index) {
  for (const ProjectEntries& row : kProjectEntries) {
    if (row.menu != index) continue;
    for (const int entry : row.indices) (form_.*row.entries)(entry).Enabled(modMain::globals.gOPC != nullptr);
  }
}

void ProjectCommands::mnuFile_Click(int index) try {
  if (index == kNew) New();
  if (index == kOpen) Open();
  if (index == kSave) Save();
  if (index == kSaveAs) SaveAs();
  if (kFirstRecent <= index && index <= kLastRecent) OpenRecent(index);
  if (index == kEnd) {
    bool cancel = false;
    form_.Form_Unload(cancel);
  }
} catch (...) {
  modMain::Trap("frmOPC.mnuFile_Click : ");
}

void ProjectCommands::Toolbar1_ButtonClick(int index) try {
  if (index == kToolNew) mnuFile_Click(kNew);
  if (index == kToolOpen) mnuFile_Click(kOpen);
  if (index == kToolSave) mnuFile_Click(kSave);
  if (index == kToolDelete) Delete();
  if (index == kToolReconfigure) form_.extras.mnuExtras_Click(kExtrasReconfigure);
} catch (...) {
  modMain::Trap("frmOPC.Toolbar1_ButtonClick : ");
}

void ProjectCommands::Delete() {
  const int target = form_.Toolbar1.Buttons(kToolDelete).Tag();
  if (target == kDeleteTags) form_.tags.DeleteSelectedTags();
  if (target == kDeleteNetwork) Run(form_.mnuEdit(kEditDeleteNetwork).OnClick);
  if (target == kDeleteDevice) Run(form_.mnuEdit(kEditDeleteDevice).OnClick);
}

bool ProjectCommands::ReportSave(std::int32_t nResult) {
  if (nResult != kNoFileName && nResult != kNoDirectory) return true;
  modMain::Platform().desktop.ShowBox(ResText(nResult == kNoFileName ? 213 : 214));
  return false;
}

bool ProjectCommands::Guard() {
  std::int32_t nResult = kNothingToDo;
  OPCProjectSaveToDisk(false, nResult);
  return ReportSave(nResult);
}

void ProjectCommands::New() {
  if (!Guard()) return;
  modMain::globals.gOPC = std::make_unique<cOPC>();
  modMain::globals.gOPC->szFileName(kRootFile);
  form_.tree.Rebuild();
}

void ProjectCommands::Open() {
  if (!Guard()) return;
  const Services& services = modMain::Platform();
  OpenFileRequest request;
  request.fileName = kRootFile;
  request.filter = "(" + ResText(13) + ")|" + std::string(kRootFile);
  request.directory = services.applicationDirectory + kPathSeparator + std::string(kSampleFolder);
  if (const auto file = services.desktop.AskOpenFile(request)) OPCProjectLoadFromDisk(*file);
}

void ProjectCommands::Save() {
  std::int32_t nResult = kNothingToDo;
  OPCProjectSaveToDisk(true, nResult);
  ReportSave(nResult);
}

void ProjectCommands::SaveAs() {
  if (!modMain::globals.gOPC) return;
  std::string folder = BrowseForFolder(PlainText(44));
  if (folder.empty()) return;
  if (folder.back() != kPathSeparator) folder += kPathSeparator;
  if (!FolderExists(folder)) return;
  modMain::globals.gszProjectDir = folder;
  Save();
}

void ProjectCommands::OpenRecent(int index) {
  const std::string file = form_.mnuFile(index).Caption();  // as it was chosen: the guard may change the list
  Guard();  // told, but not obeyed: choosing an entry opens it in any case
  OPCProjectLoadFromDisk(file);
}

void ProjectCommands::DropFile(const std::string& path) try {
  if (Guard()) OPCProjectLoadFromDisk(path);
} catch (...) {
  modMain::Trap("frmOPC.OnDropFile : ");
}

void ProjectCommands::OPCProjectLoadFromDisk(const std::string& szFile) try {
  Desktop& desktop = modMain::Platform().desktop;
  desktop.Pointer(MousePointer::Hourglass);
  const AtExit normalPointer([&desktop] { desktop.Pointer(MousePointer::Normal); });
  if (szFile.empty()) return;
  if (!FileExists(szFile)) {
    desktop.ShowBox(TextAnd(201, szFile));
    return;
  }
  LoadProject(szFile);
  form_.tree.Rebuild();
  Offer(modMain::ReadWarnings(), 202, form_);
  const std::string fullName = modMain::OpenProject().szFullName();
  form_.recent.SetNewMRU(fullName);
  form_.Caption(ResText(1) + " -" + " (" + fullName + ")");
} catch (...) {
  modMain::Trap("frmOPC.OPCProjectLoadFromDisk : ");
}

void ProjectCommands::OPCProjectSaveToDisk(bool bForce, std::int32_t& nResult) try {
  nResult = kNothingToDo;
  if (!modMain::globals.gOPC) return;
  const bool dirty = modMain::globals.gOPC->bOpcProjectDirty();
  if (bForce || dirty) Write(nResult);
  form_.recent.SetNewMRU(modMain::OpenProject().szFullName());
} catch (...) {
  modMain::Trap("frmOPC.OPCProjectSaveToDisk : ");
}

void ProjectCommands::Write(std::int32_t& nResult) {
  if (modMain::globals.gbQueryOnSave && !modMain::Platform().desktop.AskYesNo(ResText(21))) return;
  nResult = kNoFileName;
  cOPC& project = modMain::OpenProject();
  if (project.szFileName().empty()) return;
  nResult = kNoDirectory;
  if (modMain::globals.gszProjectDir.empty()) return;
  nResult = kSaved;
  SaveAll(project);
  Offer(modMain::WriteWarnings(), 206, form_);
}

}  // namespace tavrin
