#pragma once

#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace tavrin {

/// A row of a table of a Markdown text: both counted from 0, the head is row 0.
struct TableRow {
  int table = 0;
  int row = 0;
  friend bool operator==(const TableRow&, const TableRow&) = default;
  friend bool operator<(const TableRow& a, const TableRow& b) {
    return a.table != b.table ? a.table < b.table : a.row < b.row;
  }
};

/// A Markdown text whose tables are cut before certain rows, each piece with the head of its table. What a page has no
/// room for so goes to the next one as whole rows.
struct CutText {
  std::string markdown;
  std::vector<TableRow>
      pieces;  ///< of each table that the text has now: where it comes from, with its first row below the head
};

[[nodiscard]] CutText CutTables(std::string_view markdown, const std::set<TableRow>& cuts);

}  // namespace tavrin
