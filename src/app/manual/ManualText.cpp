#include "app/manual/ManualText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <optional>

#include "app/manual/SheetTables.h"
#include "brand/Brand.h"
#include "model/shared/modText.h"
#include "platform/CodePage.h"
#include "shell/MenuTable.h"

namespace tavrin {

namespace {

/// Numbers of texts go up to here.
constexpr int kLastText = 999;
/// The hint that nothing opens.
constexpr std::array kUnseenTexts{155, 156, 157, 158};

std::optional<int> NumberOf(std::string_view text) {
  int number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc{} || end != text.data() + text.size()) return std::nullopt;
  return number;
}

/// As a label shows it: the mnemonic mark is gone.
std::string WithoutMark(std::string_view text) {
  std::string shown;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '&' && i + 1 < text.size()) ++i;
    shown += text[i];
  }
  return shown;
}

/// The parts of a placeholder "name:argument".
struct Placeholder {
  std::string_view name;
  std::string_view argument;
};

Placeholder Parts(std::string_view inside) {
  const std::size_t colon = std::min(inside.find(':'), inside.size());
  return {inside.substr(0, colon), colon == inside.size() ? std::string_view{} : inside.substr(colon + 1)};
}

constexpr std::array<std::string_view, 4> kBlocks{"picture", "menu", "sheet", "messages"};

bool IsBlock(std::string_view line) {
  if (!line.starts_with('{') || !line.ends_with('}')) return false;
  const std::string_view name = Parts(line.substr(1, line.size() - 2)).name;
  return std::find(kBlocks.begin(), kBlocks.end(), name) != kBlocks.end();
}

bool IsFirstRecent(const MenuRow& row) { return row.menu == "mnuFile" && row.index == 11; }

/// Separators, and the further entries that come at run time, say nothing.
bool Tells(const MenuRow& row) {
  return row.text != 0 || (!row.caption.empty() && row.caption != "-") || IsFirstRecent(row);
}

}  // namespace

std::string Escaped(std::string_view text) {
  static constexpr std::string_view kMeaning = "\\`*_<>|[]#{}~";
  std::string escaped;
  for (const char character : text) {
    if (kMeaning.find(character) != std::string_view::npos) escaped += '\\';
    escaped += character;
  }
  return escaped;
}

ManualText::ManualText(const ManualSource& source, std::string version, HeadlessDesktop& desktop)
    : source_(source), desktop_(desktop) {
  const Brand& brand = OemBrand();
  const std::string key(brand.serviceKey);
  constants_ = {{"version", std::move(version)},
                {"brand", std::string(brand.name)},
                {"progid", std::string(brand.progId)},
                {"service", key.substr(key.rfind('\\') + 1)},
                {"settings", std::string(brand.settingsApplication)}};
}

const std::string& ManualText::Word(const std::string& name) const {
  const auto found = source_.words.find(name);
  if (found == source_.words.end()) throw ManualFault("words.txt has no " + name);
  return found->second;
}

std::string ManualText::Expand() {
  std::string text;
  for (const std::string& chapter : source_.chapters) {
    for (std::size_t begin = 0; begin < chapter.size();) {
      const std::size_t end = std::min(chapter.find('\n', begin), chapter.size());
      text += ExpandLine(std::string_view(chapter).substr(begin, end - begin)) + '\n';
      begin = end + 1;
    }
    text += '\n';
  }
  CheckUse();
  return text;
}

std::string ManualText::ExpandLine(std::string_view line) {
  if (IsBlock(line)) {
    const Placeholder parts = Parts(line.substr(1, line.size() - 2));
    return ExpandBlock(parts.name, std::string(parts.argument));
  }
  std::string expanded;
  for (std::size_t open = line.find('{'); open != std::string_view::npos; open = line.find('{')) {
    const std::size_t close = line.find('}', open);
    if (close == std::string_view::npos) throw ManualFault("a placeholder has no end: " + std::string(line));
    const Placeholder parts = Parts(line.substr(open + 1, close - open - 1));
    expanded.append(line.substr(0, open)).append(ExpandInline(parts.name, parts.argument));
    line.remove_prefix(close + 1);
  }
  return expanded.append(line);
}

std::string ManualText::ExpandInline(std::string_view name, std::string_view argument) {
  const auto number = NumberOf(argument);
  if (name == "text" && number) return ShowText(*number, true);
  if (name == "entry" && number) return ShowText(*number, false);
  const auto constant = constants_.find(name);
  if (constant == constants_.end() || !argument.empty()) {
    throw ManualFault("unknown placeholder {" + std::string(name) + ":" + std::string(argument) + "}");
  }
  return constant->second;
}

std::string ManualText::ExpandBlock(std::string_view name, const std::string& argument) {
  if (name == "picture") return PictureBlock(argument);
  if (name == "menu") return MenuBlock(argument);
  if (name == "sheet") return SheetBlock(argument);
  return MessagesBlock(argument);
}

