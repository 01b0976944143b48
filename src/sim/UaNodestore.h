#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include <open62541/plugin/nodestore.h>

namespace tavrin {

/// Gives the name of a node that is asked for by another one: nothing when there is none.
using OtherName = std::function<std::optional<std::string>(std::string_view name)>;

/// Puts itself before a store of nodes, so that nodes of the name space `space` with a text for an id are found by
/// other names too. A node has one id all the same: browsing shows that one.
/// @param store what the server would use; it goes with the one that is put before it
void AnswerOtherNames(UA_Nodestore& store, std::uint16_t space, OtherName otherName);

}  // namespace tavrin
