#pragma once

#include <cstddef>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "online/opc/OpcServers.h"

namespace tavrin {

/// The way of the changes of one connection from the thread of its server to the thread of the windows. It keeps of
/// each item only what was told last, and has at most one delivery under way: however fast a server is, the windows
/// get what they can take, and the memory stays as it is.
class Delivery : public std::enable_shared_from_this<Delivery> {
 public:
  /// An item by its position, and what is to be told of it.
  struct Told {
    std::size_t item;
    ItemState state;
  };

  /// Begins held.
  Delivery(Desktop& desktop, std::vector<std::string> itemIDs, OpcServers::Sink sink);

  [[nodiscard]] const std::vector<std::string>& ItemIDs() const { return itemIDs_; }

  /// From any thread.
  void Tell(std::vector<Told> told);
  /// All items are bad (not connected) from now on; they keep their last value. From any thread.
  void TellNotConnected();
  /// Has Desktop::WaitUntil look again whether it is done. From any thread.
  void Wake();

  /// While held nothing is delivered; it is kept. On the thread of the windows.
  void Hold();
  void Release();
  /// Nothing is delivered any more, and the desktop is not used any more.
  void Close();

 private:
  void Keep(std::size_t item);
  void PostOne();
  void Deliver();

  std::mutex mutex_;
  Desktop* desktop_;  ///< null when closed
  const std::vector<std::string> itemIDs_;
  OpcServers::Sink sink_;  ///< used on the thread of the windows only
  std::vector<ItemState> latest_;
  std::vector<std::size_t> changed_;
  std::vector<bool> isChanged_;
  bool posted_ = false;
  int holds_ = 1;
};

/// The present moment.
[[nodiscard]] UtcTime UtcNow();

}  // namespace tavrin
