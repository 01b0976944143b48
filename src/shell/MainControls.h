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
/// What the delete button deletes: its tag.
enum DeleteTarget : int { kDeleteTags = 0, kDeleteNetwork = 1, kDeleteDevice = 2 };

}  // namespace tavrin
