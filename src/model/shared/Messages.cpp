#include "model/shared/Messages.h"

#include <array>
#include <utility>

#include "model/shared/modMain.h"
#include "model/shared/modText.h"

namespace tavrin {

namespace {

std::int32_t ByResult(const std::array<std::int32_t, 3>& texts, std::int32_t result) {
  return result >= 1 && result <= 3 ? texts[static_cast<std::size_t>(result) - 1] : 0;
}

std::string InBrackets(std::string text, std::string_view what) {
  text.reserve(text.size() + what.size() + 3);
  text.append(" (").append(what).append(")");
  return text;
}

}  // namespace

// Joined without a detour: a damaged tag file may be one line of hundreds of megabytes, and it stands in the warning.

std::string RangeRefused(std::string_view allowed) { return TextAnd(204, allowed); }

std::string EmptyRefused() { return TextAnd(204, ResText(218)); }

std::string BadKey(std::string_view key, std::string_view value) { return InBrackets(TextAnd(207, key), value); }

std::string NameProblem(std::int32_t textNumber, std::string_view name) {
  return InBrackets(ResText(textNumber), name);
}

std::string TextAnd(std::int32_t textNumber, std::string_view what) {
  return ResText(textNumber).append(" ").append(what);
}

std::int32_t NameCheckText(std::int32_t result) { return ByResult({225, 224, 223}, result); }

std::int32_t SourceCheckText(std::int32_t result) { return ByResult({228, 226, 227}, result); }

bool Refuse(std::string_view message) {
  modMain::Platform().desktop.ShowBox(message);
  return false;
}

}  // namespace tavrin
