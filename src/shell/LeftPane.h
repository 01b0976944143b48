#pragma once

#include "platform/controls/Picture.h"
#include "platform/controls/Tree.h"

namespace tavrin {

/// The controls of the main window that come before the grids, for the keyboard and on the screen alike: the Tab key
/// goes from the tree on to the grids, and the bar between device sheet and tags, which reaches across the whole
/// window, passes below tree and sheets.
struct LeftPane {
  explicit LeftPane(Form& form);

  Picture imgSplitterVert;  ///< bar between device sheet and tags, dragged up and down
  Tree tvwMain;
};

}  // namespace tavrin
