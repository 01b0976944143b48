#pragma once

#include <QTranslator>
#include <functional>
#include <string>

namespace tavrin {

/// The words that Qt itself brings (buttons of boxes, file dialog, names of keys) in the language of the program.
class QtWords {
 public:
  /// @param language tells the present language, e.g. "de"
  explicit QtWords(std::function<std::string()> language) : language_(std::move(language)) {}

  /// Takes the words of the present language, when it has changed. A language without words of its own has Qt's
  /// English.
  void Match();

 private:
  std::function<std::string()> language_;
  std::string matched_;
  QTranslator translator_;
};

}  // namespace tavrin
