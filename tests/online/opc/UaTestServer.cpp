#include "online/opc/UaTestServer.h"

#include <chrono>
#include <stdexcept>

#include <netinet/in.h>
#include <open62541/server_config_default.h>
#include <sys/socket.h>
#include <unistd.h>

namespace tavrin {

namespace {

UA_Logger silence{nullptr, nullptr, nullptr};

UA_String View(const std::string& text) {
  return {text.size(), reinterpret_cast<UA_Byte*>(const_cast<char*>(text.data()))};
}

void SetUpPlain(UA_ServerConfig& config, std::uint16_t port) { UA_ServerConfig_setMinimal(&config, port, nullptr); }

}  // namespace

std::uint16_t FreePort() {
  const int number = socket(AF_INET, SOCK_STREAM, 0);
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  socklen_t size = sizeof(address);
  auto* general = reinterpret_cast<sockaddr*>(&address);
  const bool got = bind(number, general, size) == 0 && getsockname(number, general, &size) == 0;
  close(number);
  if (!got) throw std::runtime_error("there is no free port");
  return ntohs(address.sin_port);
}

void UaTestServer::Start() {
  UA_ServerConfig config{};
  config.logging = &silence;
  (setup_ ? setup_ : SetUpPlain)(config, port_);
  const std::string endpoint = Endpoint();
  UA_Array_delete(config.serverUrls, config.serverUrlsSize, &UA_TYPES[UA_TYPES_STRING]);
  config.serverUrls = static_cast<UA_String*>(UA_Array_new(1, &UA_TYPES[UA_TYPES_STRING]));
  config.serverUrlsSize = 1;
  config.serverUrls[0] = UA_String_fromChars(endpoint.c_str());
  config.tcpReuseAddr = true;
  config.allowEmptyVariables = UA_RULEHANDLING_ACCEPT;
  config.samplingIntervalLimits.min = 10;
  config.publishingIntervalLimits.min = 10;
  server_ = UA_Server_newWithConfig(&config);
  UA_Server_addNamespace(server_, "urn:test:items");
  if (UA_Server_run_startup(server_) != UA_STATUSCODE_GOOD) throw std::runtime_error("the server does not start");
  frozen_ = false;
  running_ = true;
  thread_ = std::thread([this] { Run(); });
}

void UaTestServer::Stop() {
  if (!thread_.joinable()) return;
  running_ = false;
  thread_.join();
  UA_Server_run_shutdown(server_);
  UA_Server_delete(server_);
  server_ = nullptr;
}

void UaTestServer::Do(const std::function<void(UA_Server* server)>& action) {
  bool done = false;
  std::unique_lock lock(mutex_);
  actions_.push_back([&] {
    action(server_);
    done = true;
  });
  done_.wait(lock, [&done] { return done; });
}

void UaTestServer::Add(const std::string& name, const void* value, int type, bool writable) {
  UA_VariableAttributes attributes = UA_VariableAttributes_default;
  UA_Variant_setScalar(&attributes.value, const_cast<void*>(value), &UA_TYPES[type]);
  attributes.dataType = UA_TYPES[type].typeId;
  attributes.accessLevel = UA_ACCESSLEVELMASK_READ;
  if (writable) attributes.accessLevel |= UA_ACCESSLEVELMASK_WRITE;
  AddNode(name, attributes);
}

void UaTestServer::AddArray(const std::string& name, const void* values, std::size_t count, int type) {
  UA_VariableAttributes attributes = UA_VariableAttributes_default;
  UA_Variant_setArray(&attributes.value, const_cast<void*>(values), count, &UA_TYPES[type]);
  attributes.dataType = UA_TYPES[type].typeId;
  attributes.valueRank = UA_VALUERANK_ONE_OR_MORE_DIMENSIONS;
  attributes.accessLevel = UA_ACCESSLEVELMASK_READ | UA_ACCESSLEVELMASK_WRITE;
  AddNode(name, attributes);
}

void UaTestServer::AddEmpty(const std::string& name, UA_UInt32 dataType, UA_Int32 valueRank) {
  UA_VariableAttributes attributes = UA_VariableAttributes_default;
  attributes.dataType = UA_NODEID_NUMERIC(0, dataType);
  attributes.valueRank = valueRank;
  attributes.accessLevel = UA_ACCESSLEVELMASK_READ | UA_ACCESSLEVELMASK_WRITE;
  AddNode(name, attributes);
}

void UaTestServer::AddNode(const std::string& name, UA_VariableAttributes attributes) {
  Do([&](UA_Server* server) {
    const UA_StatusCode status =
        UA_Server_addVariableNode(server, NodeOf(name), UA_NODEID_NUMERIC(0, UA_NS0ID_OBJECTSFOLDER),
                                  UA_NODEID_NUMERIC(0, UA_NS0ID_ORGANIZES), UA_QualifiedName{2, View(name)},
                                  UA_NODEID_NUMERIC(0, UA_NS0ID_BASEDATAVARIABLETYPE), attributes, nullptr, nullptr);
    if (status != UA_STATUSCODE_GOOD) throw std::runtime_error(UA_StatusCode_name(status));
  });
}

void UaTestServer::Set(const std::string& name, const void* value, int type, UA_StatusCode status) {
  UA_DataValue state;
  UA_DataValue_init(&state);
  UA_Variant_setScalar(&state.value, const_cast<void*>(value), &UA_TYPES[type]);
  state.hasValue = true;
  state.status = status;
  state.hasStatus = status != UA_STATUSCODE_GOOD;
  SetState(name, state);
}

void UaTestServer::SetState(const std::string& name, const UA_DataValue& value) {
  Do([&](UA_Server* server) {
    const UA_StatusCode status = UA_Server_writeDataValue(server, NodeOf(name), value);
    if (status != UA_STATUSCODE_GOOD) throw std::runtime_error(UA_StatusCode_name(status));
  });
}

void UaTestServer::Remove(const std::string& name) {
  Do([&](UA_Server* server) { UA_Server_deleteNode(server, NodeOf(name), true); });
}

UA_NodeId UaTestServer::NodeOf(const std::string& name) { return {2, UA_NODEIDTYPE_STRING, {.string = View(name)}}; }

void UaTestServer::Run() {
  while (running_) {
    if (!frozen_) UA_Server_run_iterate(server_, false);
    {
      const std::lock_guard lock(mutex_);
      for (; !actions_.empty(); actions_.pop_front()) actions_.front()();
    }
    done_.notify_all();
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
}

}  // namespace tavrin
