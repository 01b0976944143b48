#include "app/session/Watcher.h"

#include <algorithm>

#include "app/session/Reach.h"
#include "app/session/Subjects.h"
#include "platform/controls/Label.h"
#include "platform/controls/TextBox.h"
#include "platform/controls/Toolbar.h"
#include "platform/controls/Tree.h"

namespace tavrin {

namespace {

constexpr const char* kShown = "shown";
constexpr std::string_view kEdit = "edit ";

bool IsNode(const std::string& subject) { return subject.starts_with("node "); }

}  // namespace

void GridWatch::OnCellChanged(Cell cell) {
  if (std::find(cells_.begin(), cells_.end(), cell) != cells_.end()) return;
  if (cells_.size() < kMostCells) {
    cells_.push_back(cell);
  } else {
    ++more_;
  }
}

void GridWatch::TellChanges(Transcript& transcript, bool wasSeen) {
  if (wasSeen && renewed_) transcript.Tell("renewed " + NameOf(grid_));
  if (wasSeen && !renewed_) {
    for (const Cell cell : cells_) {
      if (cell.row >= grid_.Rows() || cell.col >= grid_.Cols() || grid_.ColWidth(cell.col) <= 0) continue;
      transcript.Tell("cell " + NameOf(grid_) + " " + std::to_string(cell.row) + " " + std::to_string(cell.col),
                      grid_.Text(cell));
    }
    if (more_ > 0) transcript.Tell("and " + std::to_string(more_) + " more cells of " + NameOf(grid_));
  }
  cells_.clear();
  more_ = 0;
  renewed_ = false;
}

void LinesWatch::TellChanges(Transcript& transcript) {
  const auto& lines = list_.Lines();
  if (lines.size() < told_) {
    transcript.Tell("lines " + NameOf(list_), std::to_string(lines.size()));
    told_ = 0;
  }
  for (; told_ < lines.size(); ++told_) {
    transcript.Tell("line " + NameOf(list_) + " " + std::to_string(told_ + 1), lines[told_]);
  }
}

Watcher::Watcher(Form& form) : form_(form) {
  for (Control* control : form.Controls()) {
    if (auto* const list = dynamic_cast<ListBox*>(control)) lists_.emplace_back(*list);
    if (auto* const grid = dynamic_cast<Grid*>(control)) grids_.push_back(std::make_unique<GridWatch>(*grid));
  }
}

void Watcher::TellChanges(Transcript& transcript) {
  Facets now = Look();
  bool isOther = seen_.empty();  // another node: the sheets are filled with another object
  for (const auto& [subject, text] : now) {
    const auto before = seen_.find(subject);
    if (before != seen_.end() && before->second == text) continue;
    transcript.Tell(subject, text);
    isOther = isOther || IsNode(subject);
  }
  for (const auto& [subject, text] : seen_) {
    if (!subject.starts_with(kEdit) || now.contains(subject)) continue;
    transcript.Tell("editing " + subject.substr(kEdit.size()), YesOrNo(false));
  }
  for (const auto& watch : grids_) {
    const std::string rows = "rows " + NameOf(watch->Watched());
    watch->TellChanges(transcript, !isOther && seen_.contains(rows) && now.contains(rows));
  }
  for (LinesWatch& watch : lists_) watch.TellChanges(transcript);
  seen_ = std::move(now);
}

Watcher::Facets Watcher::Look() const {
  Facets facets{{"caption", form_.Caption()}};
  if (const Control* const focused = form_.FocusedControl()) facets["focus"] = NameOf(*focused);
  if (form_.Arrangement().empty()) facets[kShown] = NamesOnShow(form_);
  LookAtGrids(facets);
  LookAtLists(facets);
  LookAtButtons(facets);
  return facets;
}

void Watcher::LookAtGrids(Facets& facets) const {
  for (const Control* control : form_.Controls()) {
    const auto* const grid = dynamic_cast<const Grid*>(control);
    const auto* const tree = dynamic_cast<const Tree*>(control);
    if (!control->Visible() || (grid == nullptr && tree == nullptr)) continue;
    const std::string name = NameOf(*control);
    if (grid != nullptr) {
      facets["rows " + name] = std::to_string(grid->Rows());
      facets["current " + name] = CurrentCell(*grid);
    } else if (tree->SelectedItem() != nullptr) {
      facets["node " + name] = PathOf(*tree->SelectedItem());
    }
    if (const auto edit = OpenEdit(*control)) facets["edit " + name] = *edit;
  }
}

void Watcher::LookAtLists(Facets& facets) const {
  for (const Control* control : form_.Controls()) {
    const auto* const list = dynamic_cast<const ListView*>(control);
    if (list == nullptr || !control->Visible()) continue;
    const std::string name = NameOf(*control);
    facets["header " + name] = list->HeaderText();
    facets["rows " + name] = std::to_string(list->Count());
    facets["current " + name] = CurrentRow(*list);
    facets["ticked " + name] = TickedRows(*list);
  }
}

void Watcher::LookAtButtons(Facets& facets) const {
  for (const Control* control : form_.Controls()) {
    if (!control->Visible()) continue;
    if (const auto* const label = dynamic_cast<const Label*>(control)) {
      facets["text " + NameOf(*control)] = label->Caption();
    } else if (const auto* const field = dynamic_cast<const TextBox*>(control)) {
      facets["text " + NameOf(*control)] = field->Text();
    } else if (dynamic_cast<const MenuEntry*>(control) == nullptr && CheckMark(*control)) {
      facets["checked " + NameOf(*control)] = YesOrNo(*CheckMark(*control));
    } else if (dynamic_cast<const ToolButton*>(control) != nullptr) {
      facets["enabled " + NameOf(*control)] = YesOrNo(control->Enabled());
    }
  }
}

}  // namespace tavrin
