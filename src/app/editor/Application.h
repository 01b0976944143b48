#pragma once

#include <QApplication>
#include <cstdint>
#include <string>

namespace tavrin {

/// The toolkit's application. An error that a handler lets through goes to the error trap, since it must not travel
/// through the toolkit.
class Application : public QApplication {
 public:
  Application(int& argc, char** argv) : QApplication(argc, argv) {}

  bool notify(QObject* receiver, QEvent* event) override;
};

/// The name by which the world knows a primary language code, e.g. "de" for 7; English for an unknown one.
[[nodiscard]] std::string LanguageName(std::int32_t language);

}  // namespace tavrin
