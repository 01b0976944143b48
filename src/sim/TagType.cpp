#include "sim/TagType.h"

#include <algorithm>

#include "model/tags/cTag.h"
#include "sim/DataAddress.h"
#include "sim/FreeNumbers.h"

namespace tavrin {

namespace {

/// The numbers of a tag that show of what kind its value is.
std::vector<std::string_view> Hints(const cTag& tag) {
  std::vector<std::string_view> hints = TestPieces(tag.szTest());
  hints.insert(hints.end(), {tag.szLB(), tag.szUB(), tag.szHystLB(), tag.szHystUB()});
  return hints;
}

bool IsNegative(std::string_view text) { return FreeNumber(text).value_or(0) < 0; }

ValueKind Signed(ValueKind kind) {
  switch (kind) {
    case ValueKind::UInt8: return ValueKind::Int8;
    case ValueKind::UInt16: return ValueKind::Int16;
    case ValueKind::UInt32: return ValueKind::Int32;
    default: return kind;
  }
}

}  // namespace

ItemType TypeOf(const cTag& tag) {
  ItemType type = TypeAtAddress(tag.szData()).value_or(ItemType{});
  const std::vector<std::string_view> hints = Hints(tag);
  const bool isReal = std::any_of(hints.begin(), hints.end(), IsWrittenAsReal);
  if (type.kind == ValueKind::UInt32 && isReal) type.kind = ValueKind::Single;
  if (std::any_of(hints.begin(), hints.end(), IsNegative)) type.kind = Signed(type.kind);
  const std::size_t pieces = hints.size() - 4;
  if (pieces > 1) type.count = static_cast<std::uint32_t>(pieces);
  return type;
}

std::optional<Values> TestValues(std::string_view szTest, const ItemType& type) {
  Values values;
  for (const std::string_view piece : TestPieces(szTest)) {
    const auto number = FreeNumber(piece);
    if (!number) return std::nullopt;
    values.push_back(Nearest(type.kind, *number));
  }
  if (values.size() != std::max(1U, type.count)) return std::nullopt;
  return values;
}

}  // namespace tavrin
