#pragma once

#include <list>
#include <memory>
#include <string>
#include <vector>

#include <open62541/client.h>

#include "online/opc/ua/Exchange.h"
#include "online/opc/ua/Subscription.h"

namespace tavrin::ua {

/// Sends values to the server of a connection. What a node takes is known from its values; of other nodes it is asked
/// for first. Used on the thread of its client, and outlives it.
class Writer {
 public:
  Writer(Client& client, const Subscription& subscription, NodePattern nodes, Delivery& delivery)
      : client_(client), subscription_(subscription), nodes_(std::move(nodes)), delivery_(delivery) {}

  void Send(std::shared_ptr<WriteJob> job);
  [[nodiscard]] bool IsBusy() const { return !under_.empty(); }

 private:
  /// A job that the server has to answer.
  struct UnderWay {
    Writer* owner;
    std::shared_ptr<WriteJob> job;
    std::vector<std::string> nodeTexts;
    std::vector<NodeType> types;
    std::vector<std::size_t> unknown;  ///< numbers of the writes whose types are asked for
    bool refused = false;              ///< one of the values could not be sent
  };

  void AskForTypes(UnderWay& work);
  void TakeTypes(UnderWay& work, const UA_ReadResponse& response);
  void SendValues(UnderWay& work);
  void TakeResults(UnderWay& work, const UA_WriteResponse& response);
  void End(UnderWay& work, bool taken);
  [[nodiscard]] UA_NodeId Node(const UnderWay& work, std::size_t number) const;

  Client& client_;
  const Subscription& subscription_;
  const NodePattern nodes_;
  Delivery& delivery_;
  std::list<UnderWay> under_;
};

}  // namespace tavrin::ua
