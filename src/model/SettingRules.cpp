#include "model/SettingRules.h"

#include <algorithm>

#include <fmt/format.h>
#include <fmt/ranges.h>

#include "model/shared/Messages.h"
#include "model/shared/modMain.h"
#include "model/shared/modText.h"

namespace tavrin {

bool AcceptRange(std::int32_t value, std::int32_t lowest, std::int32_t highest, std::string_view allowed) {
  return (value >= lowest && value <= highest) || Refuse(RangeRefused(allowed));
}

bool AcceptOneOf(std::int32_t value, std::span<const std::int32_t> numbers) {
  const bool known = std::find(numbers.begin(), numbers.end(), value) != numbers.end();
  return known || Refuse(RangeRefused(JoinNumbers(numbers)));
}

bool AcceptNotEmpty(std::string_view value) { return !value.empty() || Refuse(EmptyRefused()); }

bool AcceptAddress(std::string_view value, bool bAllowZero) {
  if (!AcceptNotEmpty(value)) return false;
  if (!modMain::CheckIPAddressSyntax(value, bAllowZero)) return Refuse(ResText(232));
  std::string szMessage;
  return modMain::CheckIPAddressRange(value, szMessage) || Refuse(szMessage);
}

bool AcceptWord(std::string_view value, std::span<const std::string_view> words, std::string_view allowed) {
  return std::find(words.begin(), words.end(), value) != words.end() || Refuse(RangeRefused(allowed));
}

std::string JoinNumbers(std::span<const std::int32_t> numbers) { return fmt::format("{}", fmt::join(numbers, "/")); }

}  // namespace tavrin
