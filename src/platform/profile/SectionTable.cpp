#include "platform/profile/SectionTable.h"

#include <algorithm>
#include <utility>

#include "platform/profile/ProfileLine.h"

namespace tavrin {
namespace {

constexpr std::size_t kFirstSlots = 16;

std::vector<std::uint32_t> Headers(std::string_view bytes, std::size_t begin, std::size_t end) {
  std::vector<std::uint32_t> headers;
  for (std::size_t at = begin; at < end; at = NextLine(bytes, at)) {
    if (IsHeader(bytes, at)) headers.push_back(static_cast<std::uint32_t>(at));
  }
  return headers;
}

}  // namespace

void SectionTable::Rescan(std::string_view bytes, const Part& part) {
  const auto first = std::lower_bound(begins_.begin(), begins_.end(), part.begin);
  const auto last = std::lower_bound(first, begins_.end(), part.oldEnd);
  for (auto behind = last; behind != begins_.end(); ++behind) {
    *behind = static_cast<std::uint32_t>(*behind - part.oldEnd + part.newEnd);
  }
  std::vector<std::uint32_t> found = Headers(bytes, part.begin, part.newEnd);
  if (first == last && found.empty()) return;
  const bool atEnd = first == begins_.end();
  const std::size_t known = begins_.size();
  if (known == 0) {
    begins_ = std::move(found);
  } else {
    begins_.insert(begins_.erase(first, last), found.begin(), found.end());
  }
  if (atEnd) {
    for (std::size_t section = known; section < begins_.size(); ++section) Index(bytes, section);
  } else {
    IndexAll(bytes);
  }
}

std::size_t SectionTable::End(std::string_view bytes, std::size_t section) const {
  return section + 1 < begins_.size() ? begins_[section + 1] : bytes.size();
}

std::optional<std::size_t> SectionTable::Find(std::string_view bytes, std::string_view name) const {
  if (slots_.empty()) return std::nullopt;
  const Slot& slot = slots_[SlotOf(bytes, name, Hash(name))];
  if (slot.number == 0) return std::nullopt;
  return slot.number - 1;
}

bool SectionTable::SameName(std::string_view left, std::string_view right) const {
  return std::equal(left.begin(), left.end(), right.begin(), right.end(), [this](char a, char b) {
    return upper_[static_cast<unsigned char>(a)] == upper_[static_cast<unsigned char>(b)];
  });
}

std::uint32_t SectionTable::Hash(std::string_view name) const {
  std::uint64_t hash = 0xCBF29CE484222325;  // FNV-1a
  for (const char c : name) {
    hash = (hash ^ static_cast<unsigned char>(upper_[static_cast<unsigned char>(c)])) * 0x100000001B3;
  }
  return static_cast<std::uint32_t>(hash ^ (hash >> 32));
}

std::string_view SectionTable::Name(std::string_view bytes, std::size_t section) const {
  return ReadLine(bytes, begins_[section]).name;
}

std::size_t SectionTable::SlotOf(std::string_view bytes, std::string_view name, std::uint32_t hash) const {
  std::size_t at = hash & (slots_.size() - 1);
  while (slots_[at].number != 0) {
    if (slots_[at].hash == hash && SameName(Name(bytes, slots_[at].number - 1), name)) break;
    at = (at + 1) & (slots_.size() - 1);
  }
  return at;
}

void SectionTable::IndexAll(std::string_view bytes) {
  slots_.clear();
  names_ = 0;
  for (std::size_t section = 0; section < begins_.size(); ++section) Index(bytes, section);
}

void SectionTable::Index(std::string_view bytes, std::size_t section) {
  if (2 * (names_ + 1) > slots_.size()) Grow();
  const std::string_view name = Name(bytes, section);
  const std::uint32_t hash = Hash(name);
  Slot& slot = slots_[SlotOf(bytes, name, hash)];
  if (slot.number != 0) return;  // of two sections of one name the first counts
  slot = {hash, static_cast<std::uint32_t>(section + 1)};
  ++names_;
}

void SectionTable::Grow() {
  std::vector<Slot> old(std::max(kFirstSlots, 2 * slots_.size()));
  old.swap(slots_);
  for (const Slot& slot : old) {
    if (slot.number == 0) continue;
    std::size_t at = slot.hash & (slots_.size() - 1);
    while (slots_[at].number != 0) at = (at + 1) & (slots_.size() - 1);
    slots_[at] = slot;
  }
}

}  // namespace tavrin
