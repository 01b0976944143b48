#pragma once

#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/Files.h"
#include "platform/TextLibrary.h"

namespace tavrin {

/// A text of a catalogue file, its escapes resolved, in the encoding of the file.
struct CatalogueText {
  int number = 0;
  std::string text;
};

/// The texts of a catalogue file, ascending by number. A line is NUMBER=TEXT; \n in a text is a line break, \\ a
/// backslash, and any other backslash stands for itself. Lines that start with # are comments. A malformed line and
/// the second text of a number are passed over, so that a translator's slip costs one text and not the language.
/// Line ends may be LF or CR LF, and a byte order mark is passed over: editors add them unasked.
[[nodiscard]] std::vector<CatalogueText> ParseCatalogue(std::string_view file);

/// The catalogue on disk: one UTF-8 file a language, named by its number, e.g. 7.txt. A further language is a further
/// file.
class TextCatalogue : public TextLibrary {
 public:
  /// @param files outlives the catalogue
  /// @param directory of the files, with a trailing separator
  TextCatalogue(Files& files, std::string directory) : files_(files), directory_(std::move(directory)) {}

  /// Reads German and English, one of which every installation has; other languages are read on their first use.
  /// @throws RuntimeError 53 when neither of the two can be read: without any words the program is of no use
  void Init() override;

  /// In the code page in use at the time of the call; a character that it does not have becomes "?". A language whose
  /// file is missing or cannot be read has no texts.
  [[nodiscard]] std::string LoadText(int number, int language) override;

 private:
  const std::vector<CatalogueText>& Texts(int language);
  [[nodiscard]] std::vector<CatalogueText> Read(int language) const;

  Files& files_;
  std::string directory_;
  std::map<int, std::vector<CatalogueText>> languages_;  ///< all that were asked for, the missing ones empty
};

}  // namespace tavrin
