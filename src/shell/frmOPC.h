#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "editing/SheetEditing.h"
#include "platform/controls/Form.h"
#include "shell/Extras.h"
#include "shell/Help.h"
#include "shell/Languages.h"
#include "shell/LogFiles.h"
#include "shell/MainControls.h"
#include "shell/OnlineCommands.h"
#include "shell/ProjectCommands.h"
#include "shell/ProjectTree.h"
#include "shell/RecentProjects.h"
#include "shell/ScreenLayout.h"
#include "shell/StructureCommands.h"
#include "shell/TagGrid.h"
#include "shell/UserSettings.h"
#include "shell/WarningsGrid.h"

namespace tavrin {

/// The main window and the program's entry: its controls, its state, and the parts that give them life, each with one
/// duty. One is live at a time. Needs modMain::globals.services.
class frmOPC : public Form, public MainControls {
 public:
  /// Registers the window as modMain::globals.pane. @param commandLine the words behind the program's name, joined by
  /// blanks
  explicit frmOPC(std::string commandLine);
  ~frmOPC() override;

  /// The start of the program, up to the window on the screen. A failure of its own ends there, told by a box. When
  /// texts or syntax checks cannot be had, a box says so in German (there are no words yet) and the process ends.
  void Form_Load();
  /// Saves settings and project; ends the process unless the project could not be saved for want of a name or a
  /// directory, in which case `cancel` is set.
  void Form_Unload(bool& cancel);
  void Form_Resize();

  /// Application name in the settings store.
  std::string szAppKey;
  /// The projects used last, newest first.
  std::string szMRU1;
  std::string szMRU2;
  std::string szMRU3;
  std::string szMRU4;
  /// The window's place from the settings, twips.
  float fLeft = 0;
  float fTop = 0;
  float fWidth = 0;
  float fHeight = 0;
  /// 8 or 12 points.
  std::int32_t nFontSize = 8;
  /// Button of the last press on the tree: 1 left, 2 right.
  std::int32_t nMouseButton = 1;
  /// A splitter is being dragged.
  bool bSplitterDrag = false;

  ScreenLayout layout{*this};
  ProjectTree tree{*this};
  RecentProjects recent{*this};
  ProjectCommands commands{*this};
  Languages languages{*this};
  UserSettings settings{*this};
  TagGrid tags{*this};
  WarningsGrid warnings{*this};
  Extras extras{*this};
  OnlineCommands online{*this};
  LogFiles logs{*this};
  Help help{*this};
  StructureCommands structure{*this};
  /// In the order of Sheets().
  std::vector<std::unique_ptr<SheetEditing>> sheets;

 private:
  void ShowLogo();
  void ReadCommandLine();
  /// @return false when the process ends
  bool ProbeLibraries();
  void HideProject();
  void OfferReconfiguration();
  void EnlargeToMinimum();

  std::string commandLine_;
};

/// True when the system knows the service of the brand's server; it need not run.
[[nodiscard]] bool OPCServerInstalled();

}  // namespace tavrin
