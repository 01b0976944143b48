#include "model/shared/modText.h"

#include "model/shared/modMain.h"

namespace tavrin {

void ResInit() { modMain::Platform().texts.Init(); }

std::string ResText(std::int32_t number) {
  std::string text;
  modMain::IgnoreErrors([&] {
    text = modMain::Platform().texts.LoadText(number, modMain::globals.gnLanguage);
    text.resize(text.find('\0') == std::string::npos ? text.size() : text.find('\0'));
  });
  return text;
}

}  // namespace tavrin
