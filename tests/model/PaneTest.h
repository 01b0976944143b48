#pragma once

#include <array>
#include <string>
#include <vector>

#include "model/shared/RightPane.h"
#include "platform/controls/Form.h"
#include "support/ProjectTest.h"

namespace tavrin {

/// Writes down what a grid tells its view.
class GridRecorder : public GridListener {
 public:
  explicit GridRecorder(Grid& grid) : grid_(grid) { grid_.Listen(this); }
  ~GridRecorder() override { grid_.Listen(nullptr); }

  void OnAboutToReset() override { told.emplace_back("about to reset"); }
  void OnReset() override { told.emplace_back("reset"); }
  void OnRowsAboutToBeAdded(int, int) override { told.emplace_back("about to add"); }
  void OnRowsAdded() override { told.emplace_back("added"); }
  void OnRowsAboutToBeRemoved(int, int) override { told.emplace_back("about to remove"); }
  void OnRowsRemoved() override { told.emplace_back("removed"); }
  void OnCellChanged(Cell) override { told.emplace_back("cell"); }
  void OnColumnsChanged() override { told.emplace_back("columns"); }
  void OnSelectionChanged() override { told.emplace_back("selection"); }
  void OnTopRowChanged() override { told.emplace_back("top row"); }
  void OnEditChanged() override { told.emplace_back("edit"); }

  std::vector<std::string> told;

 private:
  Grid& grid_;
};

/// A project beside the sheets of a main window, which have their shape but no texts.
class PaneTest : public ProjectTest {
 protected:
  PaneTest() {
    modMain::globals.pane = &pane;
    constexpr std::array<int, 11> kRows{6, 9, 6, 4, 4, 4, 5, 9, 9, 12, 10};
    for (std::size_t i = 0; i < kRows.size(); ++i) pane.Sheets()[i]->Shape(kRows[i], 2, 1, 1);
    pane.vsgTags.Shape(1, 10, 1, 1);
    pane.vsgWarnings.Shape(1, 3, 1, 0);
  }
  ~PaneTest() override { modMain::globals.pane = nullptr; }

  /// A column of a grid from row 1 on.
  static std::vector<std::string> Column(const Grid& grid, int col) {
    std::vector<std::string> texts;
    for (int row = 1; row < grid.Rows(); ++row) texts.push_back(grid.Text({row, col}));
    return texts;
  }
  /// The rows of a grid from row 1 on, their cells joined by "|".
  static std::vector<std::string> Lines(const Grid& grid) {
    std::vector<std::string> lines;
    for (int row = 1; row < grid.Rows(); ++row) {
      std::string line;
      for (int col = 0; col < grid.Cols(); ++col) line += (col == 0 ? "" : "|") + grid.Text({row, col});
      lines.push_back(line);
    }
    return lines;
  }
  /// The names of the grids and labels on show.
  std::vector<std::string> OnShow() {
    std::vector<std::string> names;
    for (const Grid* grid : pane.Grids()) {
      if (grid->Visible()) names.push_back(grid->Name());
    }
    for (const Label* label : {&pane.lblTags, &pane.lblWarnings}) {
      if (label->Visible()) names.push_back(label->Name());
    }
    return names;
  }

  Form form{"frmOPC"};
  RightPane pane{form};
};

}  // namespace tavrin
