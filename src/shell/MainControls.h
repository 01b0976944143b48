#pragma once

#include <string_view>

#include "model/shared/RightPane.h"
#include "platform/controls/ControlArray.h"
#include "platform/controls/MenuEntry.h"
#include "platform/controls/Picture.h"
#include "platform/controls/Toolbar.h"
#include "shell/LeftPane.h"

namespace tavrin {

/// The controls of the main window under their names, in the state in which they are designed: places, pictures,
/// which menu holds which entries (MenuTable.h). Words come later, by GetStaticTexts.
struct MainControls : LeftPane, RightPane {
  explicit MainControls(Form& form);

  /// The menu of a name. @throws RuntimeError 9 for a name that no menu has
  [[nodiscard]] ControlArray<MenuEntry>& Menu(std::string_view name);

  Toolbar Toolbar1;
  Picture picLogo1;         ///< logo of ZELKAR
  Picture PicLogo2;         ///< logo of QORVANE
  Picture Frame1;           ///< line below the tool bar
  Picture imgSplitterHorz;  ///< bar between tree and sheets, dragged across
  Picture picSplitterHorz;  ///< shadow of imgSplitterHorz; its left is the state of the layout
  Picture picSplitterVert;  ///< shadow of imgSplitterVert; its top is the state of the layout

  ControlArray<MenuEntry> mnuMain;  ///< 1 file, 2 edit, 3 extras, 4 help, 5 tag grid (popup only)
  ControlArray<MenuEntry> mnuFile;
  ControlArray<MenuEntry> mnuEdit;
  ControlArray<MenuEntry> mnuExtras;
  ControlArray<MenuEntry> mnuLanguage;  ///< below mnuExtras 3; from 2 on made when the languages are known
  ControlArray<MenuEntry> mnuSize;      ///< below mnuExtras 4
  ControlArray<MenuEntry> mnuLog;       ///< below mnuExtras 6
  ControlArray<MenuEntry> mnuHelp;
  ControlArray<MenuEntry> mnuTest;  ///< below mnuMain 5

 private:
  void DesignPlaces();
  void DesignGrids();
  void DesignTools();
  void DesignMenus(Form& form);
};

/// Numbers of the tool buttons.
enum ToolNumber : int { kToolNew = 2, kToolOpen = 3, kToolSave = 4, kToolDelete = 6, kToolReconfigure = 8 };
/// Numbers of the entries of mnuEdit.
enum EditEntry : int {
  kEditAddNetwork = 1,
  kEditDeleteNetwork = 2,
  kEditAddDevice = 3,
  kEditDeleteDevice = 4,
  kEditRename = 5,
  kEditTest = 6,
};
/// Numbers of the entries of mnuExtras.
enum ExtrasEntry : int {
  kExtrasReadWarnings = 1,
  kExtrasWriteWarnings = 2,
  kExtrasLanguages = 3,
  kExtrasFontSize = 4,
  kExtrasOpcSettings = 5,
  kExtrasLogs = 6,
  kExtrasUsers = 7,
  kExtrasServices = 8,
  kExtrasEventLog = 9,
  kExtrasReconfigure = 10,
  kExtrasCleanUp = 11,
  kExtrasOptions = 12,
};
/// Numbers of the entries of mnuLog.
enum LogEntry : int { kLog1 = 1, kLog2 = 2 };
/// Numbers of the entries of mnuHelp.
enum HelpEntry : int { kHelpManual = 1, kHelpAbout = 2, kHelpSystem = 3, kHelpVersions = 4 };
/// What the delete button deletes: its tag.
enum DeleteTarget : int { kDeleteTags = 0, kDeleteNetwork = 1, kDeleteDevice = 2 };

}  // namespace tavrin
