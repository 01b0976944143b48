#pragma once

#include <memory>
#include <span>
#include <string>
#include <vector>

#include "app/session/SessionDesktop.h"
#include "app/session/SessionServers.h"
#include "app/session/Transcript.h"
#include "model/shared/modMain.h"
#include "platform/headless/HeadlessSurroundings.h"
#include "shell/frmOPC.h"

namespace tavrin {

/// The words of a line behind its verb.
using Words = std::span<const std::string>;

/// Why a line of a script cannot be done or does not hold, UTF-8. It ends the run. Never thrown through the program,
/// whose error trap would take it for an error of its own.
struct Refusal {
  std::string message;
};

/// Where a script plays: the running program, its open windows, the desktop that answers it.
class Stage {
 public:
  /// @param machine everything but the desktop; outlives the stage
  Stage(const Services& machine, const Transcript::Sink& sink);
  Stage(const Stage&) = delete;
  Stage& operator=(const Stage&) = delete;
  ~Stage();

  /// Starts the program as a fresh process would. @throws Refusal when it is running already
  void Start(std::string commandLine);
  /// Drops a program that has ended.
  void Finish();
  /// True from Start until the end of the program.
  [[nodiscard]] bool Runs() const { return program_ != nullptr; }

  /// The window that the user can work in: the modal one that was opened last, else the main window.
  /// @throws Refusal when no program is running
  [[nodiscard]] Form& Window() const;
  /// A modal window opens, and closes.
  void Enter(Form& form) { windows_.push_back(&form); }
  void Leave() { windows_.pop_back(); }

  Transcript transcript;
  SessionDesktop desktop;
  /// What the program starts is recorded; clock and habits are the same everywhere.
  HeadlessSurroundings around;
  SessionServers servers;
  /// The popup menu that is open, nullptr when none is.
  MenuEntry* popup = nullptr;
  /// Number of the line that is being done.
  int line = 0;

 private:
  Services services_;
  std::vector<Form*> windows_;
  std::unique_ptr<frmOPC> program_;
};

}  // namespace tavrin
