#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace tavrin {

/// Which names count as the same: a table that gives each character the one that stands for it.
struct NameFold {
  std::array<char, 256> characters{};
  bool upperCasesAscii = false;  ///< a to z become A to Z; otherwise all characters below 128 stand for themselves
};

/// Names are the same without regard to case.
[[nodiscard]] NameFold FoldOfNames();
/// Names are the same only when they are equal.
[[nodiscard]] NameFold FoldOfExactNames();
/// Keys of a tag list: the case of A to Z counts, that of all other letters does not.
[[nodiscard]] NameFold FoldOfKeys();

[[nodiscard]] bool SameName(const NameFold& fold, std::string_view left, std::string_view right);
[[nodiscard]] std::uint32_t HashName(const NameFold& fold, std::string_view name);

/// Finds positions in a list by the hash of their names; 8 bytes an entry and no text of its own, so that an index of
/// a million tags stays small.
class NameIndex {
 public:
  static constexpr std::uint32_t kNowhere = 0xFFFFFFFF;

  /// @param isSame tells whether the name at a position is the one looked for @return kNowhere when there is none
  template <class IsSame>
  [[nodiscard]] std::uint32_t Find(std::uint32_t hash, const IsSame& isSame) const {
    if (slots_.empty()) return kNowhere;
    for (std::size_t i = hash & mask_;; i = (i + 1) & mask_) {
      const Slot& slot = slots_[i];
      if (slot.position == kNowhere) return kNowhere;
      if (slot.hash == hash && isSame(slot.position)) return slot.position;
    }
  }

  void Insert(std::uint32_t hash, std::uint32_t position);
  /// Makes room for so many entries at once.
  void Reserve(std::size_t entries);
  void Clear();

 private:
  struct Slot {
    std::uint32_t hash = 0;
    std::uint32_t position = kNowhere;
  };

  void Place(Slot slot);
  void Resize(std::size_t slots);

  std::vector<Slot> slots_;  // a power of two, at most three quarters full
  std::size_t mask_ = 0;
  std::size_t used_ = 0;
};

}  // namespace tavrin
