#include "online/TestItems.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

#include "model/shared/modMain.h"
#include "model/tags/cTag.h"
#include "online/OnlineServer.h"
#include "online/TestDevice.h"
#include "online/opc/Coercion.h"
#include "platform/Regional.h"
#include "platform/RuntimeError.h"

namespace tavrin {

namespace {

/// Access of a tag that the server lets nobody write.
constexpr std::string_view kReadOnly = "RO";
constexpr std::array kReserved{kCommandTag, kResultTag, kResultArrayTag};
/// Conversion code, and the type that it stands for.
constexpr auto kDoubles = static_cast<std::uint16_t>(VariantType::Double);

std::string DecimalSeparator() { return modMain::Platform().around.regional.DecimalSeparator(); }

std::vector<std::string> Split(std::string_view text, char separator) {
  std::vector<std::string> pieces;
  for (std::size_t begin = 0;;) {
    const std::size_t end = text.find(separator, begin);
    pieces.emplace_back(text.substr(begin, end - begin));
    if (end == std::string_view::npos) return pieces;
    begin = end + 1;
  }
}

/// The array with the pieces as its elements; as it is where their number differs.
Variant WithElements(Variant array, std::string_view setValue) {
  std::vector<Scalar> elements;
  for (std::string& piece : Split(setValue, '|')) elements.emplace_back(std::move(piece));
  if (array.Elements().size() != elements.size()) return array;
  constexpr auto kDoubleArray = static_cast<std::uint16_t>(kDoubles | kArrayBit);
  return Coerced(Variant::Array(VariantType::Text, std::move(elements)), kDoubleArray);
}

/// What the value reads as; nothing for an empty array.
std::optional<std::string> TextOf(const Variant& value) {
  if (!value.IsArray()) return ScalarText(value.ElementType(), value.Elements().front(), DecimalSeparator());
  const Variant doubles = CNumericArray(value, kDoubles);
  if (doubles.UpperBound() < 0) return std::nullopt;
  return ArrayText(doubles, DecimalSeparator());
}

}  // namespace

void TestItems::CreateCommandItems() {
  Disconnect();
  for (const std::string_view tag : kReserved) AddItem(tag);
  control_.ControlConnect();
}

void TestItems::Command(TestCommand command) {
  ItemOf(kCommandTag).ItemValue(Variant(VariantType::Int16, static_cast<std::int64_t>(command)));
  control_.ControlWrite();
}

void TestItems::Subscribe() {
  Disconnect();
  control_.ControlItems().ClearItems();
  for (const cTag* const tag : device_.Tags()) AddItem(tag->szTag());
  control_.ControlConnect();
}

void TestItems::WriteSetValue(const cTag& tag) {
  const std::string_view setValue = tag.szTest();
  const bool reserved = std::find(kReserved.begin(), kReserved.end(), tag.szTag()) != kReserved.end();
  OPCItem& item = ItemOf(tag.szTag());
  if (!reserved && setValue.find('|') != std::string_view::npos) {
    const Variant array = WithElements(CNumericArray(item.ItemValue(), kDoubles), setValue);
    item.ItemValue(CNumericArray(array, item.ItemDataType()));
  } else if (!reserved && !setValue.empty()) {
    item.ItemValue(Variant::OfText(std::string(setValue)));
  }
  item.ItemWriteFlag(true);
  if (tag.szRW() == kReadOnly) {
    modMain::IgnoreErrors([this] { control_.ControlWrite(); });
  } else {
    control_.ControlWrite();
  }
}

void TestItems::Take(const std::vector<OPCItem*>& changed) {
  std::string text;
  for (const OPCItem* const item : changed) {
    const std::vector<std::string> pieces = Split(item->ItemID(), '/');
    if (pieces.size() < 2) continue;
    // A value that has no text leaves that of the item before.
    modMain::IgnoreErrors([&] { text = TextOf(item->ItemValue()).value_or(text); });
    cTag* const tag = device_.Tag(pieces[1]);
    if (tag == nullptr) continue;
    modMain::IgnoreErrors([&] { tag->szTest2(text); });
    tag->nQuality(item->ItemQuality());
  }
}

void TestItems::Hold(const std::vector<OPCItem*>& changed) {
  for (const OPCItem* const item : changed) {
    if (isHeld_.insert(item->ItemID()).second) held_.push_back(item->ItemID());
  }
}

std::vector<OPCItem*> TestItems::Held() {
  isHeld_.clear();
  std::vector<OPCItem*> items;
  for (const std::string& name : std::exchange(held_, {})) {
    modMain::IgnoreErrors([&] { items.push_back(&control_.ControlItems().ItemByName(name)); });
  }
  return items;
}

void TestItems::Disconnect() {
  control_.ControlDisconnect();
  isHeld_.clear();
  held_.clear();
}

OPCItem& TestItems::ItemOf(std::string_view tag) {
  return control_.ControlItems().ItemByName(OnlineItemName(device_.Name(), tag));
}

void TestItems::AddItem(std::string_view tag) {
  modMain::IgnoreErrors([&] { control_.ControlItems().AddItem(OnlineItemName(device_.Name(), tag)); });
}

}  // namespace tavrin
