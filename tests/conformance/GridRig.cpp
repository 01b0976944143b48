#include "conformance/GridRig.h"

#include <sstream>

namespace tavrin {
namespace {

std::string At(int row, int col) { return std::to_string(row) + "," + std::to_string(col); }
std::string At(Cell cell) { return At(cell.row, cell.col); }

void ShowEdit(std::ostream& out, const Grid::Edit& edit) {
  out << "edit " << At(edit.cell) << " '" << edit.text << "' typing " << edit.beganByTyping << " touched "
      << edit.touched;
  for (const auto& choice : edit.choices) out << " |" << choice;
  out << '\n';
}

}  // namespace

GridRig::GridRig() {
  grid.Shape(6, 4, 1, 1);
  const std::vector<std::string> lines{"key\tName\tData\tNote", "k1\talpha\tDB1\tfirst", "k2\tbeta\tDB2\t",
                                       "k3\tgamma\tDB3\tthird", "k4\tdelta\tDB4\t",      "\t\t\t"};
  for (int row = 0; row < grid.Rows(); ++row) {
    std::istringstream line(lines[static_cast<std::size_t>(row)]);
    std::string text;
    for (int col = 0; std::getline(line, text, '\t'); ++col) grid.Text({row, col}, text);
  }
  grid.ColWidth(0, 0);
  for (int col = 1; col < grid.Cols(); ++col) grid.ColWidth(col, 1500);
  grid.Editable(true);
  grid.OnGotFocus = [this] { events.emplace_back("got focus"); };
  grid.OnLostFocus = [this] { events.emplace_back("lost focus"); };
  grid.OnRowColChange = [this] { events.push_back("current " + At(grid.Current())); };
  grid.OnMouseDown = [this](MouseButton button) {
    events.push_back("press " + std::to_string(static_cast<int>(button)) + " at " + At(grid.MouseCell()));
  };
  grid.OnMouseMove = [this] { events.push_back("pointer " + At(grid.MouseCell())); };
  grid.OnDblClick = [this] { events.push_back("double click at " + At(grid.MouseCell())); };
  grid.OnKeyDown = [this](Key key) { events.push_back("key down " + std::to_string(static_cast<int>(key))); };
  ListenToEdits();
  other.Shape(2, 1, 1, 0);
}

void GridRig::ListenToEdits() {
  grid.OnKeyPress = [this](int& key) {
    events.push_back("key press " + std::to_string(key));
    if (!enterIsTab || key != static_cast<int>(Key::Enter)) return;
    key = 0;
    grid.MoveNext();
  };
  grid.OnBeforeEdit = [this](int row, int col, bool& cancel) {
    events.push_back("before edit " + At(row, col));
    grid.ComboList(choices);
    cancel = row == 4;
  };
  grid.OnKeyPressEdit = [this](int row, int col, int& key) {
    events.push_back("typed " + std::to_string(key) + " in " + At(row, col));
    if (key == static_cast<unsigned char>(refused)) key = 0;
  };
  grid.OnAfterEdit = [this](int row, int col) {
    events.push_back("after edit " + At(row, col) + " " + grid.Text({row, col}));
  };
}

std::string Snapshot(const Grid& grid) {
  std::ostringstream out;
  out << "shape " << At(grid.Rows(), grid.Cols()) << " fixed " << At(grid.FixedRows(), grid.FixedCols()) << '\n';
  for (int row = 0; row < grid.Rows(); ++row) out << "row " << grid.RowText(row) << '\n';
  for (int col = 0; col < grid.Cols(); ++col) out << "width " << grid.ColWidth(col) << '\n';
  out << "current " << At(grid.Current()) << " to " << At(grid.SelectionEnd()) << " top " << grid.TopRow() << '\n';
  out << "pointer " << At(grid.MouseCell()) << " focus " << grid.Focused() << '\n';
  if (const auto* edit = grid.OpenEdit()) ShowEdit(out, *edit);
  return out.str();
}

}  // namespace tavrin
