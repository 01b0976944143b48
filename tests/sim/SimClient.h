#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include <open62541/client.h>

#include "sim/ItemType.h"

namespace tavrin {

/// What a client has been told of an item.
struct ItemReply {
  std::string status;  ///< name of the status code, "Good" for none
  Values values;
  std::string type;  ///< name of the built-in type, "[]" behind it for an array
  Moment since = 0;  ///< source time stamp

  friend bool operator==(const ItemReply&, const ItemReply&) = default;
};

/// What a client finds when it looks around below a node.
struct FoundNode {
  std::string id;  ///< text of the node id
  std::uint16_t space = 0;
  std::string name;  ///< shown to users
};

/// A plain OPC UA client. All names are UTF-8.
class SimClient {
 public:
  /// Fails the test when the server cannot be reached.
  explicit SimClient(const std::string& url);
  SimClient(const SimClient&) = delete;
  SimClient& operator=(const SimClient&) = delete;
  ~SimClient();

  [[nodiscard]] static bool Reaches(const std::string& url);

  /// @param item device, "/", tag @param range elements of an array, e.g. "1:2"; empty for all
  [[nodiscard]] ItemReply Read(const std::string& item, const std::string& range = {});
  /// The values as the built-in type of the kind. @return name of the status code
  std::string Write(const std::string& item, ItemType type, const Values& values);
  [[nodiscard]] bool IsWritable(const std::string& item);
  [[nodiscard]] std::string Description(const std::string& item);
  /// @param device its folder; empty for the Objects folder
  [[nodiscard]] std::vector<FoundNode> Browse(const std::string& device = {});
  /// Asks the server to remove the node of an item. @return name of the status code
  std::string Delete(const std::string& item);

  /// Watches items; each change is kept in Told.
  void Subscribe(const std::vector<std::string>& items);
  [[nodiscard]] const std::vector<ItemReply>& Told(const std::string& item) { return told_[item]; }
  /// The last of these; without a status when there is none.
  [[nodiscard]] ItemReply LastTold(const std::string& item) {
    return Told(item).empty() ? ItemReply{} : Told(item).back();
  }
  /// Lets the client work until `done` or until too much time has passed. @return whether it was done
  [[nodiscard]] bool WaitUntil(const std::function<bool()>& done);

 private:
  UA_Client* client_;
  std::map<std::string, std::vector<ItemReply>> told_;
};

}  // namespace tavrin
