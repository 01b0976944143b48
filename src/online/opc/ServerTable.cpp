#include "online/opc/ServerTable.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <system_error>
#include <utility>

#include "platform/CodePage.h"
#include "platform/ProfileFiles.h"

namespace tavrin {

namespace {

constexpr std::string_view kSection = "Servers";
constexpr std::string_view kEndpoint = "opc.tcp://localhost:4840";
constexpr std::string_view kNodes = "ns=2;s=*";
constexpr std::string_view kPolicy = "Basic256Sha256";
constexpr std::array<std::string_view, 2> kKnownServers{"Zelkar.OPCServer.1", "Qorvane.OPCServer.1"};

struct SecurityName {
  std::string_view name;
  OpcSecurity security;
};
constexpr std::array kSecurityNames{SecurityName{"None", OpcSecurity::None}, SecurityName{"Sign", OpcSecurity::Sign},
                                    SecurityName{"SignAndEncrypt", OpcSecurity::SignAndEncrypt}};

/// The keys of one server.
struct Keys {
  ProfileFiles& profiles;
  const std::string& configuration;
  const std::string& progID;

  [[nodiscard]] std::string Read(std::string_view ending, std::string_view fallback) const {
    std::array<char, 1024> buffer{};
    const std::string key = progID + std::string(ending);
    const std::size_t count = profiles.GetString(kSection, key, fallback, buffer, configuration);
    return {buffer.data(), count};
  }
};

std::optional<OpcSecurity> ReadSecurity(const std::string& text) {
  for (const auto& [name, security] : kSecurityNames) {
    if (EqualIgnoringCase(name, text)) return security;
  }
  return std::nullopt;
}

bool IsKnown(std::string_view progID) {
  return std::find(kKnownServers.begin(), kKnownServers.end(), progID) != kKnownServers.end();
}

}  // namespace

std::string NodePattern::TextOf(std::string_view itemID) const { return ToUtf8(before + std::string(itemID) + behind); }

std::optional<NodePattern> ReadNodePattern(std::string_view pattern) {
  constexpr std::string_view kStart = "ns=";
  constexpr std::string_view kTextMark = ";s=";
  if (!pattern.starts_with(kStart)) return std::nullopt;
  NodePattern read;
  const char* const end = pattern.data() + pattern.size();
  const auto result = std::from_chars(pattern.data() + kStart.size(), end, read.nameSpace);
  if (result.ec != std::errc()) return std::nullopt;
  const std::string_view rest(result.ptr, static_cast<std::size_t>(end - result.ptr));
  if (!rest.starts_with(kTextMark)) return std::nullopt;
  const std::string_view text = rest.substr(kTextMark.size());
  const auto star = text.find('*');
  read.before = text.substr(0, star);
  if (star != std::string_view::npos) read.behind = text.substr(star + 1);
  return read;
}

std::optional<ServerEntry> FindServer(ProfileFiles& profiles, const std::string& configuration,
                                      const std::string& progID) {
  const Keys keys{profiles, configuration, progID};
  ServerEntry entry;
  entry.endpoint = keys.Read("", IsKnown(progID) ? kEndpoint : "");
  const auto nodes = ReadNodePattern(keys.Read(".NodeId", kNodes));
  const auto security = ReadSecurity(keys.Read(".Security", kSecurityNames.front().name));
  if (entry.endpoint.empty() || !nodes || !security) return std::nullopt;
  entry.nodes = *nodes;
  entry.security = *security;
  entry.policy = keys.Read(".Policy", kPolicy);
  entry.certificate = keys.Read(".Certificate", "");
  entry.privateKey = keys.Read(".PrivateKey", "");
  entry.serverCertificate = keys.Read(".ServerCertificate", "");
  entry.user = keys.Read(".User", "");
  return entry;
}

}  // namespace tavrin
