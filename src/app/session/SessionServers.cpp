#include "app/session/SessionServers.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

#include <fmt/format.h>

#include "app/session/Gestures.h"
#include "app/session/Reach.h"
#include "platform/CodePage.h"
#include "platform/RuntimeError.h"

namespace tavrin {

class SessionServers::Link : public OpcLink {
 public:
  Link(SessionServers& servers, std::vector<std::string> itemIDs, Sink sink)
      : servers_(servers), itemIDs_(std::move(itemIDs)), sink_(std::move(sink)) {
    servers_.links_.push_back(this);
  }
  ~Link() override {
    std::erase(servers_.links_, this);
    servers_.transcript_.Tell("disconnect");
  }

  void Write(const std::vector<ItemWrite>& writes) override {
    for (const ItemWrite& write : writes) {
      const Variant& value = write.value;
      const std::string text =
          value.IsArray() ? ArrayText(value, ",") : ScalarText(value.ElementType(), value.Elements().front(), ",");
      servers_.transcript_.Tell("write " + Quoted(write.itemID), text);
    }
  }

  [[nodiscard]] bool Has(const std::string& itemID) const {
    return std::find(itemIDs_.begin(), itemIDs_.end(), itemID) != itemIDs_.end();
  }
  [[nodiscard]] const Sink& Told() const { return sink_; }

 private:
  SessionServers& servers_;
  std::vector<std::string> itemIDs_;
  Sink sink_;
};

std::unique_ptr<OpcLink> SessionServers::Connect(const std::string& progID, const std::vector<std::string>& itemIDs,
                                                 Sink sink) {
  const std::string connect = "connect " + Quoted(progID);
  if (!running) {
    transcript_.Tell(connect + ": no server");
    throw RuntimeError(ErrorNumber::InvalidCall);
  }
  transcript_.Tell(connect + fmt::format(" items {}", itemIDs.size()));
  return std::make_unique<Link>(*this, itemIDs, std::move(sink));
}

bool SessionServers::Tell(const ItemChange& change) {
  // What a sink does may end its connection and others.
  const std::vector<Link*> links = links_;
  bool told = false;
  for (const Link* link : links) {
    const bool there = std::find(links_.begin(), links_.end(), link) != links_.end();
    if (!there || !link->Has(change.itemID)) continue;
    const Sink sink = link->Told();
    sink({change});
    told = true;
  }
  return told;
}

namespace {

struct TypeName {
  std::string_view name;
  VariantType type;
};
constexpr std::array kTypes{TypeName{"Int8", VariantType::Int8},       TypeName{"UInt8", VariantType::UInt8},
                            TypeName{"Int16", VariantType::Int16},     TypeName{"UInt16", VariantType::UInt16},
                            TypeName{"Int32", VariantType::Int32},     TypeName{"UInt32", VariantType::UInt32},
                            TypeName{"Single", VariantType::Single},   TypeName{"Double", VariantType::Double},
                            TypeName{"Boolean", VariantType::Boolean}, TypeName{"Text", VariantType::Text}};

VariantType TypeOf(const std::string& word) {
  std::string known;
  for (const TypeName& row : kTypes) {
    if (EqualIgnoringCase(row.name, word)) return row.type;
    known += (known.empty() ? "" : ", ") + std::string(row.name);
  }
  throw Refusal{Quoted(word) + " is none of the types " + known};
}

template <class Number>
Number Parse(std::string_view word) {
  Number number{};
  const auto read = std::from_chars(word.data(), word.data() + word.size(), number);
  if (word.empty() || read.ec != std::errc{} || read.ptr != word.data() + word.size()) {
    throw Refusal{Quoted(word) + " is no value of this type"};
  }
  return number;
}

Scalar ScalarOf(VariantType type, std::string_view word) {
  switch (type) {
    case VariantType::Text: return std::string(word);
    case VariantType::Single:
    case VariantType::Double: return Parse<double>(word);
    case VariantType::UInt8:
    case VariantType::UInt16:
    case VariantType::UInt32: return Parse<std::uint64_t>(word);
    case VariantType::Boolean:
      if (word != "yes" && word != "no") throw Refusal{"wanted: yes or no"};
      return word == "yes";
    default: return Parse<std::int64_t>(word);
  }
}

/// One value; several, with bars between, are an array, and a bar alone is an empty one.
Variant ValueOf(VariantType type, std::string_view word) {
  if (word == "|") return Variant::Array(type, {});
  if (word.find('|') == std::string_view::npos) return {type, ScalarOf(type, word)};
  std::vector<Scalar> elements;
  for (bool more = true; more;) {
    const std::size_t bar = word.find('|');
    more = bar != std::string_view::npos;
    elements.push_back(ScalarOf(type, word.substr(0, bar)));
    if (more) word.remove_prefix(bar + 1);
  }
  return Variant::Array(type, std::move(elements));
}

}  // namespace

void SetServer(Stage& stage, Words words) {
  if (words[0] != "on" && words[0] != "off") throw Refusal{"wanted: on or off"};
  stage.servers.running = words[0] == "on";
}

void ChangeData(Stage& stage, Words words) {
  ItemState state{ValueOf(TypeOf(words[1]), words[2]), kGood, stage.around.regional.now};
  if (words.size() > 3) state.quality = Parse<std::uint16_t>(words[3]);
  if (!stage.servers.Tell({words[0], std::move(state)})) {
    throw Refusal{"nobody has subscribed to " + Quoted(words[0])};
  }
}

}  // namespace tavrin
