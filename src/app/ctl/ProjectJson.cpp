#include "app/ctl/ProjectJson.h"

#include <array>
#include <string_view>
#include <variant>

#include <rapidjson/filewritestream.h>
#include <rapidjson/prettywriter.h>

#include "model/cOPC.h"
#include "model/shared/cWarnings.h"
#include "model/shared/modMain.h"
#include "platform/CodePage.h"

namespace tavrin {

namespace {

constexpr std::size_t kOutputBlock = 1 << 16;

/// Writes fields of the model: numbers, marks and texts of the code page, each under its name.
class FieldWriter {
 public:
  explicit FieldWriter(std::FILE* to) : stream_(to, block_.data(), block_.size()), json_(stream_) {
    json_.SetIndent(' ', 2);
  }

  void Name(std::string_view name) { json_.Key(name.data(), static_cast<rapidjson::SizeType>(name.size())); }
  void Text(std::string_view text) {
    const std::string utf8 = ToUtf8(text);
    json_.String(utf8.data(), static_cast<rapidjson::SizeType>(utf8.size()));
  }
  void Field(std::string_view name, std::string_view text) {
    Name(name);
    Text(text);
  }
  void Field(std::string_view name, std::int32_t number) {
    Name(name);
    json_.Int(number);
  }
  void Mark(std::string_view name, bool mark) {
    Name(name);
    json_.Bool(mark);
  }

  template <class Settings>
  void Setting(const NamedSetting<Settings>& setting, const Settings& settings) {
    std::visit([&](auto member) { Field(setting.name, settings.*member); }, setting.member);
  }

  template <class Items, class WriteItem>
  void List(std::string_view name, const Items& items, const WriteItem& writeItem) {
    Name(name);
    json_.StartArray();
    for (const auto& item : items) writeItem(item);
    json_.EndArray();
  }

  void StartObject() { json_.StartObject(); }
  void EndObject() { json_.EndObject(); }
  void EndDocument() {
    stream_.Put('\n');
    stream_.Flush();
  }

 private:
  std::array<char, kOutputBlock> block_{};
  rapidjson::FileWriteStream stream_;
  rapidjson::PrettyWriter<rapidjson::FileWriteStream> json_;
};

void WriteOutcome(FieldWriter& json, const Outcome& outcome, const cWarnings& warnings) {
  json.Mark("bOK", outcome.bOK);
  json.List("boxes", outcome.boxes, [&](const std::string& text) { json.Text(text); });
  json.List("warnings", warnings, [&](const cWarning& warning) {
    json.StartObject();
    json.Field("nType", warning.nType());
    json.Field("szType", warning.szType());
    json.Field("szFileName", warning.szFileName());
    json.Field("szText", warning.szText());
    json.EndObject();
  });
}

void WriteTag(FieldWriter& json, const cTag& tag) {
  json.StartObject();
  json.Field("szTag", tag.szTag());
  json.Field("szData", tag.szData());
  json.Field("szRW", tag.szRW());
  json.Field("szHystLB", tag.szHystLB());
  json.Field("szHystUB", tag.szHystUB());
  json.Field("szLB", tag.szLB());
  json.Field("szUB", tag.szUB());
  json.Field("szComment", tag.szComment());
  json.Field("szTest", tag.szTest());
  json.Mark("bDataDirty", tag.bDataDirty());
  json.EndObject();
}

void WriteDevice(FieldWriter& json, const cDevice& device) {
  json.StartObject();
  for (const auto& setting : kDeviceSettings) {
    json.Setting(setting, device.Settings());
    // The name of the tag file stands beside that of the network file, although the tag list keeps it.
    if (setting.name == "szFileName") json.Field("szTagFileName", device.szTagFileName());
  }
  json.Mark("bDataDirty", device.bDataDirty());
  json.List("Tags", device.Tags(), [&](const cTag& tag) { WriteTag(json, tag); });
  json.EndObject();
}

void WriteNetwork(FieldWriter& json, const cNetwork& network) {
  json.StartObject();
  for (const auto& setting : kNetworkSettings) json.Setting(setting, network.Settings());
  json.Mark("bDataDirty", network.bDataDirty());
  json.List("Devices", network.Devices(), [&](const cDevice& device) { WriteDevice(json, device); });
  json.EndObject();
}

void WriteProject(FieldWriter& json, const cOPC& project) {
  json.StartObject();
  for (const auto& setting : kProjectSettings) json.Setting(setting, project.Settings());
  json.Mark("bDataDirty", project.bDataDirty());
  json.List("Networks", project.Networks(), [&](const cNetwork& network) { WriteNetwork(json, network); });
  json.EndObject();
}

}  // namespace

void PrintLoadedProject(const Outcome& outcome, std::FILE* to) {
  FieldWriter json(to);
  json.StartObject();
  WriteOutcome(json, outcome, modMain::ReadWarnings());
  json.Name("project");
  WriteProject(json, modMain::OpenProject());
  json.EndObject();
  json.EndDocument();
}

void PrintSaved(const Outcome& outcome, std::FILE* to) {
  FieldWriter json(to);
  json.StartObject();
  WriteOutcome(json, outcome, modMain::WriteWarnings());
  json.EndObject();
  json.EndDocument();
}

}  // namespace tavrin
