#include "model/KeyTable.h"

#include <algorithm>

#include "model/shared/Messages.h"
#include "model/shared/cWarnings.h"
#include "model/shared/modMain.h"
#include "model/shared/modText.h"

namespace tavrin {

namespace {

bool WithinLimits(double value, const KeyLimits& limits) {
  if (limits.oneOf.empty()) return value >= limits.lowest && value <= limits.highest;
  return std::any_of(limits.oneOf.begin(), limits.oneOf.end(), [&](std::int32_t number) { return value == number; });
}

}  // namespace

void KeyReader::Read(std::string_view key) { last_ = ReadIniValue(section_, key, "", file_); }

void KeyReader::Warn(std::string text) const {
  modMain::ReadWarnings().AddWarning(kind_, warningFile_, std::move(text));
}

void KeyReader::Fail(std::string text) {
  failed_ = true;
  Warn(std::move(text));
}

std::optional<double> KeyReader::ReadNumber(std::string_view key, const KeyLimits& limits) {
  Read(key);
  const double value = NumericPrefix(last_.text);
  const bool isNumber = !limits.wholeText || IsNumeric(last_.text);
  if (last_.present && isNumber && WithinLimits(value, limits)) return value;
  Fail(limits.tellValue ? BadKey(key, last_.text) : TextAnd(207, key));
  return std::nullopt;
}

std::optional<std::string> KeyReader::ReadText(std::string_view key) {
  Read(key);
  if (!last_.text.empty()) return last_.text;
  Fail(BadKey(key, ""));
  return std::nullopt;
}

std::optional<std::pair<std::string, std::size_t>> KeyReader::ReadWord(std::string_view key, const KeyLimits& limits) {
  Read(key);
  const auto word = std::find_if(limits.words.begin(), limits.words.end(),
                                 [&](std::string_view candidate) { return EqualIgnoringCase(candidate, last_.text); });
  if (word != limits.words.end()) return std::pair(last_.text, static_cast<std::size_t>(word - limits.words.begin()));
  Fail(BadKey(key, last_.text));
  return std::nullopt;
}

std::optional<std::string> KeyReader::ReadAddress(std::string_view key, const KeyLimits& limits) {
  Read(key);
  if (!modMain::CheckIPAddressSyntax(last_.text, limits.allowZeroAddress)) {
    Fail(BadKey(key, last_.text));
    return std::nullopt;
  }
  std::string szMessage;
  if (modMain::CheckIPAddressRange(last_.text, szMessage)) return last_.text;
  Fail(szMessage + " " + std::string(key) + " (" + last_.text + ")");
  return std::nullopt;
}

}  // namespace tavrin