std::string ManualText::ShowText(int number, bool withDots) {
  std::string text = ToUtf8(WithoutMark(ResText(number)));
  if (text.empty()) throw ManualFault("the program has no text " + std::to_string(number));
  texts_.insert(number);
  if (!withDots && text.ends_with("...")) text.resize(text.size() - 3);
  return Escaped(text);
}

std::string ManualText::PictureBlock(const std::string& argument) {
  const std::size_t blank = std::min(argument.find(' '), argument.size());
  pictures_.push_back(argument.substr(0, blank));
  return "![" + pictures_.back() + "](" + pictures_.back() + ")  \n" +
         ExpandLine(std::string_view(argument).substr(blank));
}

std::string ManualText::Row(const ManualRow& cells) {
  std::string row = "|";
  for (const std::string& cell : cells) row += " " + cell + " |";
  return row + "\n";
}

std::string ManualText::Head(const std::vector<std::string>& words) {
  ManualRow names;
  for (const std::string& word : words) names.push_back(Word(word));
  return Row(names) + Row(ManualRow(words.size(), "---"));
}

std::string ManualText::KeysOf(std::string_view shortcut) const {
  static constexpr std::string_view kControl = "Ctrl";
  if (!shortcut.starts_with(kControl)) return std::string(shortcut);
  return Word("control") + std::string(shortcut.substr(kControl.size()));
}

std::string ManualText::MenuBlock(const std::string& menu) {
  std::string table = Head({"entry", "keys", "action"});
  bool known = false;
  for (const MenuRow& row : MenuTable()) {
    if (row.menu != menu || !Tells(row)) continue;
    known = true;
    const std::string key = menu + " " + std::to_string(row.index);
    const auto action = source_.menus.find(key);
    if (action == source_.menus.end()) throw ManualFault("menus.txt has no " + key);
    used_.insert(key);
    const std::string caption = row.text != 0 ? ShowText(row.text, true) : Escaped(WithoutMark(row.caption));
    table += Row(
        {IsFirstRecent(row) ? "*1* ... *4*" : "**" + caption + "**", KeysOf(row.shortcut), ExpandLine(action->second)});
  }
  if (!known) throw ManualFault("the program has no menu " + menu);
  return table;
}

std::string ManualText::SheetBlock(const std::string& argument) {
  const std::string owner = argument.substr(0, argument.find(' '));
  const auto type = NumberOf(std::string_view(argument).substr(std::min(owner.size() + 1, argument.size())));
  if (owner != "project" && !type) throw ManualFault("no such sheet: " + argument);
  const auto lines = owner == "project"   ? ProjectLines(desktop_)
                     : owner == "network" ? NetworkLines(*type, desktop_)
                                          : DeviceLines(*type, desktop_);
  if (lines.empty()) throw ManualFault("no such sheet: " + argument);
  std::string table = Head({"row", "allowed", "default", "meaning"});
  for (const SheetLine& line : lines) {
    const std::string shared = owner + " " + line.property;
    const std::string& key = source_.sheets.contains(shared) ? shared : line.property;
    const auto meaning = source_.sheets.find(key);
    if (meaning == source_.sheets.end()) throw ManualFault("sheets.txt has no " + key);
    used_.insert(key);
    const std::string allowed = line.fixed             ? Word("fixed")
                                : line.address         ? Word("address")
                                : line.allowed.empty() ? Word("any")
                                                       : Escaped(ToUtf8(line.allowed));
    table += Row({ShowText(line.label, true), allowed, Escaped(ToUtf8(line.first)), ExpandLine(meaning->second)});
  }
  return table;
}

std::string ManualText::MessagesBlock(const std::string& section) {
  const auto found = source_.messages.find(section);
  if (found == source_.messages.end()) throw ManualFault("messages.txt has no section " + section);
  used_.insert("[" + section + "]");
  std::string table = Head({"message", "cause", "remedy"});
  for (const ManualRow& row : found->second) {
    ManualRow cells;
    for (const std::string& cell : row) cells.push_back(ExpandLine(cell));
    table += Row(cells);
  }
  return table;
}

void ManualText::CheckUse() const {
  const auto check = [this](const std::string& key, const char* file) {
    if (!used_.contains(key)) throw ManualFault(std::string(file) + ": " + key + " belongs to nothing in the manual");
  };
  for (const auto& [key, text] : source_.menus) check(key, "menus.txt");
  for (const auto& [key, text] : source_.sheets) check(key, "sheets.txt");
  for (const auto& [section, rows] : source_.messages) check("[" + section + "]", "messages.txt");
  std::string missing;
  for (int number = 1; number <= kLastText; ++number) {
    const bool unseen = std::find(kUnseenTexts.begin(), kUnseenTexts.end(), number) != kUnseenTexts.end();
    if (unseen || texts_.contains(number) || ResText(number).empty()) continue;
    missing += "\n" + std::to_string(number) + " " + ToUtf8(ResText(number));
  }
  if (!missing.empty()) throw ManualFault("the manual does not name these texts of the program:" + missing);
}

}  // namespace tavrin
