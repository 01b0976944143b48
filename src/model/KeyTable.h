#pragma once

#include <algorithm>
#include <cstdint>
#include <limits>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <variant>

#include "model/NetworkSettings.h"
#include "model/Setting.h"
#include "model/shared/IniAccess.h"
#include "model/shared/cWarning.h"
#include "platform/CodePage.h"
#include "platform/NumberText.h"

namespace tavrin {

/// How the text of a key in a file becomes a stored field and back.
enum class KeyForm {
  Number,      ///< a number within the limits
  NumberText,  ///< the same, kept as text with its fraction; written rounded
  Text,        ///< any text that is not empty
  Word,        ///< one of the words in any case; kept in upper case
  WordAsIs,    ///< one of the words in any case; kept as the file has it
  WordNumber,  ///< one of the words in any case; kept as its position counted from 1
  Address,     ///< an address of four pieces
  ComPort,     ///< a number from 1 that no other MPI network has
  TagFile,     ///< name of the device's tag file
  Fixed,       ///< always written as the first word; never read, the field becomes 1
};

/// What a key's value is held against. A bad value is told as a warning and leaves the field.
struct KeyLimits {
  double lowest = 0;
  double highest = std::numeric_limits<double>::infinity();
  std::span<const std::int32_t> oneOf{};  ///< when not empty: exactly these numbers instead of a range
  bool wholeText = true;                  ///< false: the numeric prefix decides, "x" counts as 0
  bool tellValue = true;                  ///< false: the warning ends behind the key
  std::span<const std::string_view> words{};
  bool allowZeroAddress = false;  ///< 0.0.0.0 is accepted
  bool uniqueFile = false;        ///< a file name already in use is warned of
};

/// One key of a section. The rows of a table stand in the order of writing.
template <class Settings>
struct KeyRow {
  NetworkType type;  ///< network or device type that has the key
  std::string_view key;
  KeyForm form;
  int readRank;  ///< place in the order of reading, from 1
  SettingMember<Settings> member{};
  KeyLimits limits{};
};

/// Reads the keys of one section, turns bad values into read warnings and keeps count of failures.
class KeyReader {
 public:
  /// @param file full path of the file @param warningFile file named in the warnings
  KeyReader(WarningKind kind, std::string warningFile, std::string section, std::string file)
      : kind_(kind), warningFile_(std::move(warningFile)), section_(std::move(section)), file_(std::move(file)) {}

  /// The number, not yet rounded. @return nothing when it failed, which was told
  [[nodiscard]] std::optional<double> ReadNumber(std::string_view key, const KeyLimits& limits);
  [[nodiscard]] std::optional<std::string> ReadText(std::string_view key);
  /// The word as the file has it and its position counted from 0.
  [[nodiscard]] std::optional<std::pair<std::string, std::size_t>> ReadWord(std::string_view key,
                                                                            const KeyLimits& limits);
  [[nodiscard]] std::optional<std::string> ReadAddress(std::string_view key, const KeyLimits& limits);

  /// Tells a warning that counts as no failure.
  void Warn(std::string text) const;
  /// Tells a warning that counts as a failure.
  void Fail(std::string text);

  [[nodiscard]] bool Failed() const { return failed_; }
  /// Cleaned value of the key read last, also when it was refused.
  [[nodiscard]] const std::string& LastValue() const { return last_.text; }

 private:
  void Read(std::string_view key);

  WarningKind kind_;
  std::string warningFile_;
  std::string section_;
  std::string file_;
  IniValue last_;
  bool failed_ = false;
};

/// Reads one key of the forms that are the same for networks and devices and stores it past the setters.
template <class Settings>
void ReadKey(KeyReader& reader, const KeyRow<Settings>& row, Settings& settings) {
  const auto number = [&]() -> std::int32_t& { return settings.*std::get<std::int32_t Settings::*>(row.member); };
  const auto text = [&]() -> std::string& { return settings.*std::get<std::string Settings::*>(row.member); };
  switch (row.form) {
    case KeyForm::Number:
      if (const auto value = reader.ReadNumber(row.key, row.limits)) number() = RoundToInt32(*value);
      break;
    case KeyForm::NumberText:
      if (const auto value = reader.ReadNumber(row.key, row.limits)) text() = DecimalText(*value);
      break;
    case KeyForm::Text:
      if (auto value = reader.ReadText(row.key)) text() = std::move(*value);
      break;
    case KeyForm::Word:
      if (const auto word = reader.ReadWord(row.key, row.limits)) text() = UpperCase(word->first);
      break;
    case KeyForm::WordAsIs:
      if (auto word = reader.ReadWord(row.key, row.limits)) text() = std::move(word->first);
      break;
    case KeyForm::WordNumber:
      if (const auto word = reader.ReadWord(row.key, row.limits))
        number() = static_cast<std::int32_t>(word->second) + 1;
      break;
    case KeyForm::Address:
      if (auto value = reader.ReadAddress(row.key, row.limits)) text() = std::move(*value);
      break;
    case KeyForm::Fixed: number() = 1; break;
    case KeyForm::ComPort:
    case KeyForm::TagFile: break;  // read by the one table that has them
  }
}

/// The text that the key is written with; nothing when the field's value has none and the key is left out.
template <class Settings>
[[nodiscard]] std::optional<std::string> KeyText(const KeyRow<Settings>& row, const Settings& settings) {
  const auto number = [&] { return settings.*std::get<std::int32_t Settings::*>(row.member); };
  const auto text = [&]() -> const std::string& { return settings.*std::get<std::string Settings::*>(row.member); };
  switch (row.form) {
    case KeyForm::Number:
    case KeyForm::ComPort: return std::to_string(number());
    case KeyForm::NumberText: return std::to_string(RoundToInt32(NumericPrefix(text())));
    case KeyForm::WordNumber: {
      const std::int32_t position = number();
      if (position < 1 || static_cast<std::size_t>(position) > row.limits.words.size()) return std::nullopt;
      return std::string(row.limits.words[static_cast<std::size_t>(position) - 1]);
    }
    case KeyForm::Fixed: return std::string(row.limits.words.front());
    case KeyForm::Text:
    case KeyForm::Word:
    case KeyForm::WordAsIs:
    case KeyForm::Address: return text();
    case KeyForm::TagFile: break;  // written by the one table that has it
  }
  return std::nullopt;
}

/// Hands the rows of a type to `readRow` in the order of reading. `bOK` turns false with the first failure.
template <class Settings, class ReadRow>
void ReadSection(const KeyReader& reader, std::span<const KeyRow<Settings>> rows, std::int32_t type, bool& bOK,
                 const ReadRow& readRow) {
  for (int rank = 1;; ++rank) {
    const auto row = std::find_if(rows.begin(), rows.end(), [&](const KeyRow<Settings>& candidate) {
      return candidate.type == NetworkType{type} && candidate.readRank == rank;
    });
    if (row == rows.end()) return;
    readRow(*row);
    bOK = bOK && !reader.Failed();
  }
}

/// Writes the rows of a type that have a text, in their order. `file` is a full path.
template <class Settings, class TextOf>
void WriteSection(const std::string& section, const std::string& file, std::span<const KeyRow<Settings>> rows,
                  std::int32_t type, const TextOf& textOf) {
  for (const KeyRow<Settings>& row : rows) {
    if (row.type != NetworkType{type}) continue;
    if (const std::optional<std::string> text = textOf(row)) WriteIniValue(section, row.key, *text, file);
  }
}

}  // namespace tavrin
