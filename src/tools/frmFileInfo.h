#pragma once

#include "platform/controls/Button.h"
#include "platform/controls/ControlArray.h"
#include "platform/controls/Form.h"
#include "platform/controls/Grid.h"

namespace tavrin {

/// Name, date and version of every file of the program and of the OPC system libraries, for support: to be looked at,
/// sorted, and written to LOG/VERSIONS.TXT in the program's directory.
class frmFileInfo : public Form {
 public:
  /// Opened modally by its user (Desktop::ShowModal).
  frmFileInfo();

  Grid vsgFileInfo;                ///< columns: name, creation time, version; empty for a file that tells none
  ControlArray<Button> cmdAction;  ///< 0 save, 1 close

  void GUI_Init();
  /// Adds a row for every file.
  void GetFileVersions();
  /// Writes the rows as they stand in the grid, and says where.
  void Save();

  void vsgFileInfo_DblClick();
  void vsgFileInfo_MouseMove();
  void cmdAction_Click(int index);

 private:
  void Arrange();
};

}  // namespace tavrin
