#include "sim/DataAddress.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace tavrin {

namespace {

struct SizeWord {
  std::string_view word;
  ValueKind kind;
};

/// How the letters of an address end, longer words first: "WORD" ends in "D".
constexpr std::array kSizeWords{
    SizeWord{"DWORD", ValueKind::UInt32}, SizeWord{"BOOL", ValueKind::Bit},   SizeWord{"BYTE", ValueKind::UInt8},
    SizeWord{"CHAR", ValueKind::Int8},    SizeWord{"DINT", ValueKind::Int32}, SizeWord{"REAL", ValueKind::Single},
    SizeWord{"WORD", ValueKind::UInt16},  SizeWord{"INT", ValueKind::Int16},  SizeWord{"B", ValueKind::UInt8},
    SizeWord{"W", ValueKind::UInt16},     SizeWord{"D", ValueKind::UInt32},   SizeWord{"X", ValueKind::Bit},
};

/// Areas of a controller's memory in German and English letters; the empty one is that of a data block's type word.
constexpr std::array<std::string_view, 14> kAreas{"",  "M", "E",  "A",  "I",  "Q",  "F",
                                                  "S", "P", "DB", "PE", "PA", "PI", "PQ"};

/// The data words of an S5, which have bits too. "DB" is not a byte of them but a data block.
constexpr std::string_view kDataWord = "D";

/// Letters that are a whole address form of their own: S5 data words and their halves, flag bytes, timers, counters.
constexpr std::array kWholeWords{
    SizeWord{"DW", ValueKind::UInt16}, SizeWord{"DD", ValueKind::UInt32}, SizeWord{"DL", ValueKind::UInt8},
    SizeWord{"DR", ValueKind::UInt8},  SizeWord{"FY", ValueKind::UInt8},  SizeWord{"T", ValueKind::UInt16},
    SizeWord{"C", ValueKind::UInt16},  SizeWord{"Z", ValueKind::UInt16},
};

constexpr std::uint32_t kMostElements = 65535;

bool IsArea(std::string_view letters) { return std::find(kAreas.begin(), kAreas.end(), letters) != kAreas.end(); }

/// Reads an address from left to right.
class Reader {
 public:
  explicit Reader(std::string_view text) : text_(text) {}

  [[nodiscard]] bool AtEnd() const { return text_.empty(); }
  [[nodiscard]] bool Skip(std::string_view start) {
    if (!text_.starts_with(start)) return false;
    text_.remove_prefix(start.size());
    return true;
  }
  [[nodiscard]] std::string_view Letters() {
    return Take([](char c) { return c >= 'A' && c <= 'Z'; });
  }
  [[nodiscard]] std::string_view Digits() {
    return Take([](char c) { return c >= '0' && c <= '9'; });
  }

 private:
  template <class Accepts>
  std::string_view Take(Accepts accepts) {
    std::size_t count = 0;
    while (count < text_.size() && accepts(text_[count])) ++count;
    const std::string_view taken = text_.substr(0, count);
    text_.remove_prefix(count);
    return taken;
  }

  std::string_view text_;
};

/// The address without the data block that it begins with.
std::string_view InsideOfBlock(std::string_view address) {
  for (const std::string_view block : {"DB", "DX", "DI"}) {
    Reader reader(address);
    if (!reader.Skip(block)) continue;
    const std::string_view number = reader.Digits();
    if (!number.empty() && (reader.Skip(".") || reader.Skip(","))) {
      return address.substr(block.size() + number.size() + 1);
    }
  }
  return address;
}

std::optional<ValueKind> KindOfLetters(std::string_view letters) {
  for (const SizeWord& whole : kWholeWords) {
    if (letters == whole.word) return whole.kind;
  }
  for (const SizeWord& size : kSizeWords) {
    if (letters.ends_with(size.word) && IsArea(letters.substr(0, letters.size() - size.word.size()))) return size.kind;
  }
  return std::nullopt;
}

/// The number of elements behind an address; 0 when there is none, nothing when what stands there is none.
std::optional<std::uint32_t> Count(Reader& reader) {
  if (reader.AtEnd()) return 0;
  const bool brackets = reader.Skip("[");
  if (!brackets && !reader.Skip(",")) return std::nullopt;
  const std::string_view digits = reader.Digits();
  if ((brackets && !reader.Skip("]")) || !reader.AtEnd()) return std::nullopt;
  std::uint32_t count = 0;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), count);
  if (error != std::errc{} || count < 1 || count > kMostElements) return std::nullopt;
  return count;
}

}  // namespace

std::optional<ItemType> TypeAtAddress(std::string_view address) {
  if (address.starts_with('%')) address.remove_prefix(1);
  Reader reader(InsideOfBlock(address));
  const std::string_view letters = reader.Letters();
  if (letters.empty() || reader.Digits().empty()) return std::nullopt;

  std::optional<ValueKind> kind = KindOfLetters(letters);
  if (reader.Skip(".")) {
    const bool isBit = IsArea(letters) || letters == kDataWord || kind == ValueKind::Bit;
    if (!isBit || reader.Digits().empty()) return std::nullopt;
    kind = ValueKind::Bit;
  }
  const auto count = Count(reader);
  if (!kind || !count) return std::nullopt;
  return ItemType{*kind, *count};
}

}  // namespace tavrin
