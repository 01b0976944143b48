#include "shell/ScreenLayout.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "model/shared/AtExit.h"
#include "model/shared/modMain.h"
#include "model/shared/modText.h"
#include "model/sheets/SheetLabels.h"
#include "shell/SheetTable.h"
#include "shell/frmOPC.h"

namespace tavrin {

namespace {

constexpr std::int32_t kSmall = 8;
constexpr std::int32_t kLarge = 12;

constexpr float kTreeIndentation = 300;
/// Title, menu and margin below the tree.
constexpr float kAroundTree = 720;
constexpr float kRightMargin = 150;
/// Between a grid and the label that belongs to it.
constexpr float kLabelGap = 60;

/// A place that cannot be is no reason not to place the others.
void Move(Control& control, const Rect& place) {
  modMain::IgnoreErrors([&] { control.Place(place); });
}

void SetAlignment(Grid& grid, int first, int last, Alignment alignment) {
  for (int col = first; col <= last; ++col) grid.ColAlignment(col, alignment);
}

}  // namespace

ScreenLayout::ScreenLayout(frmOPC& form)
    : form_(form),
      treeChanged_(form.tvwMain.Changed.Connect([this] { ShowSplitters(); })),
      tagsChanged_(form.vsgTags.Changed.Connect([this] { ShowSplitters(); })) {
  WireSplitter(form_.imgSplitterHorz, form_.picSplitterHorz, Direction::Across);
  WireSplitter(form_.imgSplitterVert, form_.picSplitterVert, Direction::UpAndDown);
  form_.mnuSize.ForEach(
      [this](MenuEntry& entry) { entry.OnClick = [this, index = entry.Index()] { mnuSize_Click(index); }; });
}

// ---- shape

void ScreenLayout::GUI_Init() try {
  ShapeSheets();
  ShapeLists();
  form_.tvwMain.Indentation(kTreeIndentation);
  SwitchCommandsOff();
  SetFont();
} catch (...) {
  modMain::Trap("frmOPC.GUI_Init : ");
}

void ScreenLayout::ShapeSheets() {
  const auto sheets = form_.Sheets();
  for (std::size_t i = 0; i < sheets.size(); ++i) {
    Grid& sheet = *sheets[i];
    const std::vector<int> labels = SheetLabels(static_cast<int>(i));
    const AtExit redraw([&sheet] { sheet.Redraw(true); });
    sheet.Redraw(false);
    sheet.Shape(static_cast<int>(labels.size()) + 1, 2, FixedRowsOfSheets()[i], 1);
    sheet.ColWidth(0, kLabelWidth);
    sheet.ColWidth(1, kValueWidth);
    for (int row = 1; row < sheet.Rows(); ++row) {
      sheet.Text({row, 0}, ResText(labels[static_cast<std::size_t>(row - 1)]));
    }
  }
}

void ScreenLayout::ShapeLists() {
  Grid& tags = form_.vsgTags;
  {
    const AtExit redraw([&tags] { tags.Redraw(true); });
    tags.Redraw(false);
    tags.Shape(1, 10, 1, 1);
    SetAlignment(tags, 1, 2, Alignment::Left);
    SetAlignment(tags, 4, 8, Alignment::Right);
    SetAlignment(tags, 9, 9, Alignment::Left);
  }
  Grid& warnings = form_.vsgWarnings;
  const AtExit redraw([&warnings] { warnings.Redraw(true); });
  warnings.Redraw(false);
  warnings.Shape(1, 3, 1, 0);
  warnings.ColWidth(0, 900);
  warnings.ColWidth(1, 2000);
}

void ScreenLayout::SwitchCommandsOff() {
  for (int index = 1; index <= 5; ++index) form_.mnuEdit(index).Enabled(false);
  form_.mnuEdit(6).Visible(false);
  form_.Toolbar1.Buttons(kToolDelete).Enabled(false);
}

// ---- font

void ScreenLayout::SetFont() {
  const auto points = static_cast<float>(form_.nFontSize);
  for (Grid* grid : form_.Grids()) grid->FontSize(points);
  form_.tvwMain.FontSize(points);
}

void ScreenLayout::mnuSize_Click(int index) {
  form_.nFontSize = index == 1 ? kSmall : kLarge;
  form_.mnuSize.ForEach([index](MenuEntry& entry) { entry.Checked(entry.Index() == index); });
  SetFont();
}

// ---- places

void ScreenLayout::SizeControls() {
  PlaceTree();
  const Rect tree = form_.tvwMain.Place();
  const float left = tree.Right() + std::trunc(form_.imgSplitterHorz.Place().width);
  const Rect right{left, tree.top, form_.Place().width - left - kRightMargin, tree.height};
  const auto sheets = form_.Sheets();
  for (std::size_t i = 0; i < RightPane::kFirstDeviceSheet; ++i) Move(*sheets[i], right);
  PlaceWarnings(right);
  PlaceDevice(right);
}

void ScreenLayout::PlaceTree() {
  const float splitX = form_.picSplitterHorz.Place().left;
  Rect tree = form_.tvwMain.Place();
  tree.width = splitX - tree.left;
  tree.height = form_.Place().height - tree.top - kAroundTree;
  Move(form_.tvwMain, tree);
  // The tree goes first, so that a window that is suddenly larger never has a bar that is shorter than its tree.
  const Rect& placed = form_.tvwMain.Place();
  Move(form_.imgSplitterHorz, {splitX, placed.top, form_.imgSplitterHorz.Place().width, placed.height});
}

void ScreenLayout::PlaceWarnings(const Rect& right) {
  const float labelHeight = form_.lblWarnings.Place().height;
  Move(form_.vsgWarnings, {right.left, right.top, right.width, right.height - labelHeight - kLabelGap});
  const float labelTop = form_.vsgWarnings.Place().Bottom() + kLabelGap;
  Move(form_.lblWarnings, {right.left, labelTop, right.width, labelHeight});
}

void ScreenLayout::PlaceDevice(const Rect& right) {
  const float splitY = form_.picSplitterVert.Place().top;
  const float bar = std::trunc(form_.imgSplitterHorz.Place().width);
  const auto sheets = form_.Sheets();
  for (std::size_t i = RightPane::kFirstDeviceSheet; i < sheets.size(); ++i) {
    Move(*sheets[i], {right.left, right.top, right.width, splitY - right.top});
  }
  const float labelHeight = form_.lblTags.Place().height;
  Move(form_.lblTags, {right.left, splitY + bar, right.width, labelHeight});
  const float tagsTop = form_.lblTags.Place().Bottom() + kLabelGap;
  const float tagsHeight = form_.vsgOPC.Place().height - sheets.back()->Place().height - bar - labelHeight - kLabelGap;
  Move(form_.vsgTags, {right.left, tagsTop, right.width, tagsHeight});
  Move(form_.imgSplitterVert, {0, splitY, form_.Place().width, form_.imgSplitterVert.Place().height});
}

// ---- splitters

void ScreenLayout::WireSplitter(Picture& bar, Picture& shadow, Direction direction) {
  bar.OnMouseDown = [this, &bar, &shadow](float, float) {
    shadow.Place(bar.Place());
    shadow.Visible(true);
    form_.bSplitterDrag = true;
  };
  bar.OnMouseMove = [this, &bar, &shadow, direction](float x, float y) {
    if (form_.bSplitterDrag) Drag(bar, shadow, direction, direction == Direction::Across ? x : y);
  };
  bar.OnMouseUp = [this, &shadow](float, float) { EndDrag(shadow); };
}

void ScreenLayout::Drag(const Picture& bar, Picture& shadow, Direction direction, float distance) {
  const bool across = direction == Direction::Across;
  const Rect& window = form_.Place();
  const float limit = (across ? window.width : window.height) - kSplitterMargin;
  const float wanted = (across ? bar.Place().left : bar.Place().top) + distance;
  Rect place = shadow.Place();
  (across ? place.left : place.top) = wanted < kSplitterMargin ? kSplitterMargin : std::min(wanted, limit);
  shadow.Place(place);
}

void ScreenLayout::EndDrag(Picture& shadow) {
  SizeControls();
  shadow.Visible(false);
  form_.bSplitterDrag = false;
}

void ScreenLayout::ShowSplitters() {
  // A bar without anything beside it would only be in the way of the Tab key.
  form_.imgSplitterHorz.Visible(form_.tvwMain.Visible());
  form_.imgSplitterVert.Visible(form_.vsgTags.Visible());
}

}  // namespace tavrin
