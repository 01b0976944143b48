#include "platform/version/NeImage.h"

#include <string>

namespace tavrin {
namespace {

// Microsoft's "Executable-file header format" of 16-bit programs.
constexpr std::size_t kResourceTableField = 0x24;  // holds the table's offset from the header
constexpr std::size_t kTypeSize = 8;
constexpr std::size_t kNameSize = 12;
constexpr std::uint16_t kIsNumber = 0x8000;
constexpr std::uint16_t kTypeVersion = kIsNumber | 16;
constexpr std::uint16_t kNameVersion = kIsNumber | 1;
constexpr unsigned kLargestShift = 16;
/// The table's records are reached by 16-bit offsets.
constexpr std::size_t kLargestTable = 65536;

bool Holds(const std::string& table, std::size_t at, std::size_t size) { return at + size <= table.size(); }

/// The resource of the right number among those of one type.
std::optional<FileRange> FindName(const std::string& table, std::size_t at, std::size_t count, unsigned shift) {
  for (; count > 0 && Holds(table, at, kNameSize); --count, at += kNameSize) {
    if (WordAt(table, at + 6) != kNameVersion) continue;
    return FileRange{std::uint64_t{WordAt(table, at)} << shift, std::uint64_t{WordAt(table, at + 2)} << shift};
  }
  return std::nullopt;
}

}  // namespace

std::optional<FileRange> FindVersionInNe(InputFile& file, std::uint64_t header) {
  const auto field = ReadExactly(file, header + kResourceTableField, 2);
  if (!field || WordAt(*field, 0) == 0) return std::nullopt;
  const std::string table = file.Read(header + WordAt(*field, 0), kLargestTable);
  if (!Holds(table, 0, 2) || WordAt(table, 0) > kLargestShift) return std::nullopt;
  for (std::size_t at = 2; Holds(table, at, kTypeSize);) {
    const std::uint16_t type = WordAt(table, at);
    const std::size_t count = WordAt(table, at + 2);
    if (type == 0) break;
    if (type == kTypeVersion) return FindName(table, at + kTypeSize, count, WordAt(table, 0));
    at += kTypeSize + count * kNameSize;
  }
  return std::nullopt;
}

}  // namespace tavrin
