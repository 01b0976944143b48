#include "platform/version/VersionBlock.h"

#include <algorithm>

#include "platform/BestFit.h"
#include "platform/version/Bytes.h"

namespace tavrin {
namespace {

constexpr std::size_t kWideHeader = 6;    // length, length of the value, type
constexpr std::size_t kNarrowHeader = 4;  // length, length of the value
constexpr std::size_t kNone = std::string::npos;

std::size_t Padded(std::size_t offset) { return (offset + 3) & ~std::size_t{3}; }

unsigned Lower(unsigned character) {
  return character >= 'A' && character <= 'Z' ? character + ('a' - 'A') : character;
}

/// The first piece of a path; takes it off.
std::string_view TakePiece(std::string_view& path) {
  path.remove_prefix(std::min(path.find_first_not_of('\\'), path.size()));
  const std::string_view piece = path.substr(0, path.find('\\'));
  path.remove_prefix(piece.size());
  return piece;
}

}  // namespace

VersionBlock::VersionBlock(std::string bytes) : bytes_(std::move(bytes)) {
  // A wide block has its type there, 0 or 1, a narrow one the first letter of its name.
  wide_ = bytes_.size() <= kNarrowHeader || static_cast<unsigned char>(bytes_[kNarrowHeader]) < ' ';
}

std::optional<std::string> VersionBlock::Query(std::string_view path) const {
  std::optional<Block> block = BlockAt(0);
  while (block) {
    const std::string_view name = TakePiece(path);
    if (name.empty()) return ValueOf(*block);
    block = Child(*block, name);
  }
  return std::nullopt;
}

std::optional<VersionBlock::Block> VersionBlock::BlockAt(std::size_t at) const {
  const std::size_t header = wide_ ? kWideHeader : kNarrowHeader;
  if (at + header > bytes_.size()) return std::nullopt;
  Block block;
  block.length = WordAt(bytes_, at);
  block.end = std::min(at + block.length, bytes_.size());
  block.text = wide_ && WordAt(bytes_, at + 4) != 0;
  block.valueSize = WordAt(bytes_, at + 2) * std::size_t{block.text ? 2U : 1U};
  block.nameBegin = at + header;
  block.nameEnd = EndOfName(block.nameBegin);
  if (block.nameEnd == kNone) return std::nullopt;
  block.value = Padded(block.nameEnd + (wide_ ? 2 : 1));
  return block;
}

std::optional<VersionBlock::Block> VersionBlock::Child(const Block& parent, std::string_view name) const {
  std::size_t at = parent.value + Padded(parent.valueSize);
  while (at < parent.end) {
    // A child that has another name is only stepped over: of a hostile resource, the names of all could reach to its
    // end.
    if (IsNamed(at, name)) return BlockAt(at);
    const std::size_t length = at + 2 <= bytes_.size() ? WordAt(bytes_, at) : 0;
    if (length == 0) break;
    at += Padded(length);
  }
  return std::nullopt;
}

std::size_t VersionBlock::EndOfName(std::size_t begin) const {
  if (!wide_) return bytes_.find('\0', begin);
  for (std::size_t at = begin; at + 2 <= bytes_.size(); at += 2) {
    if (WordAt(bytes_, at) == 0) return at;
  }
  return kNone;
}

bool VersionBlock::IsNamed(std::size_t block, std::string_view name) const {
  const std::size_t step = wide_ ? 2 : 1;
  const std::size_t begin = block + (wide_ ? kWideHeader : kNarrowHeader);
  if (begin + (name.size() + 1) * step > bytes_.size()) return false;
  const auto character = [&](std::size_t index) -> unsigned {
    const std::size_t at = begin + index * step;
    return wide_ ? WordAt(bytes_, at) : static_cast<unsigned char>(bytes_[at]);
  };
  for (std::size_t index = 0; index < name.size(); ++index) {
    if (Lower(character(index)) != Lower(static_cast<unsigned char>(name[index]))) return false;
  }
  return character(name.size()) == 0;
}

std::string VersionBlock::ValueOf(const Block& block) const {
  if (block.value >= bytes_.size()) return {};
  std::string value = bytes_.substr(block.value, block.valueSize);
  if (!block.text) return value;
  std::u16string units;
  for (std::size_t at = 0; at + 2 <= value.size(); at += 2) units += static_cast<char16_t>(WordAt(value, at));
  return FromUtf16(units);
}

}  // namespace tavrin
