#include "app/editor/Application.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "model/shared/modMain.h"

namespace tavrin {

namespace {

struct Language {
  std::int32_t code;
  std::string_view name;
};

constexpr std::array kLanguages{
    Language{5, "cs"},  Language{6, "da"},  Language{7, "de"},  Language{9, "en"},  Language{10, "es"},
    Language{11, "fi"}, Language{12, "fr"}, Language{14, "hu"}, Language{16, "it"}, Language{19, "nl"},
    Language{21, "pl"}, Language{25, "ru"}, Language{29, "sv"}, Language{31, "tr"},
};

}  // namespace

bool Application::notify(QObject* receiver, QEvent* event) {
  try {
    return QApplication::notify(receiver, event);
  } catch (...) {
    modMain::Trap("Application.notify : ");
    return true;
  }
}

std::string LanguageName(std::int32_t language) {
  const auto* const found = std::find_if(kLanguages.begin(), kLanguages.end(),
                                         [language](const Language& row) { return row.code == language; });
  return std::string(found == kLanguages.end() ? "en" : found->name);
}

}  // namespace tavrin
