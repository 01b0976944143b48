// Any bytes as a tag file: the list is what a plain reading of its rules gives, its indexes find every tag, and what
// was written is read back. The first byte decides whether case counts in the project.
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "MemoryProject.h"
#include "model/tags/cTags.h"
#include "platform/CodePage.h"

namespace {

using namespace tavrin;

constexpr std::string_view kFile = "tags.csv";
constexpr std::string_view kNeverInAFile = ";";  // a field of a line cannot hold it

std::string Trimmed(std::string text) {
  while (!text.empty() && text.back() == ' ') text.pop_back();
  return text.substr(std::min(text.find_first_not_of(' '), text.size()));
}

/// What the rules say of a file, by pairwise comparison.
class PlainList {
 public:
  explicit PlainList(bool caseCounts) : caseCounts_(caseCounts) {}

  void Read(std::string_view content) {
    std::string line;
    for (const char c : content) {
      if (c == '\r' || c == '\n') {
        ReadLine(line);
        line.clear();
      } else {
        line += c == '\t' ? ' ' : c;
      }
    }
    ReadLine(line);
  }

  std::vector<std::string> names;     ///< of the tags in the list
  std::vector<std::string> warnings;  ///< about names and keys

 private:
  void ReadLine(const std::string& line) {
    if (Trimmed(line).empty()) return;
    std::string name = Trimmed(line.substr(0, line.find(';')));
    for (const std::string& other : names) {
      if (caseCounts_ ? other != name : UpperCase(other) != UpperCase(name)) continue;
      warnings.push_back("#221 (" + name + ")");
      break;
    }
    if (std::string_view(name.c_str()).size() > 32 || name.c_str()[0] == '\0') name.clear();  // refused
    for (const std::string& other : names) {
      if (!EqualIgnoringCase(Key(other), Key(name))) continue;
      warnings.push_back("#220 (" + line + ")");
      return;
    }
    names.push_back(name);
  }

  static std::string Key(const std::string& name) {
    std::string key;
    for (const char c : name) {
      key += c;
      key += c >= 'A' && c <= 'Z' ? '+' : c >= 'a' && c <= 'z' ? '-' : '*';
    }
    return key;
  }

  bool caseCounts_;
};

void ReadInto(cTags& list) {
  modMain::globals.gReadWarnings.reset();
  list.szFileName(kFile);
  list.Refresh(0, 1);
}

std::vector<std::string> NameWarnings() {
  std::vector<std::string> texts;
  for (const cWarning& warning : modMain::ReadWarnings()) {
    Require(warning.nType() == 3 && warning.szFileName() == kFile);
    const std::string number = warning.szText().substr(0, 4);
    if (number == "#220" || number == "#221") texts.push_back(warning.szText());
  }
  return texts;
}

std::vector<std::string> Names(const cTags& list) {
  std::vector<std::string> names;
  for (const cTag& tag : list) names.emplace_back(tag.szTag());
  return names;
}

/// The lines of all tags that a file can hold.
std::vector<std::string> LinesOf(const cTags& list) {
  std::vector<std::string> lines;
  for (const cTag& tag : list) {
    if (!tag.szTag().empty()) lines.push_back(tag.szComplete());
  }
  return lines;
}

void RequireFound(cTags& list) {
  for (cTag& tag : list) {
    Require(list.Tag(tag.szTag()) == &tag);
    Require(!list.CheckUniqueTag(tag.szTag()));
    Require(!tag.bDataDirty());
  }
}

/// The same file read behind another tag: the list is then asked itself instead of the reader's index.
void RequireSameWithoutIndex(const std::vector<std::string>& names, const std::vector<std::string>& warnings) {
  cTags list;
  auto first = std::make_unique<cTag>();
  first->szTag(kNeverInAFile);
  Require(list.AddItem(std::move(first)));
  ReadInto(list);
  std::vector<std::string> expected{std::string(kNeverInAFile)};
  expected.insert(expected.end(), names.begin(), names.end());
  Require(Names(list) == expected);
  Require(NameWarnings() == warnings);
}

void RequireWrittenAndReadBack(MemoryProject& project, cTags& list) {
  const std::vector<std::string> lines = LinesOf(list);
  Require(list.Update());
  const std::string written = project.Read(kFile);
  cTags again;
  ReadInto(again);
  Require(LinesOf(again) == lines);
  Require(again.Count() == static_cast<std::int32_t>(lines.size()));
  Require(again.Update());
  std::string withoutEmptyLines;
  for (const std::string& line : lines) withoutEmptyLines += line + "\r\n";
  Require(project.Read(kFile) == withoutEmptyLines);
  Require(written.size() >= withoutEmptyLines.size() && written.size() <= withoutEmptyLines.size() + 2);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  MemoryProject project;
  const bool caseCounts = data[0] % 2 == 1;
  modMain::OpenProject().nCaseSensitive(caseCounts ? 1 : 0);
  const std::string content(data + 1, data + size);
  project.Write(kFile, content);

  PlainList plain(caseCounts);
  plain.Read(content);
  cTags list;
  ReadInto(list);
  Require(Names(list) == plain.names);
  Require(NameWarnings() == plain.warnings);
  RequireFound(list);
  RequireSameWithoutIndex(plain.names, plain.warnings);
  RequireWrittenAndReadBack(project, list);
  return 0;
}
