// Any file and any edits: what an edit is not about stays, what was written is read back, the sections kept in memory
// are those of the bytes, and no answer leaves its buffer.
#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include <fuzzer/FuzzedDataProvider.h>

#include "platform/profile/ProfileAnswer.h"
#include "platform/profile/ProfileImage.h"

namespace {

using tavrin::ProfileImage;

constexpr std::string_view kBlanks = " \t\v\f\x1A";

void Require(bool condition) {
  if (!condition) std::abort();
}

bool HasBlankEnd(std::string_view text) {
  return !text.empty() && (kBlanks.find(text.front()) != kBlanks.npos || kBlanks.find(text.back()) != kBlanks.npos);
}

bool HoldsAny(std::string_view text, std::string_view characters) {
  return text.find_first_of(characters) != text.npos;
}

constexpr std::string_view kEnds("\r\n\0", 3);

/// Arguments that mean themselves: nothing in them ends a name or begins something else.
bool ArePlain(std::string_view section, std::string_view key, std::string_view value) {
  const bool plainSection = !HasBlankEnd(section) && !HoldsAny(section, kEnds) && !HoldsAny(section, "]");
  const bool plainKey = !HasBlankEnd(key) && !HoldsAny(key, kEnds) && !HoldsAny(key, "=") &&
                        (key.empty() || (key[0] != ';' && key[0] != '['));
  return plainSection && plainKey && !HoldsAny(value, kEnds);
}

std::vector<std::string> LinesOf(std::string_view bytes) {
  std::vector<std::string> lines;
  tavrin::ProfileLineReader reader(bytes, 0, bytes.size());
  while (const auto line = reader.Next()) lines.emplace_back(bytes.substr(line->begin, line->contentEnd - line->begin));
  return lines;
}

/// At most `removed` lines in a row have become at most `added` ones, all others are as they were.
void RequireFewLinesChanged(std::string_view before, std::string_view after, std::size_t removed, std::size_t added) {
  const std::vector<std::string> old = LinesOf(before);
  const std::vector<std::string> now = LinesOf(after);
  const auto [oldFirst, nowFirst] = std::mismatch(old.begin(), old.end(), now.begin(), now.end());
  auto oldLast = old.end();
  auto nowLast = now.end();
  while (oldLast != oldFirst && nowLast != nowFirst && oldLast[-1] == nowLast[-1]) --oldLast, --nowLast;
  Require(static_cast<std::size_t>(oldLast - oldFirst) <= removed);
  Require(static_cast<std::size_t>(nowLast - nowFirst) <= added);
}

void RequireSameAsNew(const ProfileImage& image) {
  const ProfileImage fresh{std::string(image.Bytes())};
  Require(image.SectionCount() == fresh.SectionCount());
  for (std::size_t section = 0; section < image.SectionCount(); ++section) {
    const std::string_view name = image.SectionName(section);
    Require(name == fresh.SectionName(section));
    Require(image.FindSection(name) == fresh.FindSection(name));
  }
}

std::string Read(const ProfileImage& image, std::string_view section, std::string_view key) {
  const auto found = image.FindSection(section);
  const auto line = found ? image.FindKey(*found, key) : std::nullopt;
  return line ? std::string(line->value) : "missing";
}

std::string Trimmed(std::string_view text) {
  while (!text.empty() && kBlanks.find(text.front()) != kBlanks.npos) text.remove_prefix(1);
  while (!text.empty() && kBlanks.find(text.back()) != kBlanks.npos) text.remove_suffix(1);
  return std::string(text);
}

void Set(ProfileImage& image, const std::string& section, const std::string& key, const std::string& value) {
  const std::string before(image.Bytes());
  image.Set(section, key, value);
  if (!ArePlain(section, key, value)) return;
  Require(Read(image, section, key) == Trimmed(value));
  RequireFewLinesChanged(before, image.Bytes(), 1, 2);
}

/// Asks everything with a buffer of exactly the size, so that a write outside of it is seen.
void Ask(const ProfileImage& image, const std::string& section, const std::string& key, std::size_t size) {
  const std::unique_ptr<char[]> bytes(new char[size]);
  const auto ask = [&](auto answer) {
    std::memset(bytes.get(), '~', size);
    Require(answer(std::span<char>(bytes.get(), size)) <= (size == 0 ? 0 : size - 1));
    Require(size == 0 || std::memchr(bytes.get(), '\0', size) != nullptr);
  };
  ask([&](auto buffer) { return tavrin::AnswerValue(image, section, key, "fallback", buffer); });
  ask([&](auto buffer) { return tavrin::AnswerKeys(image, section, "fallback", buffer); });
  ask([&](auto buffer) { return tavrin::AnswerSection(image, section, buffer); });
  ask([&](auto buffer) { return tavrin::AnswerSectionNames(image, buffer); });
}

void Edit(ProfileImage& image, FuzzedDataProvider& data) {
  const std::string before(image.Bytes());
  const std::string section = data.ConsumeRandomLengthString(8);
  const std::string key = data.ConsumeRandomLengthString(8);
  switch (data.ConsumeIntegralInRange(0, 5)) {
    case 0:
      image.RemoveKey(section, key);
      RequireFewLinesChanged(before, image.Bytes(), 2, 1);  // a CR and a LF that meet make one line end of two
      break;
    case 1: image.RemoveSection(section); break;
    case 2:
      image.Append(key);
      Require(image.Bytes() == before + key);
      break;
    case 3: Ask(image, section, key, data.ConsumeIntegralInRange<std::size_t>(0, 40)); break;
    default: Set(image, section, key, data.ConsumeRandomLengthString(12)); break;
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  FuzzedDataProvider data(bytes, size);
  const std::string file = data.ConsumeRandomLengthString(4096);
  ProfileImage image(file);
  while (data.remaining_bytes() > 0) {
    Edit(image, data);
    RequireSameAsNew(image);
    const std::size_t same = std::min(image.ChangedFrom().value_or(file.size()), file.size());
    Require(image.Bytes().substr(0, same) == std::string_view(file).substr(0, same));
  }
  return 0;
}
