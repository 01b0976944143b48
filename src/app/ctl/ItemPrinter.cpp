#include "app/ctl/ItemPrinter.h"

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <variant>

#include <fmt/format.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include "app/ctl/PlainText.h"
#include "model/shared/modMain.h"
#include "online/LocalTime.h"
#include "online/QualityText.h"
#include "platform/CodePage.h"
#include "platform/Regional.h"

namespace tavrin {

namespace {

using Json = rapidjson::Writer<rapidjson::StringBuffer>;

void AddText(Json& json, std::string_view utf8) {
  json.String(utf8.data(), static_cast<rapidjson::SizeType>(utf8.size()));
}

/// Numbers that JSON does not have become null.
struct AddScalar {
  Json& json;

  void operator()(std::monostate) const { json.Null(); }
  void operator()(bool value) const { json.Bool(value); }
  void operator()(std::int64_t value) const { json.Int64(value); }
  void operator()(std::uint64_t value) const { json.Uint64(value); }
  void operator()(double value) const { std::isfinite(value) ? json.Double(value) : json.Null(); }
  void operator()(const std::string& value) const { AddText(json, ToUtf8(value)); }
};

void AddValue(Json& json, const Variant& value) {
  if (value.IsArray()) json.StartArray();
  for (const Scalar& element : value.Elements()) std::visit(AddScalar{json}, element);
  if (value.IsArray()) json.EndArray();
}

/// E.g. 2026-11-20T14:05:09.250Z.
std::string IsoText(UtcTime moment) {
  const DateTime parts = Split(moment);
  return fmt::format("{:04}-{:02}-{:02}T{:02}:{:02}:{:02}.{:03}Z", parts.year, parts.month, parts.day, parts.hour,
                     parts.minute, parts.second, parts.milliseconds);
}

std::string JsonLine(const OPCItem& item) {
  rapidjson::StringBuffer buffer;
  Json json(buffer);
  json.StartObject();
  json.Key("item");
  AddText(json, ToUtf8(item.ItemID()));
  json.Key("value");
  AddValue(json, item.ItemValue());
  json.Key("type");
  json.Uint(item.ItemDataType());
  json.Key("quality");
  json.Uint(item.ItemQuality());
  json.Key("qualityText");
  AddText(json, QualityText(item.ItemQuality()));
  json.Key("time");
  AddText(json, IsoText(item.ItemTimeStamp()));
  json.EndObject();
  return std::string(buffer.GetString(), buffer.GetSize()) + "\n";
}

std::string ValueText(const Variant& value) {
  if (value.ElementType() == VariantType::Null) return {};
  const std::string separator = modMain::Platform().around.regional.DecimalSeparator();
  return value.IsArray() ? ArrayText(value, separator)
                         : ScalarText(value.ElementType(), value.Elements().front(), separator);
}

}  // namespace

void ItemPrinter::Print(const std::vector<OPCItem*>& changed) {
  for (const OPCItem* const item : changed) {
    Note(*item);
    if (json_) {
      lines_ += JsonLine(*item);
    } else {
      AppendLine(lines_, {item->ItemID(), ValueText(item->ItemValue()), QualityText(item->ItemQuality()),
                          LocalTimeText(item->ItemTimeStamp())});
    }
  }
  std::fwrite(lines_.data(), 1, lines_.size(), stdout);
  std::fflush(stdout);
  lines_.clear();
}

void ItemPrinter::Note(const OPCItem& item) {
  bool& known = isGood_[item.ItemID()];
  const bool good = (item.ItemQuality() & kGood) == kGood;  // whatever the limit bits say
  if (known) --good_;
  if (good) ++good_;
  known = good;
}

}  // namespace tavrin
