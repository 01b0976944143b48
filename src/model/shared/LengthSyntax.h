#pragma once

#include "platform/ServerSyntax.h"

namespace tavrin {

/// The checker without a grammar: every text of 1 to 32 characters is accepted, a longer one gives result 1, an empty
/// one 3. The server decides on the rest.
class LengthSyntax : public ServerSyntax {
 public:
  [[nodiscard]] std::int32_t CheckTagName(std::string& name) override;
  [[nodiscard]] std::int32_t CheckNodeName(std::string& name) override;
  [[nodiscard]] std::int32_t CheckSource(std::string& source, std::int32_t deviceType, std::int32_t plcType) override;
};

}  // namespace tavrin
