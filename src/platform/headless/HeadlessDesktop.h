#pragma once

#include <cstddef>
#include <deque>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Desktop.h"
#include "platform/headless/ActionQueue.h"

namespace tavrin {

/// The desktop without a screen: what the program tells is recorded, what it asks is answered from answers given
/// beforehand. A question without an answer is answered with No or given up, and recorded, so that it can be reported
/// and never blocks. Windows and menus are handed to a scripted user while they are open.
class HeadlessDesktop : public Desktop {
 public:
  /// Beyond kMost boxes nothing is recorded any more: a damaged file must not take memory without bound.
  void ShowBox(std::string_view text) override;
  static constexpr std::size_t kMost = 10'000'000;
  [[nodiscard]] bool AskYesNo(std::string_view text) override;
  /// Hands the window to OnModal; a window that is still open after it is hidden and recorded as unexpected.
  void ShowModal(Form& form) override;
  /// Hands the menu to OnPopup, after its UserOpen.
  void PopupMenu(MenuEntry& menu) override;
  [[nodiscard]] std::optional<std::string> AskOpenFile(const OpenFileRequest& request) override;
  [[nodiscard]] std::string AskFolder(std::string_view title) override;
  /// Runs what has been posted.
  void DoEvents() override;
  /// Recorded; time does not pass.
  void Sleep(int milliseconds) override { sleeps_.push_back(milliseconds); }
  void Post(std::function<void()> action) override;
  bool WaitUntil(const std::function<bool()>& done, int milliseconds) override;
  void Pointer(MousePointer pointer) override { pointers_.push_back(pointer); }
  /// From here on nothing that is posted runs.
  void EndProcess() override;
  /// The program is started once more on the same desktop.
  void Restart();

  /// Answers one further question, in the order of the calls.
  void AnswerNext(bool yes) { answers_.push_back(yes); }
  /// Answers one further file or folder dialog; nothing gives it up.
  void AnswerNextPath(std::optional<std::string> path) { paths_.push_back(std::move(path)); }

  /// What a user does while a modal window or a popup menu is open.
  std::function<void(Form& form)> OnModal;
  std::function<void(MenuEntry& menu)> OnPopup;
  /// Told of everything as it happens, e.g. for a transcript: "box", "yes", "no" and the text, "open" and the file
  /// name, "folder" and the title, "popup" and the name of the menu.
  std::function<void(std::string_view what, std::string_view text)> OnTold;

  /// Texts of the boxes shown, oldest first.
  [[nodiscard]] const std::vector<std::string>& Boxes() const { return boxes_; }
  /// Texts of all questions asked, oldest first.
  [[nodiscard]] const std::vector<std::string>& Questions() const { return questions_; }
  /// Those of the questions, dialogs and windows that nobody had given an answer for.
  [[nodiscard]] const std::vector<std::string>& UnexpectedQuestions() const { return unexpected_; }
  /// The file dialogs asked for, oldest first.
  [[nodiscard]] const std::vector<OpenFileRequest>& OpenRequests() const { return openRequests_; }
  /// The titles of the folder dialogs, oldest first.
  [[nodiscard]] const std::vector<std::string>& FolderTitles() const { return folderTitles_; }
  /// All pointers asked for, oldest first.
  [[nodiscard]] const std::vector<MousePointer>& Pointers() const { return pointers_; }
  /// The milliseconds of all calls of Sleep, oldest first.
  [[nodiscard]] const std::vector<int>& Sleeps() const { return sleeps_; }
  /// Calls of DoEvents so far.
  [[nodiscard]] int EventRounds() const { return rounds_; }
  [[nodiscard]] bool Ended() const { return ended_; }

  /// Hands the recorded boxes over and forgets them.
  [[nodiscard]] std::vector<std::string> TakeBoxes();

 private:
  [[nodiscard]] std::optional<std::string> NextPath(std::string_view what, const std::string& text);
  void Tell(std::string_view what, std::string_view text) const;

  std::vector<std::string> boxes_;
  std::vector<std::string> questions_;
  std::vector<std::string> unexpected_;
  std::vector<OpenFileRequest> openRequests_;
  std::vector<std::string> folderTitles_;
  std::vector<MousePointer> pointers_;
  std::vector<int> sleeps_;
  ActionQueue posted_;
  std::deque<bool> answers_;
  std::deque<std::optional<std::string>> paths_;
  int rounds_ = 0;
  bool ended_ = false;
};

}  // namespace tavrin
