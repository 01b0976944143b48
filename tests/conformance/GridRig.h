#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/controls/Form.h"
#include "platform/controls/Grid.h"

namespace tavrin {

/// A small editable grid in a form: a heading, five rows; column 0 is fixed and hidden, columns 1 to 3 can be seen. A
/// second grid stands for the rest of the window. Everything that handlers are told is written down.
class GridRig {
 public:
  GridRig();

  Form form{"frmTest"};
  Grid grid{form, "vsgTest"};
  Grid other{form, "vsgOther"};
  std::vector<std::string> events;
  /// Choices that the next edits offer.
  std::string choices;
  /// A character that edits refuse.
  char refused = 0;
  /// Enter goes on to the next cell.
  bool enterIsTab = false;

 private:
  void ListenToEdits();
};

/// All that a grid holds, for a comparison.
[[nodiscard]] std::string Snapshot(const Grid& grid);

}  // namespace tavrin
