#pragma once

#include <cstdint>
#include <string>

namespace tavrin {

/// The server's own opinion of names and data sources, so that editor and server can never disagree. The text ends at
/// its first NUL. It is a writable copy that the caller uses afterwards: a checker may normalise it in place, but
/// never lengthen it.
///
/// Results: 0 accepted, 1 too long, 2 not well formed, 3 empty. Any other result is a failure of the checker.
class ServerSyntax {
 public:
  ServerSyntax() = default;
  ServerSyntax(const ServerSyntax&) = delete;
  ServerSyntax& operator=(const ServerSyntax&) = delete;
  virtual ~ServerSyntax() = default;

  [[nodiscard]] virtual std::int32_t CheckTagName(std::string& name) = 0;
  /// For the name of a network or a device.
  [[nodiscard]] virtual std::int32_t CheckNodeName(std::string& name) = 0;
  /// @param deviceType 0 MPI, 1 H1, 2 ISO, 3 Read/Write, 4 IPK @param plcType 1 S7, 2 S5, 3 ZELKAR IEC1131
  [[nodiscard]] virtual std::int32_t CheckSource(std::string& source, std::int32_t deviceType,
                                                 std::int32_t plcType) = 0;
};

}  // namespace tavrin
