#include "shell/Languages.h"

#include <array>
#include <string>
#include <vector>

#include "model/shared/modMain.h"
#include "model/shared/modText.h"
#include "platform/NumberText.h"
#include "shell/MenuTable.h"
#include "shell/frmOPC.h"

namespace tavrin {

namespace {

constexpr std::size_t kSectionBuffer = 1024;
constexpr std::string_view kGermanManual = "OPC_D.PDF";
constexpr std::string_view kEnglishManual = "OPC_E.PDF";

/// Headings of vsgTags from column 1 on.
constexpr std::array kTagHeadings{4, 5, 6, 116, 117, 118, 119, 136, 15};
constexpr std::array kWarningHeadings{7, 8, 9};

using Pieces = std::vector<std::string_view>;

/// An empty text has no pieces.
Pieces Split(std::string_view text, char separator) {
  Pieces pieces;
  while (!text.empty()) {
    const std::size_t end = text.find(separator);
    pieces.push_back(text.substr(0, end));
    if (end == std::string_view::npos) break;
    text.remove_prefix(end + 1);
    if (text.empty()) pieces.emplace_back();
  }
  return pieces;
}

std::string InApplicationDirectory(std::string_view name) {
  return modMain::Platform().applicationDirectory + kPathSeparator + std::string(name);
}

/// The lines of the section as far as the buffer takes them. What lies behind its end is cut off.
std::string ReadSection() {
  std::string buffer(kSectionBuffer, ' ');
  static_cast<void>(modMain::Platform().profiles.GetSection("Languages", buffer, InApplicationDirectory("Tavrin.INI")));
  std::string lines(modMain::TrimBlanks(buffer));
  if (!lines.empty()) lines.pop_back();
  return lines;
}

/// The list ends in an empty piece, which is no line.
Pieces LinesOf(std::string_view section) {
  Pieces lines = Split(section, '\0');
  while (!lines.empty() && lines.back().empty()) lines.pop_back();
  return lines;
}

}  // namespace

std::string PlainText(std::int32_t number) {
  constexpr std::string_view kAsksForMore = "...";
  std::string text = WithoutMnemonic(ResText(number));
  if (text.ends_with(kAsksForMore)) text.resize(text.size() - kAsksForMore.size());
  return text;
}

void Languages::FillMenu() {
  const std::string section = ReadSection();
  const Pieces lines = LinesOf(section);
  if (lines.empty()) {
    ShowEntry(1, ResText(56), "7");
    ShowEntry(2, ResText(57), "9");
  }
  for (std::size_t i = 0; i < lines.size(); ++i) {
    const Pieces parts = Split(lines[i], '=');
    if (parts.size() == 2) ShowEntry(static_cast<int>(i) + 1, parts[0], parts[1]);
  }
}

void Languages::ShowEntry(int index, std::string_view caption, std::string_view tag) {
  const bool known = form_.mnuLanguage.Has(index);
  MenuEntry& entry = known ? form_.mnuLanguage(index) : form_.mnuLanguage.Load(index);
  entry.Caption(caption);
  entry.Tag(tag);
  entry.Checked(false);
  entry.Visible(true);
  entry.OnClick = [this, index] { mnuLanguage_Click(index); };
  if (!known) form_.mnuExtras(kExtrasLanguages).Add(entry);
}

void Languages::Activate(std::int32_t nLanguage) {
  modMain::globals.gnLanguage = nLanguage;
  modMain::globals.gszManual = InApplicationDirectory(kEnglishManual);
  const MenuEntry* found = nullptr;
  form_.mnuLanguage.ForEach([&](const MenuEntry& entry) {
    if (found == nullptr && NumericPrefix(entry.Tag()) == nLanguage) found = &entry;
  });
  if (found != nullptr) mnuLanguage_Click(found->Index());
}

void Languages::mnuLanguage_Click(int index) try {
  const MenuEntry& entry = form_.mnuLanguage(index);
  const Pieces parts = Split(entry.Tag(), ',');
  modMain::globals.gnLanguage = RoundToInt32(NumericPrefix(parts.empty() ? std::string_view{} : parts[0]));
  modMain::globals.gszManual = InApplicationDirectory(parts.size() == 2 ? parts[1] : kGermanManual);
  Check(&entry);
  GetStaticTexts();
  form_.layout.GUI_Init();
  form_.tree.ShowNodeData(form_.tvwMain.SelectedItem());
} catch (...) {
  modMain::Trap("frmOPC.mnuLanguage_Click : ");
}

void Languages::Check(const MenuEntry* chosen) {
  form_.mnuLanguage.ForEach([chosen](MenuEntry& entry) { entry.Checked(&entry == chosen); });
}

void Languages::GetStaticTexts() try {
  form_.Caption(ResText(1));
  NameGrids();
  NameMenus();
  NameTools();
  form_.tvwMain.SpokenName(ResText(10));
  if (TreeNode* const root = form_.tvwMain.Node(1)) form_.tvwMain.Text(*root, ResText(10));
} catch (...) {
  modMain::Trap("frmOPC.GetStaticTexts : ");
}

void Languages::NameGrids() {
  for (Grid* sheet : form_.Sheets()) {
    sheet->Text({0, 0}, ResText(2));
    sheet->Text({0, 1}, ResText(3));
    sheet->SpokenName(ResText(2));
  }
  for (std::size_t i = 0; i < kTagHeadings.size(); ++i) {
    form_.vsgTags.Text({0, static_cast<int>(i) + 1}, ResText(kTagHeadings[i]));
  }
  for (std::size_t i = 0; i < kWarningHeadings.size(); ++i) {
    form_.vsgWarnings.Text({0, static_cast<int>(i)}, ResText(kWarningHeadings[i]));
  }
  form_.vsgTags.SpokenName(ResText(4));
  form_.lblTags.SpokenName(ResText(4));
  form_.vsgWarnings.SpokenName(ResText(9));
  form_.lblWarnings.SpokenName(ResText(9));
}

void Languages::NameMenus() {
  for (const MenuRow& row : MenuTable()) {
    if (row.text != 0) form_.Menu(row.menu)(row.index).Caption(ResText(row.text));
  }
}

void Languages::NameTools() {
  for (const ToolRow& row : ToolTable()) {
    ToolButton& button = form_.Toolbar1.Buttons(row.index);
    button.ToolTip(PlainText(row.text));
    button.SpokenName(PlainText(row.text));
  }
}

}  // namespace tavrin
