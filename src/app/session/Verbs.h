#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "app/session/Script.h"
#include "app/session/Stage.h"

namespace tavrin {

/// What a line of a script is, for the open popup menu: only some lines leave it open.
enum class VerbKind {
  Gesture,  ///< the user does something
  Look,     ///< nothing is done: a look, a check, an answer given beforehand
};

/// One word that a line can begin with.
struct Verb {
  std::string_view name;
  std::string_view arguments;  ///< one word each, an optional one in brackets, "..." for any number
  VerbKind kind;
  std::string_view help;
  /// @throws Refusal
  void (*act)(Stage& stage, Words words);
};

/// All verbs, in the order in which they are explained.
[[nodiscard]] std::span<const Verb> Verbs();
/// @return nullptr for an unknown one
[[nodiscard]] const Verb* FindVerb(std::string_view name);

/// The first line that begins with no verb, or has too few or too many words; nothing when there is none.
[[nodiscard]] std::optional<ScriptFault> FindFault(const std::vector<ScriptLine>& lines);

}  // namespace tavrin
