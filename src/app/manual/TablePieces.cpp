#include "app/manual/TablePieces.h"

#include <algorithm>
#include <cstddef>

namespace tavrin {

namespace {

std::vector<std::string_view> LinesOf(std::string_view text) {
  std::vector<std::string_view> lines;
  for (std::size_t begin = 0; begin < text.size();) {
    const std::size_t end = std::min(text.find('\n', begin), text.size());
    lines.push_back(text.substr(begin, end - begin));
    begin = end + 1;
  }
  return lines;
}

bool IsRow(std::string_view line) { return line.starts_with('|'); }

}  // namespace

CutText CutTables(std::string_view markdown, const std::set<TableRow>& cuts) {
  CutText cut;
  const std::vector<std::string_view> lines = LinesOf(markdown);
  const auto add = [&cut](std::string_view line) { cut.markdown.append(line).append("\n"); };
  int table = 0;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    if (!IsRow(lines[i])) {
      add(lines[i]);
      continue;
    }
    const std::string_view head = lines[i];
    const std::string_view rule = lines[i + 1];
    const auto begin = [&](int row) {
      cut.pieces.push_back({table, row});
      add(head);
      add(rule);
    };
    begin(1);
    i += 2;
    for (int row = 1; i < lines.size() && IsRow(lines[i]); ++i, ++row) {
      if (cuts.contains({table, row})) {
        add("");
        begin(row);
      }
      add(lines[i]);
    }
    --i;
    ++table;
  }
  return cut;
}

}  // namespace tavrin
