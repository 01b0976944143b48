#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace tavrin {

/// Where the sections of an INI file begin, in file order, and which is the first of a name, without regard to case.
/// It costs 4 bytes a section and 8 to 16 a name. The bytes of the file stay with the caller and are handed to each
/// call as they are at that time.
class SectionTable {
 public:
  /// Upper case of each byte.
  using CaseTable = std::array<char, 256>;
  /// Longest file that the table can describe.
  static constexpr std::size_t kMaxBytes = 0xFFFFFFFF;

  explicit SectionTable(const CaseTable& upper) : upper_(upper) {}

  /// Part of the bytes that is scanned anew after an edit.
  struct Part {
    std::size_t begin = 0;   ///< a line
    std::size_t oldEnd = 0;  ///< where the part ended before the edit
    std::size_t newEnd = 0;  ///< where it ends now, a line
  };
  /// Takes an edit over. Costs the length of the part, and the number of sections behind it; headers that come or go
  /// anywhere but at the end cost the headers of the whole file.
  void Rescan(std::string_view bytes, const Part& part);

  [[nodiscard]] std::size_t Count() const { return begins_.size(); }
  /// Offset of the header line.
  [[nodiscard]] std::size_t Begin(std::size_t section) const { return begins_[section]; }
  /// Offset behind the last line.
  [[nodiscard]] std::size_t End(std::string_view bytes, std::size_t section) const;
  [[nodiscard]] std::optional<std::size_t> Find(std::string_view bytes, std::string_view name) const;

  [[nodiscard]] const CaseTable& Upper() const { return upper_; }
  [[nodiscard]] bool SameName(std::string_view left, std::string_view right) const;

 private:
  struct Slot {
    std::uint32_t hash = 0;
    std::uint32_t number = 0;  ///< of the section, counted from 1; 0 in an empty slot
  };

  [[nodiscard]] std::uint32_t Hash(std::string_view name) const;
  [[nodiscard]] std::string_view Name(std::string_view bytes, std::size_t section) const;
  /// The slot of the name, or the empty one where it belongs.
  [[nodiscard]] std::size_t SlotOf(std::string_view bytes, std::string_view name, std::uint32_t hash) const;
  void IndexAll(std::string_view bytes);
  void Index(std::string_view bytes, std::size_t section);
  void Grow();

  CaseTable upper_;
  std::vector<std::uint32_t> begins_;
  std::vector<Slot> slots_;  ///< open addressing, a power of two, at most half full
  std::size_t names_ = 0;
};

}  // namespace tavrin
