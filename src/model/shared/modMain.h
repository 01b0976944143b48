#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "platform/Desktop.h"
#include "platform/Files.h"
#include "platform/ProfileFiles.h"
#include "platform/Registry.h"
#include "platform/ServerSyntax.h"
#include "platform/SettingsStore.h"
#include "platform/Surroundings.h"
#include "platform/TextLibrary.h"

namespace tavrin {

class cDevice;
class cNetwork;
class cOPC;
class cWarnings;
class Grid;
struct RightPane;

/// What the program needs of the machine. The main program owns the services and outlives the model.
struct Services {
  Desktop& desktop;
  Files& files;
  ProfileFiles& profiles;
  Registry& registry;
  TextLibrary& texts;
  ServerSyntax& syntax;
  SettingsStore& settings;
  Surroundings& around;
  std::string applicationDirectory;  ///< where texts, Tavrin.INI and the sample stand, without a trailing separator
};

/// State of the process and the helpers that everything above leans on.
namespace modMain {

/// The process-wide state. Set back as a whole: `globals = State{}`, so that every test starts fresh.
struct State {
  State();
  State(State&&) noexcept;
  State& operator=(State&&) noexcept;
  ~State();

  const Services* services = nullptr;
  std::unique_ptr<cOPC> gOPC;                 ///< the open project; none before the first New or Open
  std::string gszProjectDir;                  ///< its directory with a trailing separator; empty when unknown
  std::unique_ptr<cWarnings> gReadWarnings;   ///< warnings of the last read
  std::unique_ptr<cWarnings> gWriteWarnings;  ///< warnings of the last write
  std::int32_t gnCurrentNetwork = 0;          ///< 1-based position of the selected network, 0 for none
  std::int32_t gnCurrentDevice = 0;           ///< 1-based position of the selected device in it, 0 for none
  std::int32_t gnLanguage = kEnglish;         ///< primary language code: 7 German, 9 English
  std::string gszManual;                      ///< full path of the manual of the language
  bool gbShowHint = true;
  bool gbQueryOnDelete = true;      ///< ask before anything is deleted
  bool gbQueryOnSave = true;        ///< ask before the project is written
  bool gbDemo = false;              ///< online windows use the demonstration server
  bool gbTest = false;              ///< the scripted test run is offered
  RightPane* pane = nullptr;        ///< the sheets of the main window; none before it exists
  std::int32_t nTrappedErrors = 0;  ///< errors that the trap has told since the start
};

extern State globals;

/// @throws RuntimeError 91 before the main program has set the services
[[nodiscard]] const Services& Platform();
/// @throws RuntimeError 91 when no project is open
[[nodiscard]] cOPC& OpenProject();
/// Name of the open project's file; empty when none is open.
[[nodiscard]] std::string RootFileName();
/// The network selected in the tree. @throws RuntimeError 91 when none is selected
[[nodiscard]] cNetwork& CurrentNetwork();
/// The device selected in the tree. @throws RuntimeError 91 when none is selected
[[nodiscard]] cDevice& CurrentDevice();
/// The sheets of the main window. @throws RuntimeError 91 before it exists
[[nodiscard]] RightPane& Pane();
/// Brings one grid of the pane on show and hides the others, each with the controls that go with it: the tag grid with
/// a device's sheet, a label with the tags and with the warnings. The grid's name decides; nullptr or any other name,
/// that of the tag grid too: hides all. @throws RuntimeError 91 before the main window exists
void SetVisible(const Grid* grid);
/// The warning lists, made when missing.
[[nodiscard]] cWarnings& ReadWarnings();
[[nodiscard]] cWarnings& WriteWarnings();

/// Cleans a raw INI value: cut before the first ";", NUL and tab, in this order, then without outer blanks.
[[nodiscard]] std::string ParseINISetting(std::string_view raw);
/// Blanks added on the right up to `width` characters; a longer text comes back as it is.
[[nodiscard]] std::string PadRight(std::string_view text, std::int32_t width);
/// True for four pieces joined by points, each 0 to 255 by its numeric prefix. Loose on purpose: a piece without
/// digits counts as 0, so host-like texts with four pieces pass. `bAllowZero` decides on 0.0.0.0.
[[nodiscard]] bool CheckIPAddressSyntax(std::string_view address, bool bAllowZero);
/// False for addresses that the server cannot use (first piece 224 or 255, or 127.0.0.1); `szMessage` then says why.
[[nodiscard]] bool CheckIPAddressRange(std::string_view address, std::string& szMessage);
/// Asks before something is deleted, unless the user has switched the question off.
[[nodiscard]] bool QueryDelete(std::string_view prompt);

/// The one error trap. To be called in a `catch (...)`: shows the error in flight in one box and returns, so that the
/// command is abandoned and the program goes on. `label` names the routine, e.g. "cOPC.Refresh : ".
void Trap(std::string_view label);

/// Runs an action whose failure means nothing to the caller.
template <class Action>
void IgnoreErrors(Action&& action) {
  try {
    action();
  } catch (...) {  // NOLINT(bugprone-empty-catch): that is what the caller asks for
  }
}

/// Without leading and trailing blanks (character 32 only).
[[nodiscard]] std::string_view TrimBlanks(std::string_view text);

}  // namespace modMain
}  // namespace tavrin
