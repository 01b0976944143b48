#pragma once

#include "platform/controls/Signal.h"

namespace tavrin {

class frmOPC;
class Control;
class Picture;
struct Rect;

/// Shape and place of everything in the main window; all lengths are twips.
class ScreenLayout {
 public:
  /// Wires splitters and the menu of the font sizes.
  explicit ScreenLayout(frmOPC& form);

  /// Gives grids and tree their shape and labels, switches the entries of the edit menu and the delete button off until
  /// a node is clicked, and sets the font.
  void GUI_Init();
  /// Computes all places from the size of the window and the two splitters; errors are ignored.
  void SizeControls();
  /// Gives all grids and the tree the font size nFontSize.
  void SetFont();
  /// 1 small, 2 large.
  void mnuSize_Click(int index);

  /// Splitters stay this far from the edges of the window.
  static constexpr float kSplitterMargin = 2000;

 private:
  enum class Direction { Across, UpAndDown };

  void WireSplitter(Picture& bar, Picture& shadow, Direction direction);
  void Drag(const Picture& bar, Picture& shadow, Direction direction, float distance);
  void EndDrag(Picture& shadow);
  void ShowSplitters();

  void ShapeSheets();
  void ShapeLists();
  void SwitchCommandsOff();

  void PlaceTree();
  /// @param right what is left for the right pane
  void PlaceWarnings(const Rect& right);
  void PlaceDevice(const Rect& right);

  frmOPC& form_;
  Connection treeChanged_;
  Connection tagsChanged_;
};

}  // namespace tavrin
