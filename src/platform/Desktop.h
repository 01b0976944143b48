#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace tavrin {

class Form;
class MenuEntry;

/// The mouse pointers that the program asks for, by their numbers.
enum class MousePointer : int { Normal = 0, Hourglass = 11 };

/// What the dialog for opening a file begins with.
struct OpenFileRequest {
  std::string fileName;   ///< stands in the name field
  std::string filter;     ///< description of the files, "|", pattern
  std::string directory;  ///< directory shown first; one that does not exist is no error
};

/// How the program talks to its user. Texts and paths are in the code page (platform/CodePage.h).
class Desktop {
 public:
  Desktop() = default;
  Desktop(const Desktop&) = delete;
  Desktop& operator=(const Desktop&) = delete;
  virtual ~Desktop() = default;

  /// Shows a box with an OK button and returns when the user has closed it.
  virtual void ShowBox(std::string_view text) = 0;

  /// Shows a box with Yes and No; true only for Yes.
  [[nodiscard]] virtual bool AskYesNo(std::string_view text) = 0;

  /// Shows a window above the others and returns when it is hidden again.
  virtual void ShowModal(Form& form) = 0;

  /// Opens a menu at the pointer and returns when it is closed; the chosen entry has then run.
  virtual void PopupMenu(MenuEntry& menu) = 0;

  /// The user chooses a file to open. Nothing when he gives up. The name need not exist.
  [[nodiscard]] virtual std::optional<std::string> AskOpenFile(const OpenFileRequest& request) = 0;

  /// The user chooses a directory; empty when he gives up.
  [[nodiscard]] virtual std::string AskFolder(std::string_view title) = 0;

  /// Lets the events that have come up meanwhile run.
  virtual void DoEvents() = 0;

  /// Stands still for so many milliseconds: nothing runs meanwhile, neither events nor posted actions.
  virtual void Sleep(int milliseconds) = 0;

  /// Has an action run on the thread of the windows, soon and in the order of the calls. From any thread. An action
  /// that comes after the end of the desktop never runs.
  virtual void Post(std::function<void()> action) = 0;

  /// Waits until `done` says so, at most so many milliseconds; asks it after every posted action. Windows are painted
  /// and posted actions run meanwhile, but what the user does waits.
  /// @return what `done` says at the end
  virtual bool WaitUntil(const std::function<bool()>& done, int milliseconds) = 0;

  virtual void Pointer(MousePointer pointer) = 0;

  /// Ends the program: no further event runs, no window is asked. The caller goes on to its end.
  virtual void EndProcess() = 0;
};

}  // namespace tavrin
