#pragma once

#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "online/opc/Delivery.h"
#include "online/opc/DemoItems.h"
#include "online/opc/OpcServers.h"

namespace tavrin {

/// A server in this process, so that everything online can be shown without a plant. Its items move by themselves or
/// take what is written to them.
class DemoServer {
 public:
  static constexpr std::string_view kProgID = "Softing.OPCToolboxDemo_ServerDA.1";
  static constexpr std::chrono::milliseconds kPace{500};

  /// @param pace time between two changes of the moving items
  explicit DemoServer(Desktop& desktop, std::chrono::milliseconds pace = kPace) : desktop_(desktop), pace_(pace) {}
  DemoServer(const DemoServer&) = delete;
  DemoServer& operator=(const DemoServer&) = delete;
  /// No connection is open any more.
  ~DemoServer();

  [[nodiscard]] std::unique_ptr<OpcLink> Connect(const std::vector<std::string>& itemIDs, OpcServers::Sink sink);

 private:
  class Link;

  void Run();
  void Write(const std::vector<ItemWrite>& writes);
  void Remove(const Link* link);
  /// Tells a connection of those of its items that `wanted` names.
  template <class Wanted>
  void TellSome(const Link& link, Wanted wanted);

  Desktop& desktop_;
  const std::chrono::milliseconds pace_;
  std::mutex mutex_;  // guards all below
  std::condition_variable ending_;
  DemoItems items_;
  std::vector<Link*> links_;
  bool ended_ = false;
  std::thread ticker_;  ///< runs from the first connection on
};

}  // namespace tavrin
