#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>

namespace tavrin {

/// The texts of a tag in one block of memory, kept as the line that the tag file has for them: name;data;RW and then
/// each optional text that is not empty behind its keyword. A project has a million tags with a dozen texts each,
/// most of them empty: so a tag costs little more memory than its line, and writing it is one copy.
///
/// Nothing is quoted: a ";" in a text splits the line when it is read back.
class TagLine {
 public:
  enum Text : std::size_t { Name, Data, Access, HystLB, HystUB, LB, UB, Test, Comment, Test2, ListName, kCount };
  using Views = std::array<std::string_view, kCount>;

  /// What stands before each text that is not empty. The optional fields are known by it when a line is read; case
  /// counts. The texts behind the comment are not part of the line.
  static constexpr std::array<std::string_view, kCount> kLeads{
      "", ";", ";", ";HYL=", ";HYU=", ";LB=", ";UB=", ";TST=", ";CMT=", "", ""};
  static constexpr std::size_t kFirstOptional = HystLB;
  static constexpr std::size_t kLastInLine = Comment;

  [[nodiscard]] std::string_view Get(Text text) const;
  /// All texts; the views live until the next Set or Assign.
  [[nodiscard]] Views All() const;
  /// Changes one text; the others stay. @throws RuntimeError 7 when all texts together exceed 4 GB
  void Set(Text text, std::string_view value);
  /// Changes all texts at once; `texts` may be views of this object.
  void Assign(const Views& texts);

  /// The line as it is written: empty without a name; ends behind the name without data, and behind the data without
  /// access. Lives until the next Set or Assign.
  [[nodiscard]] std::string_view Complete() const;

 private:
  /// Where a text ends, counted from the start of the line.
  [[nodiscard]] std::size_t End(std::size_t text) const;
  [[nodiscard]] std::string_view Between(std::size_t text, std::size_t start, std::size_t end) const;

  // Width of a number in bytes (1, 2 or 4), the end of each text, the characters. nullptr: all texts are empty.
  std::unique_ptr<unsigned char[]> block_;
};

}  // namespace tavrin
