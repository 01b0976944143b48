#pragma once

#include <functional>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include <fmt/format.h>

#include "online/opc/OpcServers.h"
#include "platform/RuntimeError.h"

namespace tavrin {

/// A server that does what a test says and keeps what it was asked for.
class ScriptedOpcServers : public OpcServers {
 public:
  [[nodiscard]] std::unique_ptr<OpcLink> Connect(const std::string& progID, const std::vector<std::string>& itemIDs,
                                                 Sink sink) override {
    std::string names;
    for (const std::string& name : itemIDs) names += " " + name;
    log.push_back("connect " + progID + names);
    if (OnConnect) OnConnect();
    if (away) throw RuntimeError(ErrorNumber::InvalidCall);
    sink_ = std::move(sink);
    return std::make_unique<Link>(*this);
  }

  /// Tells the window that is connected, if there is one.
  void Push(const std::vector<ItemChange>& changes) const {
    if (sink_) sink_(changes);
  }
  void Push(const std::string& itemID, Variant value, std::uint16_t quality = kGood, UtcTime timeStamp = {}) const {
    Push({{itemID, {std::move(value), quality, timeStamp}}});
  }
  [[nodiscard]] bool Connected() const { return static_cast<bool>(sink_); }
  /// The log since the last call.
  [[nodiscard]] std::vector<std::string> TakeLog() { return std::exchange(log, {}); }

  bool away = false;               ///< no server answers
  std::set<std::string> readOnly;  ///< items whose writes fail
  std::function<void()> OnConnect;
  /// "connect PROGID ITEM ITEM ...", "disconnect", "write ITEM TYPECODE=VALUE", in their order.
  std::vector<std::string> log;

 private:
  class Link : public OpcLink {
   public:
    explicit Link(ScriptedOpcServers& servers) : servers_(servers) {}
    ~Link() override {
      servers_.sink_ = nullptr;
      servers_.log.emplace_back("disconnect");
    }
    void Write(const std::vector<ItemWrite>& writes) override {
      for (const ItemWrite& write : writes) servers_.Write(write);
    }

   private:
    ScriptedOpcServers& servers_;
  };

  void Write(const ItemWrite& write) {
    const Variant& value = write.value;
    log.push_back(fmt::format("write {} {:#06x}={}", write.itemID, value.TypeCode(),
                              value.IsArray() ? ArrayText(value, ",")
                                              : ScalarText(value.ElementType(), value.Elements().front(), ",")));
    if (readOnly.contains(write.itemID)) throw RuntimeError(ErrorNumber::InvalidCall);
  }

  Sink sink_;
};

}  // namespace tavrin
