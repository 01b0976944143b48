#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace tavrin {

/// A version resource: a tree of named blocks, each with a value and blocks below it. In the resources of 32-bit and
/// 64-bit programs names and texts are UTF-16, in those of 16-bit programs 8-bit.
///
/// Block names count without case and as a whole. The first of equal names wins, even when it is empty. Padding to four
/// bytes counts from the start of the resource, wherever it lies in the file. Lengths that lead out of the resource are
/// cut at its end. A question takes no longer than the resource is, whatever it holds.
class VersionBlock {
 public:
  explicit VersionBlock(std::string bytes);

  /// The value of the block that a path names, e.g. "\\StringFileInfo\\040904E4\\CompanyName"; "\\" is the resource
  /// itself. Texts in UTF-16 come in the page in use, all other values as they are.
  /// @return nothing when there is no such block
  [[nodiscard]] std::optional<std::string> Query(std::string_view path) const;

 private:
  struct Block {
    std::size_t nameBegin = 0;
    std::size_t nameEnd = 0;
    std::size_t value = 0;      ///< where it begins
    std::size_t valueSize = 0;  ///< bytes, as the block claims
    std::size_t end = 0;        ///< of the block; at most that of the resource
    std::size_t length = 0;     ///< as the block claims
    bool text = false;          ///< the value is UTF-16
  };

  [[nodiscard]] std::optional<Block> BlockAt(std::size_t at) const;
  [[nodiscard]] std::optional<Block> Child(const Block& parent, std::string_view name) const;
  [[nodiscard]] std::size_t EndOfName(std::size_t begin) const;
  [[nodiscard]] bool IsNamed(std::size_t block, std::string_view name) const;
  [[nodiscard]] std::string ValueOf(const Block& block) const;

  std::string bytes_;
  bool wide_ = true;
};

}  // namespace tavrin
