#include "app/session/Subjects.h"

#include <algorithm>
#include <array>

#include <fmt/format.h>

#include "app/session/Reach.h"
#include "platform/controls/Button.h"
#include "platform/controls/Label.h"
#include "platform/controls/TextBox.h"

namespace tavrin {

namespace {

/// A place as whole numbers: parts of a twip come from computing only.
std::string PlaceText(const Rect& place) {
  return fmt::format("{:.0f} {:.0f} {:.0f} {:.0f}", place.left, place.top, place.width, place.height);
}

/// The control whose state the user looks at; an entry of a menu is seen by opening the menu.
Control& Seen(Stage& stage, Words words) {
  Control& control = FindControl(stage, words);
  const auto* const entry = dynamic_cast<const MenuEntry*>(&control);
  if (entry != nullptr && entry->Parent() != nullptr) OpenMenusAbove(stage, *entry);
  return control;
}

bool MarkOf(const Control& control) {
  const auto mark = CheckMark(control);
  if (!mark) throw Refusal{NameOf(control) + " cannot be checked"};
  return *mark;
}

std::string SelectedPath(Stage& stage, Words words) {
  const TreeNode* const node = FindTree(stage, words[0]).SelectedItem();
  if (node == nullptr) throw Refusal{"no node is selected"};
  return PathOf(*node);
}

std::string EditText(Stage& stage, Words words) {
  const auto text = OpenEdit(FindControl(stage, words));
  if (!text) throw Refusal{"no edit is open"};
  return *text;
}

std::string Choices(Stage& stage, Words words) {
  const Grid& grid = FindGrid(stage, words[0]);
  if (grid.OpenEdit() == nullptr) throw Refusal{"no edit is open"};
  std::string choices;
  for (const std::string& choice : grid.OpenEdit()->choices) choices += (choices.empty() ? "" : "|") + choice;
  return choices;
}

/// Takes the oldest text, so that the next look finds the one after it.
std::string Take(std::deque<std::string>& texts, const char* what) {
  if (texts.empty()) throw Refusal{std::string("no further ") + what + " has come up since the last gesture"};
  std::string text = std::move(texts.front());
  texts.pop_front();
  return text;
}

std::string FocusName(Stage& stage, Words) {
  const Control* const control = stage.Window().FocusedControl();
  return control == nullptr ? std::string() : NameOf(*control);
}

/// Rows of a grid with the heading, or of a list, which has none.
int RowCount(const Stage& stage, Words words) {
  const auto* const list = FindKind<ListView>(stage, words);
  return list == nullptr ? FindGrid(stage, words[0]).Rows() : list->Count();
}

std::string CurrentPlace(Stage& stage, Words words) {
  const auto* const list = FindKind<ListView>(stage, words);
  return list == nullptr ? CurrentCell(FindGrid(stage, words[0])) : CurrentRow(*list);
}

std::string LineText(Stage& stage, Words words) {
  const ListBox& list = FindListBox(stage, words[0]);
  const int number = NumberOf(words[1]);
  const auto& lines = list.Lines();
  if (number < 1 || number > static_cast<int>(lines.size())) {
    throw Refusal{NameOf(list) + " has no line " + words[1]};
  }
  return lines[static_cast<std::size_t>(number - 1)];
}

constexpr std::array kSubjects{
    Subject{"window", "", "name of the window in front", [](Stage& s, Words) { return s.Window().Name(); }},
    Subject{"caption", "", "its caption", [](Stage& s, Words) { return s.Window().Caption(); }},
    Subject{"place", "[CONTROL] [NUMBER]", "left, top, width and height of the window or of a control, in twips",
            [](Stage& s, Words w) { return PlaceText(w.empty() ? s.Window().Place() : FindControl(s, w).Place()); }},
    Subject{"shown", "", "the grids, trees and labels on show",
            [](Stage& s, Words) { return NamesOnShow(s.Window()); }},
    Subject{"focus", "", "the control that has the keyboard", FocusName},
    Subject{"text", "CONTROL [NUMBER]", "text of a label, a text box, a menu entry, a button",
            [](Stage& s, Words w) { return CaptionOf(Seen(s, w)); }},
    Subject{"tip", "CONTROL [NUMBER]", "tool tip", [](Stage& s, Words w) { return FindControl(s, w).ToolTip(); }},
    Subject{"visible", "CONTROL [NUMBER]", "yes or no",
            [](Stage& s, Words w) { return YesOrNo(Seen(s, w).Visible()); }},
    Subject{"enabled", "CONTROL [NUMBER]", "yes or no",
            [](Stage& s, Words w) { return YesOrNo(Seen(s, w).Enabled()); }},
    Subject{"checked", "CONTROL [NUMBER]", "yes or no, of a check box, radio button or menu entry",
            [](Stage& s, Words w) { return YesOrNo(MarkOf(Seen(s, w))); }},
    Subject{"node", "TREE", "path of the selected node", SelectedPath},
    Subject{"rows", "CONTROL", "number of the rows of a list, or of a grid with its heading",
            [](Stage& s, Words w) { return std::to_string(RowCount(s, w)); }},
    Subject{"cell", "GRID ROW COL", "text of a cell",
            [](Stage& s, Words w) {
              const Grid& grid = FindGrid(s, w[0]);
              return grid.Text(FindCell(grid, w[1], w[2]));
            }},
    Subject{"current", "CONTROL",
            "text of the current row of a list; row and column of a grid's current cell and of the selection's end",
            CurrentPlace},
    Subject{"ticked", "LIST", "the texts of the rows that are ticked, joined by |",
            [](Stage& s, Words w) { return TickedRows(FindListView(s, w[0])); }},
    Subject{"icon", "LIST TEXT", "key of the picture of the row that has the text",
            [](Stage& s, Words w) {
              const ListView& list = FindListView(s, w[0]);
              return list.Item(FindRow(list, w[1])).icon;
            }},
    Subject{"header", "LIST", "text above the column of a list",
            [](Stage& s, Words w) { return FindListView(s, w[0]).HeaderText(); }},
    Subject{"lines", "LIST", "number of the lines of a list of lines",
            [](Stage& s, Words w) { return std::to_string(FindListBox(s, w[0]).Lines().size()); }},
    Subject{"line", "LIST NUMBER", "text of such a line, counted from 1", LineText},
    Subject{"font", "CONTROL", "points of the letters of a grid or a tree",
            [](Stage& s, Words w) {
              if (const auto* const tree = FindKind<Tree>(s, w)) return fmt::format("{}", tree->FontSize());
              return fmt::format("{}", FindGrid(s, w[0]).FontSize());
            }},
    Subject{"editing", "CONTROL", "yes while an edit is open in the grid or tree",
            [](Stage& s, Words w) { return YesOrNo(OpenEdit(FindControl(s, w)).has_value()); }},
    Subject{"edit", "CONTROL", "text of the open edit", EditText},
    Subject{"choices", "GRID", "the texts to choose from in the open edit, joined by |", Choices},
    Subject{"box", "", "text of the next box since the last gesture",
            [](Stage& s, Words) { return Take(s.desktop.RecentBoxes(), "box"); }},
    Subject{"boxes", "", "number of the boxes left for box",
            [](Stage& s, Words) { return std::to_string(s.desktop.RecentBoxes().size()); }},
    Subject{"question", "", "text of the next question since the last gesture",
            [](Stage& s, Words) { return Take(s.desktop.RecentQuestions(), "question"); }},
    Subject{"questions", "", "number of the questions left for question",
            [](Stage& s, Words) { return std::to_string(s.desktop.RecentQuestions().size()); }},
};

}  // namespace

std::span<const Subject> Subjects() { return kSubjects; }

const Subject* FindSubject(std::string_view name) {
  const auto* const found =
      std::find_if(kSubjects.begin(), kSubjects.end(), [name](const Subject& subject) { return subject.name == name; });
  return found == kSubjects.end() ? nullptr : found;
}

std::string CaptionOf(const Control& control) {
  if (const auto* const label = dynamic_cast<const Label*>(&control)) return label->Caption();
  if (const auto* const field = dynamic_cast<const TextBox*>(&control)) return field->Text();
  if (const auto* const entry = dynamic_cast<const MenuEntry*>(&control)) return entry->ShownCaption();
  if (const auto* const button = dynamic_cast<const Button*>(&control)) return WithoutMnemonic(button->Caption());
  if (const auto* const box = dynamic_cast<const CheckBox*>(&control)) return WithoutMnemonic(box->Caption());
  if (const auto* const radio = dynamic_cast<const RadioButton*>(&control)) return WithoutMnemonic(radio->Caption());
  throw Refusal{NameOf(control) + " has no text"};
}

std::optional<bool> CheckMark(const Control& control) {
  if (const auto* const box = dynamic_cast<const CheckBox*>(&control)) return box->Checked();
  if (const auto* const entry = dynamic_cast<const MenuEntry*>(&control)) return entry->Checked();
  if (const auto* const radio = dynamic_cast<const RadioButton*>(&control)) return radio->Checked();
  return std::nullopt;
}

std::string NamesOnShow(const Form& form) {
  std::string names;
  for (const Control* control : form.Controls()) {
    const bool counts = dynamic_cast<const Grid*>(control) != nullptr ||
                        dynamic_cast<const Tree*>(control) != nullptr || dynamic_cast<const Label*>(control) != nullptr;
    if (counts && control->Visible()) names += (names.empty() ? "" : " ") + NameOf(*control);
  }
  return names;
}

std::string CurrentCell(const Grid& grid) {
  const Cell end = grid.SelectionEnd();
  const std::string cell = fmt::format("{} {}", grid.Row(), grid.Col());
  return end == grid.Current() ? cell : cell + fmt::format(" {} {}", end.row, end.col);
}

std::string CurrentRow(const ListView& list) {
  return list.Current() < 0 ? std::string() : list.Item(list.Current()).text;
}

std::string TickedRows(const ListView& list) {
  std::string texts;
  bool first = true;
  for (const ListItem& item : list.Items()) {
    if (!item.checked) continue;
    texts += (first ? "" : "|") + item.text;
    first = false;
  }
  return texts;
}

std::optional<std::string> OpenEdit(const Control& control) {
  if (const auto* const tree = dynamic_cast<const Tree*>(&control)) return tree->LabelEdit();
  if (const auto* const grid = dynamic_cast<const Grid*>(&control)) {
    return grid->OpenEdit() == nullptr ? std::nullopt : std::optional(grid->OpenEdit()->text);
  }
  throw Refusal{NameOf(control) + " is no grid and no tree"};
}

}  // namespace tavrin
