#include "platform/profile/ProfileImage.h"

#include <algorithm>
#include <utility>

#include "platform/CodePage.h"
#include "platform/RuntimeError.h"

namespace tavrin {
namespace {

constexpr std::string_view kLineEnd = "\r\n";

using Kind = ProfileLine::Kind;

/// Joins pieces into one text; more than two would otherwise be copied again and again.
template <typename... Pieces>
std::string Joined(const Pieces&... pieces) {
  std::string text;
  text.reserve((std::string_view(pieces).size() + ...));
  (text.append(pieces), ...);
  return text;
}

void CheckSize(std::size_t size) {
  if (size > SectionTable::kMaxBytes) throw RuntimeError(ErrorNumber::OutOfMemory);
}

}  // namespace

ProfileImage::ProfileImage(std::string bytes) : bytes_(std::move(bytes)), sections_(ActiveCodePage().upper) {
  CheckSize(bytes_.size());
  sections_.Rescan(bytes_, {0, 0, bytes_.size()});
}

bool ProfileImage::FitsCodePage() const { return sections_.Upper() == ActiveCodePage().upper; }

std::string_view ProfileImage::SectionName(std::size_t section) const {
  return ReadLine(bytes_, sections_.Begin(section)).name;
}

std::optional<std::size_t> ProfileImage::FindSection(std::string_view name) const {
  return sections_.Find(bytes_, NameArgument(name));
}

ProfileLineReader ProfileImage::Lines(std::size_t section) const {
  return {bytes_, NextLine(bytes_, sections_.Begin(section)), sections_.End(bytes_, section)};
}

std::optional<ProfileLine> ProfileImage::FindKey(std::size_t section, std::string_view key) const {
  key = NameArgument(key);
  ProfileLineReader lines = Lines(section);
  while (const std::optional<ProfileLine> line = lines.Next()) {
    if (line->kind == Kind::Key && sections_.SameName(line->name, key)) return line;
  }
  return std::nullopt;
}

void ProfileImage::Set(std::string_view section, std::string_view key, std::string_view value) {
  section = NameArgument(section);
  key = NameArgument(key);
  value = TextArgument(value);
  const std::optional<std::size_t> found = FindSection(section);
  if (!found) {
    const std::string_view first = MissingLineEnd(bytes_.size());
    Append(Joined(first, "[", section, "]", kLineEnd, key, "=", value, kLineEnd));
  } else if (const std::optional<ProfileLine> line = FindKey(*found, key)) {
    if (bytes_.compare(line->valueBegin, line->contentEnd - line->valueBegin, value) == 0) return;
    const bool ended = line->end > line->contentEnd;
    Splice(line->valueBegin, line->contentEnd - line->valueBegin, Joined(value, ended ? "" : kLineEnd));
  } else {
    const std::size_t at = EndOfKeys(*found);
    Splice(at, 0, Joined(MissingLineEnd(at), key, "=", value, kLineEnd));
  }
}

void ProfileImage::RemoveKey(std::string_view section, std::string_view key) {
  const std::optional<std::size_t> found = FindSection(section);
  const std::optional<ProfileLine> line = found ? FindKey(*found, key) : std::nullopt;
  if (line) Splice(line->begin, line->end - line->begin, {});
}

void ProfileImage::RemoveSection(std::string_view section) {
  const std::optional<std::size_t> found = FindSection(section);
  if (!found) return;
  std::string kept;
  ProfileLineReader lines = Lines(*found);
  while (const std::optional<ProfileLine> line = lines.Next()) {
    if (line->kind == Kind::Comment || line->kind == Kind::Empty)
      kept.append(bytes_, line->begin, line->end - line->begin);
  }
  const std::size_t begin = sections_.Begin(*found);
  Splice(begin, sections_.End(bytes_, *found) - begin, kept);
}

void ProfileImage::Splice(std::size_t at, std::size_t removed, std::string_view inserted) {
  if (removed == 0 && inserted.empty()) return;
  CheckSize(bytes_.size() - removed + inserted.size());
  // Whether a line is a header hangs on this line alone. So only the lines that the edit touches are looked at anew:
  // from the one where it begins to the end of the one that now holds the first byte behind it. A CR and a LF that
  // meet at a seam make a line end less, or an empty line more, and no difference to any header.
  std::size_t begin = at;
  while (!IsLineBegin(bytes_, begin)) --begin;
  const bool beforeLine = IsLineBegin(bytes_, at + removed);
  bytes_.replace(at, removed, inserted);
  changedFrom_ = std::min(changedFrom_.value_or(at), at);
  const std::size_t behind = at + inserted.size();
  const bool afterLine = behind == 0 || IsLineEnd(bytes_[behind - 1]);
  const std::size_t newEnd = beforeLine && afterLine ? behind : NextLine(bytes_, behind);
  sections_.Rescan(bytes_, {begin, newEnd - inserted.size() + removed, newEnd});
}

std::string_view ProfileImage::MissingLineEnd(std::size_t at) const {
  return at == 0 || IsLineEnd(bytes_[at - 1]) ? std::string_view() : kLineEnd;
}

std::size_t ProfileImage::EndOfKeys(std::size_t section) const {
  std::size_t end = NextLine(bytes_, sections_.Begin(section));
  ProfileLineReader lines = Lines(section);
  while (const std::optional<ProfileLine> line = lines.Next()) {
    if (line->kind == Kind::Key) end = line->end;
  }
  return end;
}

}  // namespace tavrin
