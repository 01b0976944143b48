#include "model/tags/NameIndex.h"

#include <algorithm>
#include <cstring>

#include "platform/CodePage.h"

namespace tavrin {

namespace {

constexpr std::size_t kFirstSize = 64;
constexpr std::uint64_t kEach = 0x0101010101010101U;

bool IsAsciiLetter(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }

char Folded(const NameFold& fold, char c) { return fold.characters[static_cast<unsigned char>(c)]; }

std::uint64_t Mix(std::uint64_t state, std::uint64_t word) {
  state = (state ^ word) * 0x9E3779B97F4A7C15U;
  return state ^ (state >> 32);
}

/// a to z of eight ASCII characters to A to Z, all at once.
std::uint64_t UpperCasedAscii(std::uint64_t word) {
  const std::uint64_t fromA = word + kEach * (0x80 - 'a');       // high bit: at or above a
  const std::uint64_t aboveZ = word + kEach * (0x80 - 'z' - 1);  // high bit: above z
  return word ^ (((fromA & ~aboveZ) & (kEach * 0x80)) >> 2);     // 0x20 apart
}

/// Up to eight characters of a name as one number, each replaced by the one that stands for it.
std::uint64_t FoldedWord(const NameFold& fold, const char* text, std::size_t length) {
  std::uint64_t word = 0;
  if (length != 0) std::memcpy(&word, text, length);
  if ((word & (kEach * 0x80)) == 0) return fold.upperCasesAscii ? UpperCasedAscii(word) : word;
  std::array<char, sizeof word> characters{};
  for (std::size_t i = 0; i < length; ++i) characters[i] = Folded(fold, text[i]);
  std::memcpy(&word, characters.data(), sizeof word);
  return word;
}

}  // namespace

NameFold FoldOfNames() { return {ActiveCodePage().upper, true}; }

NameFold FoldOfExactNames() {
  NameFold fold;
  for (std::size_t i = 0; i < fold.characters.size(); ++i) fold.characters[i] = static_cast<char>(i);
  return fold;
}

NameFold FoldOfKeys() {
  NameFold fold = FoldOfExactNames();
  for (std::size_t i = 0; i < fold.characters.size(); ++i) {
    const char upper = ActiveCodePage().upper[i];
    // A letter outside A to Z never meets one of A to Z, even where the page gives it one of those as upper case.
    if (!IsAsciiLetter(fold.characters[i]) && !IsAsciiLetter(upper)) fold.characters[i] = upper;
  }
  return fold;
}

bool SameName(const NameFold& fold, std::string_view left, std::string_view right) {
  if (left.size() != right.size()) return false;
  for (std::size_t i = 0; i < left.size(); ++i) {
    if (left[i] != right[i] && Folded(fold, left[i]) != Folded(fold, right[i])) return false;
  }
  return true;
}

std::uint32_t HashName(const NameFold& fold, std::string_view name) {
  std::uint64_t state = 0x243F6A8885A308D3U ^ name.size();
  for (; name.size() >= sizeof(std::uint64_t); name.remove_prefix(sizeof(std::uint64_t))) {
    state = Mix(state, FoldedWord(fold, name.data(), sizeof(std::uint64_t)));
  }
  return static_cast<std::uint32_t>(Mix(state, FoldedWord(fold, name.data(), name.size())));
}

void NameIndex::Insert(std::uint32_t hash, std::uint32_t position) {
  if ((used_ + 1) * 4 > slots_.size() * 3) Resize(std::max(kFirstSize, slots_.size() * 2));
  Place({hash, position});
  ++used_;
}

void NameIndex::Reserve(std::size_t entries) {
  std::size_t slots = std::max(kFirstSize, slots_.size());
  while (entries * 4 > slots * 3) slots *= 2;
  if (slots > slots_.size()) Resize(slots);
}

void NameIndex::Clear() {
  slots_.clear();
  mask_ = 0;
  used_ = 0;
}

void NameIndex::Place(Slot slot) {
  std::size_t i = slot.hash & mask_;
  while (slots_[i].position != kNowhere) i = (i + 1) & mask_;
  slots_[i] = slot;
}

void NameIndex::Resize(std::size_t slots) {
  std::vector<Slot> old(slots);
  old.swap(slots_);
  mask_ = slots_.size() - 1;
  for (const Slot& slot : old) {
    if (slot.position != kNowhere) Place(slot);
  }
}

}  // namespace tavrin
