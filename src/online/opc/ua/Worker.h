#pragma once

#include <condition_variable>
#include <memory>
#include <mutex>

#include "online/opc/Delivery.h"
#include "online/opc/ServerTable.h"
#include "online/opc/ua/Exchange.h"

namespace tavrin::ua {

/// How many workers are still at it.
class Crew {
 public:
  void Enter();
  void Leave();
  /// Waits until all have left, at most so long. @return whether they have
  bool WaitForAll(std::chrono::milliseconds most);

 private:
  std::mutex mutex_;
  std::condition_variable left_;
  int present_ = 0;
};

/// Serves one connection on a thread of its own: connects, subscribes, sends values, and connects anew when the
/// connection is lost. The thread ends by itself when it is told to; nobody waits for it, because a server that does
/// not answer can keep it for a moment. It holds nothing of the windows but the delivery, which is closed by then.
/// @throws RuntimeError 5 when there is no thread to be had
void StartWorker(ServerEntry server, std::shared_ptr<Exchange> exchange, std::shared_ptr<Delivery> delivery,
                 const std::shared_ptr<Crew>& crew);

}  // namespace tavrin::ua
