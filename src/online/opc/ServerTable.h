#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tavrin {

class ProfileFiles;

/// How the messages to and from a server are protected.
enum class OpcSecurity { None, Sign, SignAndEncrypt };

/// Node ids of a server: a namespace, and a text around the name of the item.
struct NodePattern {
  std::uint16_t nameSpace = 2;
  std::string before;
  std::string behind;

  /// The text of an item's node id in that namespace, in UTF-8.
  [[nodiscard]] std::string TextOf(std::string_view itemID) const;
};

/// What the section [Servers] tells of a server that is reached over OPC UA. Texts are in the code page.
struct ServerEntry {
  std::string endpoint;
  NodePattern nodes;
  OpcSecurity security = OpcSecurity::None;
  std::string policy;             ///< name of the security policy
  std::string certificate;        ///< file of this program's certificate, in DER or PEM form
  std::string privateKey;         ///< file of the key that belongs to it
  std::string serverCertificate;  ///< file of the only certificate that is accepted of the server, or of its issuer
  std::string user;               ///< empty: nobody in particular
};

/// Reads the keys "ProgID", "ProgID.NodeId", "ProgID.Security" and so on. The two servers that the program works for
/// are known without any key too. Nothing for an unknown ProgID and for an entry that makes no sense: a misspelt
/// security must not end in a connection without any.
[[nodiscard]] std::optional<ServerEntry> FindServer(ProfileFiles& profiles, const std::string& configuration,
                                                    const std::string& progID);

/// "ns=2;s=" and a text, in which "*" stands for the item; without "*" the item stands behind it. Nothing for a
/// text of another form.
[[nodiscard]] std::optional<NodePattern> ReadNodePattern(std::string_view pattern);

}  // namespace tavrin
