#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "app/session/Stage.h"
#include "platform/controls/Grid.h"
#include "platform/controls/ListBox.h"

namespace tavrin {

/// Notes which cells of one grid change.
class GridWatch : public GridListener {
 public:
  explicit GridWatch(Grid& grid) : grid_(grid) { grid_.Listen(this); }
  ~GridWatch() override { grid_.Listen(nullptr); }

  /// Tells the changed cells of a grid that the user has seen all the time, and forgets them.
  void TellChanges(Transcript& transcript, bool wasSeen);
  [[nodiscard]] const Grid& Watched() const { return grid_; }
  /// More cells than these are counted only.
  static constexpr std::size_t kMostCells = 50;

  void OnAboutToReset() override {}
  void OnReset() override { renewed_ = true; }
  void OnRowsAboutToBeAdded(int, int) override {}
  void OnRowsAdded() override {}
  void OnRowsAboutToBeRemoved(int, int) override {}
  void OnRowsRemoved() override { renewed_ = true; }
  void OnCellChanged(Cell cell) override;
  void OnColumnsChanged() override {}
  void OnSelectionChanged() override {}
  void OnTopRowChanged() override {}
  void OnEditChanged() override {}

 private:
  Grid& grid_;
  std::vector<Cell> cells_;
  std::size_t more_ = 0;
  bool renewed_ = false;
};

/// Notes which lines of a list have been told.
class LinesWatch {
 public:
  explicit LinesWatch(const ListBox& list) : list_(list) {}
  /// Tells the lines that have come since the last call, and that the list has become shorter.
  void TellChanges(Transcript& transcript);

 private:
  const ListBox& list_;
  std::size_t told_ = 0;
};

/// Follows one window and tells what the user sees change in it. The words are those of the subjects, so that a line of
/// a transcript can be taken into a script.
class Watcher {
 public:
  explicit Watcher(Form& form);
  /// What has changed since the last call; all of it the first time.
  void TellChanges(Transcript& transcript);

 private:
  using Facets = std::map<std::string, std::string>;  // subject with its arguments, text
  [[nodiscard]] Facets Look() const;
  void LookAtGrids(Facets& facets) const;
  void LookAtLists(Facets& facets) const;
  void LookAtButtons(Facets& facets) const;

  Form& form_;
  std::vector<std::unique_ptr<GridWatch>> grids_;
  std::vector<LinesWatch> lists_;
  Facets seen_;
};

}  // namespace tavrin
