#include "model/sheets/KeyClass.h"

#include <string_view>

#include "model/cOPC.h"
#include "model/shared/modMain.h"
#include "platform/controls/Keys.h"

namespace tavrin {

namespace {

constexpr std::string_view kDigits = "0123456789";
constexpr std::string_view kLetters = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";

bool IsOneOf(std::string_view characters, int key) {
  return key > 0 && key <= 255 && characters.find(static_cast<char>(key)) != std::string_view::npos;
}

}  // namespace

bool Passes(KeyClass keys, int key) {
  if (keys == KeyClass::None) return false;
  if (keys == KeyClass::Free || key == static_cast<int>(Key::Back)) return true;
  switch (keys) {
    case KeyClass::Name: return IsOneOf(kDigits, key) || IsOneOf(kLetters, key) || IsOneOf("_.", key);
    case KeyClass::Digits: return IsOneOf(kDigits, key);
    case KeyClass::Flag: return IsOneOf("01", key);
    case KeyClass::Address: return IsOneOf(kDigits, key) || IsOneOf(".", key);
    case KeyClass::Separator: return IsOneOf(modMain::OpenProject().szACCEPTEDSEPARATORS(), key);
    default: return false;
  }
}

}  // namespace tavrin
