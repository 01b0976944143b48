#include "model/tags/TagFileReader.h"

#include <algorithm>
#include <array>
#include <memory>
#include <utility>

#include "model/cOPC.h"
#include "model/shared/Messages.h"
#include "model/shared/cWarnings.h"
#include "model/shared/modMain.h"
#include "model/shared/modParser.h"
#include "model/tags/cTags.h"
#include "platform/CodePage.h"

namespace tavrin {

namespace {

constexpr std::size_t kShortestUsualLine = 16;

/// Takes the text before the first `mark` off `rest`; all of it when there is none.
std::string_view TakeField(std::string_view& rest, char mark) {
  const std::size_t end = rest.find(mark);
  const std::string_view field = rest.substr(0, end);
  rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
  return field;
}

void AssignUpperCase(std::string& to, std::string_view text) {
  const auto& upper = ActiveCodePage().upper;
  to.resize(text.size());
  std::transform(text.begin(), text.end(), to.begin(), [&](char c) { return upper[static_cast<unsigned char>(c)]; });
}

}  // namespace

TagFileReader::TagFileReader(cTags& list, std::int32_t nDeviceType, std::int32_t nPLCType)
    : list_(list),
      nDeviceType_(nDeviceType),
      nPLCType_(nPLCType),
      nCaseSensitive_(modMain::OpenProject().nCaseSensitive()),
      fold_(nCaseSensitive_ == 1 ? FoldOfExactNames() : FoldOfNames()) {
  for (std::uint32_t i = 0; i < list_.tags_.size(); ++i) NoteName(i);
}

void TagFileReader::Read(std::string& content) {
  if (content.find('\t') != std::string::npos) std::replace(content.begin(), content.end(), '\t', ' ');
  MakeRoom(content);
  std::string_view rest = content;
  while (!rest.empty()) {
    std::string_view lines = TakeField(rest, '\n');
    do {
      ReadLine(TakeField(lines, '\r'));
    } while (!lines.empty());
  }
}

void TagFileReader::MakeRoom(std::string_view content) {
  // A guess: a hostile file of empty lines must not cost more memory than a file of tags of its size.
  const auto lines = static_cast<std::size_t>(std::count(content.begin(), content.end(), '\n'));
  const std::size_t tags = std::min(lines, content.size() / kShortestUsualLine);
  list_.tags_.reserve(list_.tags_.size() + tags);
  names_.Reserve(tags);
}

void TagFileReader::ReadLine(std::string_view line) {
  if (modMain::TrimBlanks(line).empty()) return;
  line_ = line;
  const auto separators = std::count(line.begin(), line.end(), ';');
  if (separators < 2) WarnOfLine(203);

  auto tag = std::make_unique<cTag>();
  tag->szFileName(list_.szFileName());
  TagLine::Views texts;
  std::string_view rest = line;
  const bool nameIsNew = ReadName(TakeField(rest, ';'), *tag, texts);
  if (separators >= 1) ReadData(TakeField(rest, ';'), *tag, texts);
  if (separators >= 2) ReadAccess(TakeField(rest, ';'), *tag, texts);
  while (!rest.empty()) ReadOptional(TakeField(rest, ';'), texts);

  tag->line_.Assign(texts);
  tag->bDataDirty(false);
  AddTag(std::move(tag), nameIsNew);
}

void TagFileReader::AddTag(std::unique_ptr<cTag> tag, bool nameIsNew) {
  if (nameIsNew && fold_.upperCasesAscii) {
    // New without regard to case, so its key is new as well and need not be looked for.
    list_.Append(std::move(tag));
    names_.Insert(nameHash_, static_cast<std::uint32_t>(list_.Count()) - 1);
  } else if (list_.AddItem(std::move(tag))) {
    NoteName(static_cast<std::uint32_t>(list_.Count()) - 1);
  } else {
    WarnOfLine(220);
  }
}

bool TagFileReader::ReadName(std::string_view field, cTag& tag, TagLine::Views& texts) {
  name_ = modMain::TrimBlanks(field);
  if (nCaseSensitive_ == cTag::kStoresUpperCase) name_ = UpperCase(name_);
  WarnOfLine(NameCheckText(ParserIsValidTagName(name_)));
  const bool isUnique = IsUnique(name_);
  if (!isUnique) modMain::ReadWarnings().AddWarning(WarningKind::Tag, list_.szFileName(), NameProblem(221, name_));
  // The assignment checks once more: a bad name is told in a box as well, and the tag stays without a name.
  if (name_.empty() || !tag.AcceptName(name_)) return false;
  texts[TagLine::Name] = name_;
  tag.bLetError(false);
  return isUnique && name_ == asked_;
}

void TagFileReader::ReadData(std::string_view field, cTag& tag, TagLine::Views& texts) {
  AssignUpperCase(data_, modMain::TrimBlanks(field));
  WarnOfLine(SourceCheckText(ParserIsValidSource(data_, nDeviceType_, nPLCType_)));
  if (data_.empty()) return;
  texts[TagLine::Data] = data_;
  tag.bLetError(false);
}

void TagFileReader::ReadAccess(std::string_view field, cTag& tag, TagLine::Views& texts) {
  const std::string_view word = modMain::TrimBlanks(field);
  static constexpr std::array<std::string_view, 2> kWords{"RO", "RW"};
  for (const std::string_view access : kWords) {
    if (!EqualIgnoringCase(word, access)) continue;
    texts[TagLine::Access] = access;
    tag.bLetError(false);
    return;
  }
  WarnOfLine(203);
}

void TagFileReader::ReadOptional(std::string_view field, TagLine::Views& texts) {
  field = modMain::TrimBlanks(field);
  for (std::size_t i = TagLine::kFirstOptional; i <= TagLine::kLastInLine; ++i) {
    const std::string_view keyword = TagLine::kLeads[i].substr(1);
    if (field.substr(0, keyword.size()) != keyword) continue;
    texts[i] = field.substr(keyword.size());
    return;
  }
}

bool TagFileReader::IsUnique(std::string_view name) {
  asked_ = nCaseSensitive_ == 1 ? name : modMain::TrimBlanks(name);
  nameHash_ = HashName(fold_, asked_);
  const auto isSame = [&](std::uint32_t i) { return SameName(fold_, list_.tags_[i]->szTag(), asked_); };
  return names_.Find(nameHash_, isSame) == NameIndex::kNowhere;
}

void TagFileReader::NoteName(std::uint32_t position) {
  const std::string_view name = list_.tags_[position]->szTag();
  const std::uint32_t hash = HashName(fold_, name);
  const auto isSame = [&](std::uint32_t i) { return SameName(fold_, list_.tags_[i]->szTag(), name); };
  if (names_.Find(hash, isSame) == NameIndex::kNowhere) names_.Insert(hash, position);
}

void TagFileReader::WarnOfLine(std::int32_t textNumber) {
  if (textNumber == 0) return;
  modMain::ReadWarnings().AddWarning(WarningKind::Tag, list_.szFileName(), NameProblem(textNumber, line_));
}

}  // namespace tavrin
