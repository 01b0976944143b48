#include "shell/frmOPC.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include "brand/Brand.h"
#include "model/cOPC.h"
#include "model/shared/modMain.h"
#include "model/shared/modParser.h"
#include "model/shared/modRegistry.h"
#include "model/shared/modText.h"
#include "platform/CodePage.h"

namespace tavrin {

namespace {

/// The window as it is designed.
constexpr Rect kDesignPlace{500, 500, 12000, 10000};
constexpr float kMinimumWidth = 9000;
constexpr float kMinimumHeight = 6000;
constexpr float kFrameTop = 330;
constexpr float kLogoMargin = 180;
constexpr int kEventRounds = 6;

/// A library without which the program is of no use, and what is told when it fails. German in every language: no words
/// can be looked up yet.
struct Probe {
  void (*call)();
  std::string_view missing;
};

void ProbeSyntax() {
  std::string source = "MB10";
  static_cast<void>(ParserIsValidSource(source, 0, 1));
}

constexpr std::array kProbes{
    Probe{&ResInit, "Die Datei 'Tavrin.DLL' konnte nicht im Verzeichnis "},
    Probe{&ProbeSyntax, "Die Datei 'ZOPCPARS.DLL' konnte nicht im Verzeichnis "},
};
constexpr std::string_view kMissingEnd = " gefunden werden. Die Anwendung wird beendet.";

/// True when the action ran to its end.
template <class Action>
bool Succeeds(Action&& action) {
  bool done = false;
  modMain::IgnoreErrors([&] {
    action();
    done = true;
  });
  return done;
}

}  // namespace

bool OPCServerInstalled() {
  bool installed = false;
  try {
    installed = !GetRegistryValue(OemBrand().serviceKey, "DisplayName", "").empty();
  } catch (...) {
    modMain::Trap("modMain.OPCServerInstalled : ");
  }
  return installed;
}

frmOPC::frmOPC(std::string commandLine)
    : Form("frmOPC"), MainControls(static_cast<Form&>(*this)), commandLine_(std::move(commandLine)) {
  modMain::globals.pane = this;
  Place(kDesignPlace);
  MinimumSize(kMinimumWidth, kMinimumHeight);
  for (Grid* const sheet : Sheets()) {
    sheets.push_back(std::make_unique<SheetEditing>(*sheet, static_cast<int>(sheets.size())));
  }
  OnResize = [this] { Form_Resize(); };
  OnUnload = [this](bool& cancel) { Form_Unload(cancel); };
}

frmOPC::~frmOPC() {
  if (modMain::globals.pane == this) modMain::globals.pane = nullptr;
}

void frmOPC::Form_Load() try {
  ShowLogo();
  ReadCommandLine();
  for (int i = 0; i < kEventRounds; ++i) modMain::Platform().desktop.DoEvents();
  if (!ProbeLibraries()) return;
  settings.GetSettings();
  layout.GUI_Init();
  languages.GetStaticTexts();
  recent.ShowMRU();
  Place({fLeft, fTop, fWidth, fHeight});
  HideProject();
  Show();
  OfferReconfiguration();
} catch (...) {
  modMain::Trap("frmOPC.Form_Load : ");
}

void frmOPC::ShowLogo() {
  PicLogo2.Visible(IsQorvane());
  picLogo1.Visible(!IsQorvane());
}

void frmOPC::ReadCommandLine() {
  std::string_view rest = commandLine_;
  while (!rest.empty()) {
    const std::size_t end = std::min(rest.find(' '), rest.size());
    const std::string word = UpperCase(rest.substr(0, end));
    modMain::globals.gbDemo = modMain::globals.gbDemo || word == "-DEMO";
    modMain::globals.gbTest = modMain::globals.gbTest || word == "-TEST";
    rest.remove_prefix(std::min(end + 1, rest.size()));
  }
}

bool frmOPC::ProbeLibraries() {
  for (const Probe& probe : kProbes) {
    if (Succeeds(probe.call)) continue;
    const Services& services = modMain::Platform();
    services.desktop.ShowBox(std::string(probe.missing).append(services.applicationDirectory).append(kMissingEnd));
    // Not by Form_Unload: the settings have not been read, and the user's would be lost.
    services.desktop.EndProcess();
    return false;
  }
  return true;
}

void frmOPC::HideProject() {
  for (Grid* const sheet : Sheets()) sheet->Visible(false);
  const std::array<Control*, 5> rest{&vsgWarnings, &vsgTags, &tvwMain, &lblWarnings, &lblTags};
  for (Control* const control : rest) control->Visible(false);
}

void frmOPC::OfferReconfiguration() {
  if (modMain::globals.gbTest) return;  // a test run needs no server on this machine
  const bool installed = OPCServerInstalled();
  mnuExtras(kExtrasReconfigure).Enabled(installed);
  Toolbar1.Buttons(kToolReconfigure).Enabled(installed);
}

void frmOPC::Form_Unload(bool& cancel) {
  modMain::IgnoreErrors([&] { settings.SaveSettings(); });
  std::int32_t nResult = kNothingToDo;
  modMain::IgnoreErrors([&] { commands.OPCProjectSaveToDisk(false, nResult); });
  if (!commands.ReportSave(nResult)) {
    cancel = true;
    return;
  }
  // Once more: an untouched project has entered the list of the recent ones only now.
  if (nResult == kNothingToDo) modMain::IgnoreErrors([&] { settings.SaveSettings(); });
  modMain::IgnoreErrors([&] { modMain::Platform().desktop.EndProcess(); });
}

void frmOPC::Form_Resize() {
  modMain::IgnoreErrors([&] { EnlargeToMinimum(); });
  modMain::IgnoreErrors([&] { Frame1.Place({0, kFrameTop, Form::Place().width, Frame1.Place().height}); });
  for (Picture* const logo : {&PicLogo2, &picLogo1}) {
    modMain::IgnoreErrors([&] {
      Rect place = logo->Place();
      place.left = Form::Place().width - place.width - kLogoMargin;
      place.top = Toolbar1.Place().top;
      logo->Place(place);
    });
  }
  modMain::IgnoreErrors([&] { layout.SizeControls(); });
}

void frmOPC::EnlargeToMinimum() {
  if (State() != WindowState::Normal) return;  // its size is then the screen's
  Rect place = Form::Place();
  place.width = std::max(place.width, kMinimumWidth);
  place.height = std::max(place.height, kMinimumHeight);
  Form::Place(place);
}

}  // namespace tavrin
