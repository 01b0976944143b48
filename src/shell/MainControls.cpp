#include "shell/MainControls.h"

#include <array>
#include <map>
#include <vector>

#include "platform/RuntimeError.h"
#include "platform/controls/Form.h"
#include "shell/MenuTable.h"

namespace tavrin {

namespace {

constexpr Rect kToolbarPlace{0, 0, 4500, 330};
constexpr Rect kLogoPlace{10020, 0, 1800, 330};
constexpr Rect kLinePlace{0, 330, 12000, 30};
constexpr Rect kTreePlace{150, 480, 1850, 8800};
constexpr float kBarThickness = 90;
constexpr float kSplit = 2000;

/// One line in the larger of the two fonts.
constexpr float kTagLabelHeight = 330;
/// Room for the four lines that a long warning takes.
constexpr float kWarningLabelHeight = 1080;

/// Last columns reach to the edge of their grid. These widths fit into the window of the first start; a longer text can
/// be read in full in the label beside the grid.
constexpr float kCommentWidth = 2400;
constexpr float kWarningWidth = 5000;

}  // namespace

LeftPane::LeftPane(Form& form)
    : imgSplitterVert(form, "imgSplitterVert", PictureKind::Splitter), tvwMain(form, "tvwMain") {}

MainControls::MainControls(Form& form)
    : LeftPane(form),
      RightPane(form),
      Toolbar1(form, "Toolbar1"),
      picLogo1(form, "picLogo1", PictureKind::Image),
      PicLogo2(form, "PicLogo2", PictureKind::Image),
      Frame1(form, "Frame1", PictureKind::Line),
      imgSplitterHorz(form, "imgSplitterHorz", PictureKind::Splitter),
      picSplitterHorz(form, "picSplitterHorz", PictureKind::Shadow),
      picSplitterVert(form, "picSplitterVert", PictureKind::Shadow),
      mnuMain(form, "mnuMain"),
      mnuFile(form, "mnuFile"),
      mnuEdit(form, "mnuEdit"),
      mnuExtras(form, "mnuExtras"),
      mnuLanguage(form, "mnuLanguage"),
      mnuSize(form, "mnuSize"),
      mnuLog(form, "mnuLog"),
      mnuHelp(form, "mnuHelp"),
      mnuTest(form, "mnuTest") {
  DesignPlaces();
  DesignGrids();
  DesignTools();
  DesignMenus(form);
}

ControlArray<MenuEntry>& MainControls::Menu(std::string_view name) {
  const std::array menus{&mnuMain, &mnuFile, &mnuEdit, &mnuExtras, &mnuLanguage, &mnuSize, &mnuLog, &mnuHelp, &mnuTest};
  for (ControlArray<MenuEntry>* menu : menus) {
    if (menu->Name() == name) return *menu;
  }
  throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
}

void MainControls::DesignPlaces() {
  Toolbar1.Place(kToolbarPlace);
  picLogo1.Image("ZELKAR");
  picLogo1.Place(kLogoPlace);
  PicLogo2.Image("QORVANE");
  PicLogo2.Place(kLogoPlace);
  Frame1.Place(kLinePlace);
  tvwMain.Place(kTreePlace);
  imgSplitterHorz.Place({kSplit, kTreePlace.top, kBarThickness, kTreePlace.height});
  imgSplitterVert.Place({0, kSplit, kLinePlace.width, kBarThickness});
  picSplitterHorz.Place(imgSplitterHorz.Place());
  picSplitterHorz.Visible(false);
  picSplitterVert.Place(imgSplitterVert.Place());
  picSplitterVert.Visible(false);
  lblTags.Place({0, 0, 0, kTagLabelHeight});
  lblWarnings.Place({0, 0, 0, kWarningLabelHeight});
}

void MainControls::DesignGrids() {
  for (Grid* sheet : Sheets()) sheet->Shape(2, 2, 1, 1);
  vsgTags.Shape(1, 10, 1, 1);
  vsgTags.ColWidth(0, 0);
  vsgTags.ColWidth(9, kCommentWidth);
  vsgWarnings.Shape(1, 3, 1, 0);
  vsgWarnings.ColWidth(2, kWarningWidth);
}

void MainControls::DesignTools() {
  for (const ToolRow& row : ToolTable()) Toolbar1.Buttons.Load(row.index).Image(row.image);
  Toolbar1.Buttons(kToolDelete).Enabled(false);
}

void MainControls::DesignMenus(Form& form) {
  std::map<std::string_view, MenuEntry*> above;
  for (const MenuRow& row : MenuTable()) {
    MenuEntry& entry = Menu(row.menu).Load(row.index);
    entry.Caption(row.caption);
    entry.Shortcut(row.shortcut);
    entry.Enabled(row.state != MenuState::Disabled);
    entry.Visible(row.state != MenuState::Hidden);
    if (const auto parent = above.find(row.menu); parent != above.end()) parent->second->Add(entry);
    if (!row.submenu.empty()) above[row.submenu] = &entry;
  }
  std::vector<MenuEntry*> bar;
  mnuMain.ForEach([&bar](MenuEntry& entry) { bar.push_back(&entry); });
  form.MenuBar(std::move(bar));
}

}  // namespace tavrin
