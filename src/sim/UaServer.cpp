#include "sim/UaServer.h"

#include <array>
#include <cstdarg>
#include <cstdio>
#include <stdexcept>

#include <open62541/plugin/accesscontrol_default.h>
#include <open62541/server.h>
#include <open62541/server_config_default.h>

#include "platform/CodePage.h"
#include "sim/ItemNodes.h"
#include "sim/UaNodestore.h"
#include "sim/UaText.h"

namespace tavrin {

namespace {

constexpr double kFastestMilliseconds = 10;  // of sampling and publishing

/// Keeps the first thing that the library has complained of, and prints nothing.
struct Complaints {
  std::string first;

  static void Log(void* context, UA_LogLevel level, UA_LogCategory, const char* message, va_list arguments) {
    auto& first = static_cast<Complaints*>(context)->first;
    if (level < UA_LOGLEVEL_WARNING || !first.empty()) return;
    std::array<char, 512> text{};
    std::vsnprintf(text.data(), text.size(), message, arguments);
    first = text.data();
    first.erase(0, first.rfind('|') + 1);  // its number of the connection
    first.erase(0, first.find_first_not_of(' '));
  }
};

template <class Item>
UA_Boolean Deny(UA_Server*, UA_AccessControl*, const UA_NodeId*, void*, const Item*) {
  return false;
}

/// Anonymous users, who write values and change nothing else.
void LimitAccess(UA_ServerConfig& config) {
  UA_AccessControl_default(&config, true, nullptr, 0, nullptr);
  config.accessControl.allowAddNode = Deny<UA_AddNodesItem>;
  config.accessControl.allowDeleteNode = Deny<UA_DeleteNodesItem>;
  config.accessControl.allowAddReference = Deny<UA_AddReferencesItem>;
  config.accessControl.allowDeleteReference = Deny<UA_DeleteReferencesItem>;
}

void SetText(UA_String& field, std::string_view text) {
  UA_String_clear(&field);
  field = CopyOf(text);
}

void SetSpeed(UA_ServerConfig& config) {
  config.samplingIntervalLimits.min = kFastestMilliseconds;
  config.publishingIntervalLimits.min = kFastestMilliseconds;
}

/// The address with the port that was found free, where that was asked for.
std::string WithPortOf(const std::string& url, std::string_view bound) {
  return url.substr(0, url.rfind(':')) + std::string(bound.substr(bound.rfind(':')));
}

}  // namespace

class UaServer::Impl {
 public:
  explicit Impl(SimPlant& plant) {
    UA_ServerConfig config{};
    logger_ = {Complaints::Log, &complaints_, nullptr};
    config.logging = &logger_;
    if (UA_ServerConfig_setMinimal(&config, 0, nullptr) != UA_STATUSCODE_GOOD) throw std::bad_alloc();
    LimitAccess(config);
    SetSpeed(config);
    SetText(config.applicationDescription.applicationUri, kServerUri);
    SetText(config.applicationDescription.applicationName.text, "tavrin-sim");
    config.tcpReuseAddr = true;  // a port is free at once when its server ends
    config.allowEmptyVariables = UA_RULEHANDLING_ACCEPT;
    AnswerOtherNames(config.nodestore, kItemSpace, [&plant](std::string_view name) { return OwnName(plant, name); });
    server_ = UA_Server_newWithConfig(&config);
    if (server_ == nullptr) throw std::bad_alloc();
    UA_Server_addNamespace(server_, kItemsUri);
  }
  Impl(const Impl&) = delete;
  Impl& operator=(const Impl&) = delete;
  ~Impl() {
    if (running_) UA_Server_run_shutdown(server_);
    UA_Server_delete(server_);
  }

  [[nodiscard]] UA_Server* Server() const { return server_; }
  [[nodiscard]] const std::string& Complaint() const { return complaints_.first; }

  /// @return the address under which clients reach it, empty when it cannot listen
  [[nodiscard]] std::string Listen(const std::string& url) {
    UA_ServerConfig& config = *UA_Server_getConfig(server_);
    UA_Array_delete(config.serverUrls, config.serverUrlsSize, &UA_TYPES[UA_TYPES_STRING]);
    config.serverUrls = static_cast<UA_String*>(UA_Array_new(1, &UA_TYPES[UA_TYPES_STRING]));
    config.serverUrlsSize = 1;
    config.serverUrls[0] = CopyOf(url);
    complaints_.first.clear();
    running_ = UA_Server_run_startup(server_) == UA_STATUSCODE_GOOD;
    if (!running_) return {};
    const UA_ApplicationDescription& description = config.applicationDescription;
    return description.discoveryUrlsSize == 0 ? url : WithPortOf(url, ViewOf(description.discoveryUrls[0]));
  }

 private:
  /// The plant's spelling of a name that a client has asked for.
  static std::optional<std::string> OwnName(const SimPlant& plant, std::string_view utf8) {
    const auto name = FromUtf8(std::string(utf8));
    const SimItem* const item = name ? plant.Find(*name) : nullptr;
    if (item == nullptr) return std::nullopt;
    return ToUtf8(item->Name());
  }

  Complaints complaints_;
  UA_Logger logger_{};
  UA_Server* server_ = nullptr;
  bool running_ = false;
};

std::string UrlOf(const ListenPlace& place) {
  const bool isVersion6 = place.address.find(':') != std::string::npos;
  return "opc.tcp://" + (isVersion6 ? "[" + place.address + "]" : place.address) + ":" + std::to_string(place.port);
}

UaServer::UaServer(SimPlant& plant) : impl_(std::make_unique<Impl>(plant)) {}

UaServer::~UaServer() = default;

std::string UaServer::Start(const ListenPlace& place) {
  const std::string url = UrlOf(place);
  url_ = impl_->Listen(url);
  return url_.empty() ? "cannot listen at " + url + " (" + impl_->Complaint() + ")" : std::string();
}

std::size_t UaServer::Publish(const PlantChanges& changes) { return PublishNodes(*impl_->Server(), changes); }

void UaServer::RunOnce() { UA_Server_run_iterate(impl_->Server(), true); }

}  // namespace tavrin
