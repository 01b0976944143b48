#include "app/manual/ManualSource.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <sstream>

namespace tavrin {

namespace {

constexpr std::string_view kBlanks = " \t\r";

std::string_view Trim(std::string_view text) {
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

std::string ReadText(const std::filesystem::path& file) {
  std::ifstream in(file, std::ios::binary);
  if (!in) throw ManualFault(file.string() + " cannot be read");
  return {std::istreambuf_iterator<char>(in), {}};
}

/// The lines that say something, each with those that go on with it.
std::vector<std::string> JoinLines(std::string_view text) {
  std::vector<std::string> lines;
  std::istringstream in{std::string(text)};
  for (std::string line; std::getline(in, line);) {
    if (Trim(line).empty() || line.front() == '#') continue;
    if (line.front() == ' ' && !lines.empty()) {
      lines.back() += line;
    } else {
      lines.push_back(line);
    }
  }
  return lines;
}

ManualRow SplitCells(std::string_view line) {
  static constexpr std::string_view kBar = " | ";
  ManualRow cells;
  for (std::size_t bar = line.find(kBar); bar != std::string_view::npos; bar = line.find(kBar)) {
    cells.emplace_back(Trim(line.substr(0, bar)));
    line.remove_prefix(bar + kBar.size());
  }
  cells.emplace_back(Trim(line));
  return cells;
}

/// A table of two columns without sections.
std::map<std::string, std::string> ReadPairs(const std::filesystem::path& file) {
  std::map<std::string, std::string> pairs;
  for (const auto& [section, rows] : ParseTable(ReadText(file), 2)) {
    for (const ManualRow& row : rows) {
      if (!pairs.emplace(row[0], row[1]).second)
        throw ManualFault(file.string() + ": " + row[0] + " stands there twice");
    }
  }
  return pairs;
}

}  // namespace

std::map<std::string, std::vector<ManualRow>> ParseTable(std::string_view text, std::size_t columns) {
  std::map<std::string, std::vector<ManualRow>> sections;
  std::string section;
  for (const std::string& line : JoinLines(text)) {
    if (line.front() == '[') {
      section = Trim(line).substr(1, Trim(line).size() - 2);
      continue;
    }
    ManualRow cells = SplitCells(line);
    if (cells.size() != columns ||
        std::any_of(cells.begin(), cells.end(), [](const auto& cell) { return cell.empty(); }))
      throw ManualFault("a row has not " + std::to_string(columns) + " cells: " + line);
    sections[section].push_back(std::move(cells));
  }
  return sections;
}

ManualSource ReadManual(const std::filesystem::path& folder) {
  std::vector<std::filesystem::path> files;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    if (entry.path().extension() == ".md") files.push_back(entry.path());
  }
  std::sort(files.begin(), files.end());
  ManualSource source;
  for (const auto& file : files) source.chapters.push_back(ReadText(file));
  source.words = ReadPairs(folder / "words.txt");
  source.menus = ReadPairs(folder / "menus.txt");
  source.sheets = ReadPairs(folder / "sheets.txt");
  source.messages = ParseTable(ReadText(folder / "messages.txt"), 3);
  return source;
}

}  // namespace tavrin
