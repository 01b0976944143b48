#include "shell/UserSettings.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <string>
#include <string_view>

#include "brand/Brand.h"
#include "model/shared/modMain.h"
#include "platform/NumberText.h"
#include "platform/RuntimeError.h"
#include "shell/frmOPC.h"

namespace tavrin {

namespace {

constexpr std::string_view kRecent = "MRU";
constexpr std::string_view kSettings = "Settings";

constexpr std::int32_t kSmallFont = 8;
constexpr std::int32_t kLargeFont = 12;
enum SizeEntry : int { kSmall = 1, kLarge = 2 };

/// A recent project with its key.
struct RecentRow {
  std::string_view key;
  std::string frmOPC::*path;
};
constexpr std::array kRecentRows{
    RecentRow{"MRU1", &frmOPC::szMRU1},
    RecentRow{"MRU2", &frmOPC::szMRU2},
    RecentRow{"MRU3", &frmOPC::szMRU3},
    RecentRow{"MRU4", &frmOPC::szMRU4},
};

/// One side of the window with its key.
struct PlaceRow {
  std::string_view key;
  std::string_view fallback;
  float frmOPC::*read;
  float Rect::*side;
};
constexpr std::array kPlaceRows{
    PlaceRow{"Left", "500", &frmOPC::fLeft, &Rect::left},
    PlaceRow{"Top", "500", &frmOPC::fTop, &Rect::top},
    PlaceRow{"Width", "12000", &frmOPC::fWidth, &Rect::width},
    PlaceRow{"Height", "10000", &frmOPC::fHeight, &Rect::height},
};

/// A splitter's position with its key.
struct SplitRow {
  std::string_view key;
  Picture MainControls::*shadow;
  float Rect::*side;
};
constexpr std::array kSplitRows{
    SplitRow{"SplitHorz", &MainControls::picSplitterHorz, &Rect::left},
    SplitRow{"SplitVert", &MainControls::picSplitterVert, &Rect::top},
};
constexpr std::string_view kSplitDefault = "2000";

/// A yes or no with its key; all are true at first.
struct SwitchRow {
  std::string_view key;
  bool modMain::State::*value;
};
constexpr std::array kSwitchRows{
    SwitchRow{"ShowHint", &modMain::State::gbShowHint},
    SwitchRow{"QueryOnDelete", &modMain::State::gbQueryOnDelete},
    SwitchRow{"QueryOnSave", &modMain::State::gbQueryOnSave},
};

SettingsStore& Store() { return modMain::Platform().settings; }

std::string Read(const frmOPC& form, std::string_view key, std::string_view fallback) {
  return Store().GetSetting(form.szAppKey, kSettings, key, fallback);
}

/// A whole number of twips. One beyond the range of a length is the longest there is.
float ReadLength(const frmOPC& form, std::string_view key, std::string_view fallback) {
  constexpr double kLongest = 1e9;
  return static_cast<float>(std::clamp(std::nearbyint(NumericPrefix(Read(form, key, fallback))), -kLongest, kLongest));
}

std::int32_t ReadNumber(const frmOPC& form, std::string_view key, std::string_view fallback) {
  return RoundToInt32(NumericPrefix(Read(form, key, fallback)));
}

void Write(const frmOPC& form, std::string_view key, std::string_view value) {
  Store().SaveSetting(form.szAppKey, kSettings, key, value);
}

/// Shortest text that reads back as the same length.
std::string LengthText(float value) {
  std::array<char, 64> digits{};  // the longest float of all takes 48
  const auto end = std::to_chars(digits.begin(), digits.end(), value, std::chars_format::fixed).ptr;
  return {digits.begin(), end};
}

void ReadSplitters(frmOPC& form) {
  for (const SplitRow& row : kSplitRows) {
    Picture& shadow = form.*row.shadow;
    Rect place = shadow.Place();
    place.*row.side = ReadLength(form, row.key, kSplitDefault);
    shadow.Place(place);
  }
}

/// There are two sizes only; a number between counts as the smaller one.
void ReadFont(frmOPC& form) {
  const bool large = ReadNumber(form, "Fontsize", "8") >= kLargeFont;
  form.nFontSize = large ? kLargeFont : kSmallFont;
  form.mnuSize(kSmall).Checked(!large);
  form.mnuSize(kLarge).Checked(large);
}

void ReadLanguage(frmOPC& form) {
  form.languages.FillMenu();
  const std::int32_t nLanguage = ReadNumber(form, "Language", "0");
  form.languages.Activate(nLanguage == 0 ? kEnglish : nLanguage);
}

void ReadSwitches(const frmOPC& form) {
  for (const SwitchRow& row : kSwitchRows) {
    const auto value = Store().ParseBoolean(Read(form, row.key, Store().BooleanText(true)));
    if (!value) throw RuntimeError(ErrorNumber::TypeMismatch);
    modMain::globals.*row.value = *value;
  }
}

/// An empty list is not written, so that it never wipes one that is stored.
void WriteRecent(const frmOPC& form) {
  bool any = false;
  for (const RecentRow& row : kRecentRows) any = any || !(form.*row.path).empty();
  if (!any) return;
  for (const RecentRow& row : kRecentRows) Store().SaveSetting(form.szAppKey, kRecent, row.key, form.*row.path);
}

/// A minimised or maximised window keeps the place in which it was closed normally.
void WritePlace(const frmOPC& form) {
  if (form.State() != WindowState::Normal) return;
  for (const PlaceRow& row : kPlaceRows) Write(form, row.key, LengthText(form.Place().*row.side));
}

}  // namespace

void UserSettings::GetSettings() try {
  form_.szAppKey = OemBrand().settingsApplication;
  for (const RecentRow& row : kRecentRows) {
    form_.*row.path = Store().GetSetting(form_.szAppKey, kRecent, row.key, "");
  }
  for (const PlaceRow& row : kPlaceRows) {
    form_.*row.read = ReadLength(form_, row.key, row.fallback);
  }
  ReadSplitters(form_);
  ReadFont(form_);
  ReadLanguage(form_);
  ReadSwitches(form_);
} catch (...) {
  modMain::Trap("frmOPC.GetSettings : ");
}

void UserSettings::SaveSettings() try {
  form_.szAppKey = OemBrand().settingsApplication;
  WriteRecent(form_);
  Write(form_, "Language", std::to_string(modMain::globals.gnLanguage));
  WritePlace(form_);
  for (const SplitRow& row : kSplitRows) Write(form_, row.key, LengthText((form_.*row.shadow).Place().*row.side));
  Write(form_, "Fontsize", LengthText(form_.vsgOPC.FontSize()));
  for (const SwitchRow& row : kSwitchRows) Write(form_, row.key, Store().BooleanText(modMain::globals.*row.value));
} catch (...) {
  modMain::Trap("frmOPC.SaveSettings : ");
}

}  // namespace tavrin
