#pragma once

#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <deque>
#include <functional>
#include <mutex>
#include <string>
#include <thread>

#include <open62541/server.h>

namespace tavrin {

/// A port of the loopback that nobody listens at now.
[[nodiscard]] std::uint16_t FreePort();

/// An OPC UA server on a thread of its own, which holds whatever nodes a test gives it. It can be frozen, killed and
/// started again.
class UaTestServer {
 public:
  /// Set up of the configuration before the server is made; it replaces the default one.
  using Setup = std::function<void(UA_ServerConfig& config, std::uint16_t port)>;

  explicit UaTestServer(Setup setup = {}) : setup_(std::move(setup)) {}
  UaTestServer(const UaTestServer&) = delete;
  UaTestServer& operator=(const UaTestServer&) = delete;
  ~UaTestServer() { Stop(); }

  void Start();
  void Stop();
  /// The thread of the server stands still: what is sent to it stays unanswered.
  void Freeze(bool frozen) { frozen_ = frozen; }

  [[nodiscard]] std::uint16_t Port() const { return port_; }
  [[nodiscard]] std::string Endpoint() const { return "opc.tcp://127.0.0.1:" + std::to_string(port_); }

  /// Has an action run on the server's thread, and waits for its end.
  void Do(const std::function<void(UA_Server* server)>& action);

  /// A node of the namespace 2 with this text as its id. The type of the node is that of the value, or `dataType`.
  void Add(const std::string& name, const void* value, int type, bool writable = true);
  void AddArray(const std::string& name, const void* values, std::size_t count, int type);
  /// A node without a value, of the data type that a number of the namespace 0 names.
  void AddEmpty(const std::string& name, UA_UInt32 dataType, UA_Int32 valueRank);
  void Set(const std::string& name, const void* value, int type, UA_StatusCode status = UA_STATUSCODE_GOOD);
  void SetState(const std::string& name, const UA_DataValue& value);
  void Remove(const std::string& name);
  /// A scalar of the type as it is in the server now.
  template <class T>
  T Get(const std::string& name) {
    T read{};
    Do([&](UA_Server* server) {
      UA_Variant value;
      UA_Variant_init(&value);
      UA_Server_readValue(server, NodeOf(name), &value);
      if (UA_Variant_isScalar(&value)) read = *static_cast<T*>(value.data);
      UA_Variant_clear(&value);
    });
    return read;
  }

 private:
  static UA_NodeId NodeOf(const std::string& name);
  void AddNode(const std::string& name, UA_VariableAttributes attributes);
  void Run();

  const Setup setup_;
  const std::uint16_t port_ = FreePort();
  UA_Server* server_ = nullptr;
  std::atomic<bool> running_ = false;
  std::atomic<bool> frozen_ = false;
  std::mutex mutex_;
  std::condition_variable done_;
  std::deque<std::function<void()>> actions_;
  std::thread thread_;
};

}  // namespace tavrin
