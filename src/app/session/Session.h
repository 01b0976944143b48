#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "app/session/Script.h"
#include "app/session/Stage.h"
#include "app/session/Watcher.h"

namespace tavrin {

/// Runs a script: a user's session with the program, one line a gesture, without a screen. The lines behind the
/// opening of a modal window are done in it until it is closed, and so are those in an open popup menu.
class Session {
 public:
  /// @param machine everything the program needs but the desktop; outlives the session
  Session(const Services& machine, const Transcript::Sink& sink);

  /// Runs all lines, or up to the first that cannot be done or does not hold. The lines have no fault (FindFault).
  /// @return why the run has ended before its end; nothing when all lines were done and held
  [[nodiscard]] std::optional<ScriptFault> Run(const std::vector<ScriptLine>& lines);

 private:
  [[nodiscard]] bool MayGoOn() const { return !fault_ && next_ < lines_->size(); }
  void RunLine();
  void Act(const ScriptLine& line);
  void Fail(const std::string& message);
  /// An answer holds for one gesture: left over, it would go to a question that it was not meant for.
  void CheckAnswers();
  void TellChanges();

  void PlayModal(Form& form);
  void PlayPopup(MenuEntry& menu);
  /// True when the next line is a click on an entry below the menu.
  [[nodiscard]] bool ClicksBelow(const MenuEntry& menu) const;
  /// The Escape key that closes a menu is no gesture of the window.
  void TakeEscape();

  Stage stage_;
  std::vector<std::unique_ptr<Watcher>> watchers_;  // one a window, the front one last; they go before the stage
  const std::vector<ScriptLine>* lines_ = nullptr;
  std::size_t next_ = 0;
  std::optional<ScriptFault> fault_;
};

}  // namespace tavrin
