#include "app/picture/ShowServers.h"

#include <utility>

namespace tavrin {

namespace {

UtcTime Moment() { return Join({2026, 11, 20, 13, 5, 9, 0}); }

Variant FirstValue(const std::string& item) {
  if (item.ends_with("Wert")) return {VariantType::Single, 398.4};
  return {VariantType::Int16, std::int64_t{0}};
}

/// What the partner of the test run answers when it has found all values as they were written.
Variant AllPassed() { return Variant::Array(VariantType::Int16, std::vector<Scalar>(10, std::int64_t{0})); }

class ShowLink : public OpcLink {
 public:
  ShowLink(Desktop& desktop, std::map<std::string, Variant>& values, OpcServers::Sink sink)
      : desktop_(desktop), values_(values), sink_(std::make_shared<OpcServers::Sink>(std::move(sink))) {}

  void Tell(const std::vector<std::string>& items) {
    std::vector<ItemChange> changes;
    changes.reserve(items.size());
    for (const std::string& item : items) changes.push_back({item, {values_.at(item), kGood, Moment()}});
    desktop_.Post([sink = std::weak_ptr(sink_), changes = std::move(changes)] {
      if (const auto alive = sink.lock()) (*alive)(changes);
    });
  }

  void Write(const std::vector<ItemWrite>& writes) override {
    std::vector<std::string> items;
    for (const ItemWrite& write : writes) {
      values_[write.itemID] = write.value;
      items.push_back(write.itemID);
      const std::size_t name = write.itemID.rfind("/COMMAND");
      if (name == std::string::npos) continue;
      items.push_back(write.itemID.substr(0, name) + "/RESULTARRAY");
      values_[items.back()] = AllPassed();
    }
    Tell(items);
  }

 private:
  Desktop& desktop_;
  std::map<std::string, Variant>& values_;
  std::shared_ptr<OpcServers::Sink> sink_;
};

}  // namespace

std::unique_ptr<OpcLink> ShowServers::Connect(const std::string& /*progID*/, const std::vector<std::string>& itemIDs,
                                              Sink sink) {
  for (const std::string& item : itemIDs) values_.try_emplace(item, FirstValue(item));
  auto link = std::make_unique<ShowLink>(desktop_, values_, std::move(sink));
  link->Tell(itemIDs);
  return link;
}

}  // namespace tavrin
