#pragma once

#include <cstdint>
#include <string>

namespace tavrin {

class frmOPC;

/// Results of OPCProjectSaveToDisk.
enum SaveResult : std::int32_t {
  kSaved = 0,
  kNoFileName = 1,   ///< the root has no file name
  kNoDirectory = 2,  ///< no project directory is known
  kNothingToDo = 3,  ///< no project, nothing to write, or the user answered no
};

/// New, Open, Save, Save as and the recent projects: the menu, the tool bar, and a file that is dropped on the window.
class ProjectCommands {
 public:
  /// Wires the file menu, the opening of the top menus, the tool bar and the drop.
  explicit ProjectCommands(frmOPC& form);

  void mnuMain_Click(int index);
  void mnuFile_Click(int index);
  void Toolbar1_ButtonClick(int index);

  /// Opens the project whose root file has the full path, under the hourglass. The open project goes unless the path is
  /// empty or no such file exists.
  void OPCProjectLoadFromDisk(const std::string& szFile);
  /// Writes the project when anything of it differs from disk, or in any case when `bForce`; asks first when the user
  /// wants to be asked.
  void OPCProjectSaveToDisk(bool bForce, std::int32_t& nResult);
  /// Shows the message of a result that means the project was not saved. @return false for such a result
  bool ReportSave(std::int32_t nResult);

 private:
  /// What comes before another project is opened or made. @return false when the command must stop
  bool Guard();
  void New();
  void Open();
  void Save();
  void SaveAs();
  void OpenRecent(int index);
  void DropFile(const std::string& path);
  void Write(std::int32_t& nResult);
  void Delete();

  frmOPC& form_;
};

}  // namespace tavrin
