#pragma once

#include <string>
#include <vector>

#include "platform/controls/Grid.h"
#include "platform/controls/Tree.h"

namespace tavrin {

/// Writes down what a grid tells its view.
class GridRecord : public GridListener {
 public:
  void OnAboutToReset() override { told.emplace_back("about to reset"); }
  void OnReset() override { told.emplace_back("reset"); }
  void OnRowsAboutToBeAdded(int first, int count) override { Tell("about to add", first, count); }
  void OnRowsAdded() override { told.emplace_back("added"); }
  void OnRowsAboutToBeRemoved(int first, int count) override { Tell("about to remove", first, count); }
  void OnRowsRemoved() override { told.emplace_back("removed"); }
  void OnCellChanged(Cell cell) override { Tell("cell", cell.row, cell.col); }
  void OnColumnsChanged() override { told.emplace_back("columns"); }
  void OnSelectionChanged() override { told.emplace_back("selection"); }
  void OnTopRowChanged() override { told.emplace_back("top row"); }
  void OnEditChanged() override { told.emplace_back("edit"); }

  std::vector<std::string> told;

 private:
  void Tell(const std::string& what, int first, int second) {
    told.push_back(what + " " + std::to_string(first) + " " + std::to_string(second));
  }
};

/// Writes down what a tree tells its view.
class TreeRecord : public TreeListener {
 public:
  void OnAboutToClear() override { told.emplace_back("about to clear"); }
  void OnCleared() override { told.emplace_back("cleared"); }
  void OnNodeAboutToBeAdded(const TreeNode* parent, int position) override {
    told.push_back("about to add " + (parent == nullptr ? std::string("root") : parent->Key()) + " " +
                   std::to_string(position));
  }
  void OnNodeAdded() override { told.emplace_back("added"); }
  void OnNodeChanged(const TreeNode& node) override { told.push_back("node " + node.Text()); }
  void OnSelectionChanged() override { told.emplace_back("selection"); }
  void OnLabelEditChanged() override { told.emplace_back("label"); }

  std::vector<std::string> told;
};

}  // namespace tavrin
