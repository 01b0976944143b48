#include "online/opc/ua/Client.h"

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <new>
#include <string>

#include <open62541/client_config_default.h>

#include "online/opc/ua/Values.h"
#include "platform/CodePage.h"
#include "platform/RuntimeError.h"

namespace tavrin::ua {

namespace {

constexpr UA_UInt32 kAnswerTime = 1500;  // ms; a server that takes longer is not there
constexpr UA_UInt32 kCheckInterval = 1000;
constexpr const char* kPasswordVariable = "TAVRIN_OPC_PASSWORD";

/// What certificates name this program by.
constexpr const char* kApplicationUri = "urn:tavrin";

/// The library's messages would stand between those of the program.
UA_Logger silence{nullptr, nullptr, nullptr};

[[noreturn]] void Refuse() { throw RuntimeError(ErrorNumber::InvalidCall); }

std::string ReadFile(const std::string& path) {
  std::ifstream in(ToUtf8(path), std::ios::binary);
  std::string content{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
  if (!in || content.empty()) Refuse();
  return content;
}

void Replace(UA_String& target, const std::string& text) {
  UA_String_clear(&target);
  target = UA_String_fromChars(text.c_str());
}

/// Secured connections are made only to a server that is known by its certificate: the library itself would take any
/// when it is given none.
void Secure(UA_ClientConfig& config, const ServerEntry& server) {
  const std::string certificate = ReadFile(server.certificate);
  const std::string key = ReadFile(server.privateKey);
  const std::string trusted = ReadFile(server.serverCertificate);
  const UA_ByteString trustList = View(trusted);
  const UA_StatusCode status =
      UA_ClientConfig_setDefaultEncryption(&config, View(certificate), View(key), &trustList, 1, nullptr, 0);
  if (status != UA_STATUSCODE_GOOD) Refuse();
  const bool sign = server.security == OpcSecurity::Sign;
  config.securityMode = sign ? UA_MESSAGESECURITYMODE_SIGN : UA_MESSAGESECURITYMODE_SIGNANDENCRYPT;
  Replace(config.securityPolicyUri, "http://opcfoundation.org/UA/SecurityPolicy#" + server.policy);
}

void SetUser(UA_ClientConfig& config, const std::string& user) {
  const char* password = std::getenv(kPasswordVariable);
  const std::string name = ToUtf8(user);
  const UA_StatusCode status =
      UA_ClientConfig_setAuthenticationUsername(&config, name.c_str(), password == nullptr ? "" : password);
  if (status != UA_STATUSCODE_GOOD) throw std::bad_alloc();
}

void SetUp(UA_ClientConfig& config, const ServerEntry& server) {
  if (server.security == OpcSecurity::None) {
    if (UA_ClientConfig_setDefault(&config) != UA_STATUSCODE_GOOD) throw std::bad_alloc();
    config.securityMode = UA_MESSAGESECURITYMODE_NONE;
  } else {
    Secure(config, server);
  }
  if (!server.user.empty()) SetUser(config, server.user);
  Replace(config.clientDescription.applicationUri, kApplicationUri);
  Replace(config.endpointUrl, ToUtf8(server.endpoint));
  config.timeout = kAnswerTime;
  config.connectivityCheckInterval = kCheckInterval;
  config.noReconnect = server.security == OpcSecurity::None;
  config.noNewSession = true;
  config.inactivityCallback = [](UA_Client* client) { static_cast<Client*>(UA_Client_getContext(client))->GiveUp(); };
  config.subscriptionInactivityCallback = [](UA_Client* client, UA_UInt32, void*) {
    static_cast<Client*>(UA_Client_getContext(client))->GiveUp();
  };
}

}  // namespace

Client::Client(const ServerEntry& server) : server_(server) {
  UA_ClientConfig config{};
  config.logging = &silence;
  try {
    SetUp(config, server_);
  } catch (...) {
    UA_ClientConfig_clear(&config);
    throw;
  }
  config.clientContext = this;
  client_ = UA_Client_newWithConfig(&config);
  if (client_ == nullptr) throw std::bad_alloc();
}

Client::~Client() {
  CloseChannel();
  UA_Client_delete(client_);
}

void Client::Begin() {
  if (__UA_Client_connect(client_, true) != UA_STATUSCODE_GOOD) givenUp_ = true;
}

void Client::SettleIn() { UA_Client_getConfig(client_)->noReconnect = true; }

void Client::Iterate(std::chrono::milliseconds most) {
  UA_Client_run_iterate(client_, static_cast<UA_UInt32>(most.count()));
}

bool Client::IsReady() const {
  UA_SessionState session{};
  UA_Client_getState(client_, nullptr, &session, nullptr);
  return session == UA_SESSIONSTATE_ACTIVATED;
}

bool Client::IsChannelOpen() const {
  UA_SecureChannelState channel{};
  UA_Client_getState(client_, &channel, nullptr, nullptr);
  return channel != UA_SECURECHANNELSTATE_CLOSED;
}

bool Client::IsLost() const {
  UA_StatusCode status = UA_STATUSCODE_GOOD;
  UA_Client_getState(client_, nullptr, nullptr, &status);
  return givenUp_ || status != UA_STATUSCODE_GOOD;
}

void Client::Leave() {
  if (IsLost()) return;
  UA_Client_disconnectAsync(client_);
  IterateUntilClosed();
}

void Client::CloseChannel() {
  UA_Client_disconnectSecureChannelAsync(client_);
  IterateUntilClosed();
}

void Client::IterateUntilClosed() {
  using Clock = std::chrono::steady_clock;
  if (!closedBy_) closedBy_ = Clock::now() + kFarewellTime;
  while (IsChannelOpen() && Clock::now() < *closedBy_) Iterate(std::chrono::milliseconds(10));
}

}  // namespace tavrin::ua
