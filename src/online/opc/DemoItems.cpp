#include "online/opc/DemoItems.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "online/opc/Coercion.h"
#include "platform/RuntimeError.h"

namespace tavrin {

namespace {

enum class Motion { Written, Increment, Toggle, Wave, Clock };

struct DemoItem {
  std::string_view name;
  std::uint16_t typeCode;
  Motion motion;
  std::uint64_t span = 0;  ///< an incremented value begins at 0 again when it gets here
};

constexpr std::uint16_t Code(VariantType type) { return static_cast<std::uint16_t>(type); }
constexpr std::uint16_t ArrayCode(VariantType type) { return static_cast<std::uint16_t>(Code(type) | kArrayBit); }

constexpr std::string_view kCommand = "Demo/COMMAND";
constexpr std::string_view kResult = "Demo/RESULT";
constexpr std::string_view kResultArray = "Demo/RESULTARRAY";

constexpr std::array kItems{
    DemoItem{"increment.UI2 array", ArrayCode(VariantType::UInt16), Motion::Increment, 1ULL << 16},
    DemoItem{"increment.I1", Code(VariantType::Int8), Motion::Increment, 1ULL << 7},
    DemoItem{"increment.I2", Code(VariantType::Int16), Motion::Increment, 1ULL << 15},
    DemoItem{"increment.I4", Code(VariantType::Int32), Motion::Increment, 1ULL << 31},
    DemoItem{"increment.UI1", Code(VariantType::UInt8), Motion::Increment, 1ULL << 8},
    DemoItem{"increment.UI2", Code(VariantType::UInt16), Motion::Increment, 1ULL << 16},
    DemoItem{"increment.UI4", Code(VariantType::UInt32), Motion::Increment, 1ULL << 32},
    DemoItem{"increment.R8 array", ArrayCode(VariantType::Double), Motion::Increment, 1ULL << 32},
    DemoItem{"wave.R4", Code(VariantType::Single), Motion::Wave},
    DemoItem{"wave.R8", Code(VariantType::Double), Motion::Wave},
    DemoItem{"toggle.BOOL", Code(VariantType::Boolean), Motion::Toggle},
    DemoItem{"clock.DATE", Code(VariantType::Date), Motion::Clock},
    DemoItem{"static.BOOL", Code(VariantType::Boolean), Motion::Written},
    DemoItem{"static.I2", Code(VariantType::Int16), Motion::Written},
    DemoItem{"static.I4", Code(VariantType::Int32), Motion::Written},
    DemoItem{"static.UI2", Code(VariantType::UInt16), Motion::Written},
    DemoItem{"static.UI4", Code(VariantType::UInt32), Motion::Written},
    DemoItem{"static.R4", Code(VariantType::Single), Motion::Written},
    DemoItem{"static.R8", Code(VariantType::Double), Motion::Written},
    DemoItem{"static.BSTR", Code(VariantType::Text), Motion::Written},
    DemoItem{"static.UI2 array", ArrayCode(VariantType::UInt16), Motion::Written},
    DemoItem{"static.R4 array", ArrayCode(VariantType::Single), Motion::Written},
    DemoItem{kCommand, Code(VariantType::UInt16), Motion::Written},
    DemoItem{kResult, Code(VariantType::UInt16), Motion::Written},
    DemoItem{kResultArray, ArrayCode(VariantType::UInt16), Motion::Written},
    DemoItem{"Demo/BIT", Code(VariantType::Boolean), Motion::Written},
    DemoItem{"Demo/WORD", Code(VariantType::UInt16), Motion::Written},
    DemoItem{"Demo/REAL", Code(VariantType::Single), Motion::Written},
    DemoItem{"Demo/WORDS", ArrayCode(VariantType::UInt16), Motion::Written},
};

constexpr std::size_t kArrayLength = 3;

/// A value or array of the item's type with `number` in its first element, and one more in each further one.
Variant Counted(const DemoItem& item, std::uint64_t number, std::uint64_t rise) {
  const bool array = (item.typeCode & kArrayBit) != 0;
  std::vector<Scalar> numbers;
  for (std::size_t i = 0; i < (array ? kArrayLength : 1); ++i) {
    const std::uint64_t value = number + i * rise;
    numbers.emplace_back(item.span == 0 ? value : value % item.span);
  }
  Variant counted =
      array ? Variant::Array(VariantType::UInt64, std::move(numbers)) : Variant(VariantType::UInt64, numbers.front());
  return Coerced(counted, item.typeCode);
}

Variant Moved(const DemoItem& item, std::uint64_t steps, UtcTime now) {
  constexpr double kStepsOfWave = 40;
  constexpr double kFullTurn = 6.283185307179586;
  switch (item.motion) {
    case Motion::Toggle: return {VariantType::Boolean, steps % 2 == 1};
    case Motion::Wave: {
      const double angle = std::fmod(static_cast<double>(steps), kStepsOfWave) * kFullTurn / kStepsOfWave;
      return Coerced(Variant(VariantType::Double, 100 * std::sin(angle)), item.typeCode);
    }
    case Motion::Clock: return {VariantType::Date, DaysOf(now)};
    default: return Counted(item, steps, 1);
  }
}

std::size_t IndexOf(std::string_view name) {
  const auto found =
      std::find_if(kItems.begin(), kItems.end(), [name](const DemoItem& item) { return item.name == name; });
  return static_cast<std::size_t>(found - kItems.begin());
}

}  // namespace

DemoItems::DemoItems() {
  values_.reserve(kItems.size());
  for (const DemoItem& item : kItems) {
    const bool text = item.typeCode == Code(VariantType::Text);
    values_.push_back(text ? Variant::OfText("") : Counted(item, 0, 0));
  }
}

std::optional<std::size_t> DemoItems::Find(std::string_view name) const {
  const std::size_t item = IndexOf(name);
  return item == kItems.size() ? std::nullopt : std::optional(item);
}

bool DemoItems::Moves(std::size_t item) const { return kItems.at(item).motion != Motion::Written; }

void DemoItems::Step(UtcTime now) {
  ++steps_;
  for (std::size_t item = 0; item < kItems.size(); ++item) {
    if (Moves(item)) values_[item] = Moved(kItems.at(item), steps_, now);
  }
}

void DemoItems::Write(std::size_t item, const Variant& value) {
  if (Moves(item)) throw RuntimeError(ErrorNumber::PermissionDenied);
  values_[item] = Coerced(value, kItems.at(item).typeCode);
  if (kItems.at(item).name != kCommand) return;
  ++commands_;
  const Scalar command = values_[item].Elements().front();
  values_[IndexOf(kResult)] = values_[item];
  values_[IndexOf(kResultArray)] = Variant::Array(VariantType::UInt16, {command, commands_ % (1ULL << 16)});
}

}  // namespace tavrin
