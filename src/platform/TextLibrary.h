#pragma once

#include <string>

namespace tavrin {

/// Primary language codes.
inline constexpr int kGerman = 7;
inline constexpr int kEnglish = 9;

/// The catalogue of all words the user sees, by number and language (texts/).
class TextLibrary {
 public:
  TextLibrary() = default;
  TextLibrary(const TextLibrary&) = delete;
  TextLibrary& operator=(const TextLibrary&) = delete;
  virtual ~TextLibrary() = default;

  /// Gets ready; to be called before the first lookup. @throws RuntimeError 53 when there are no words at all
  virtual void Init() = 0;

  /// The wording in the code page; empty for a number or a language that the catalogue does not have.
  /// `language` is a primary language code: 7 German, 9 English.
  [[nodiscard]] virtual std::string LoadText(int number, int language) = 0;
};

}  // namespace tavrin
