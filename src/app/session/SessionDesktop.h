#pragma once

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "app/session/Transcript.h"
#include "platform/headless/HeadlessDesktop.h"

namespace tavrin {

/// The desktop of a scripted session: it answers what the program asks with the answers that the script has given
/// beforehand, and tells the transcript of it.
class SessionDesktop : public HeadlessDesktop {
 public:
  explicit SessionDesktop(Transcript& transcript);

  /// What becomes of a question that has no answer of its own.
  enum class Otherwise { Fail, Yes, No };
  Otherwise otherwise = Otherwise::Fail;

  /// For the next question, file dialog or folder dialog that has no answer yet. A dialog without a path is given up.
  void Answer(bool yes, int line) { answers_.push_back({yes, line}); }
  enum class Dialog { File, Folder, Either };
  void AnswerPath(Dialog dialog, std::optional<std::string> path, int line) {
    paths_.push_back({dialog, std::move(path), line});
  }
  /// The line of an answer that nobody has asked for; nothing when all were taken.
  [[nodiscard]] std::optional<int> UnusedAnswer() const;

  /// Texts of the boxes and questions since the last Forget, oldest first.
  [[nodiscard]] std::deque<std::string>& RecentBoxes() { return recentBoxes_; }
  [[nodiscard]] std::deque<std::string>& RecentQuestions() { return recentQuestions_; }
  void Forget();

  /// Told of what nobody had an answer for.
  std::function<void(const std::string& message)> OnUnexpected;

  void ShowBox(std::string_view text) override;
  [[nodiscard]] bool AskYesNo(std::string_view text) override;
  [[nodiscard]] std::optional<std::string> AskOpenFile(const OpenFileRequest& request) override;
  [[nodiscard]] std::string AskFolder(std::string_view title) override;
  /// Told; time does not pass.
  void Sleep(int milliseconds) override;
  void Pointer(MousePointer) override {}

 private:
  struct YesNo {
    bool yes;
    int line;
  };
  struct Path {
    Dialog dialog;
    std::optional<std::string> path;
    int line;
  };

  [[nodiscard]] std::optional<bool> TakeAnswer();
  [[nodiscard]] std::optional<std::string> TakePath(Dialog dialog, std::string_view what, std::string_view text);

  Transcript& transcript_;
  std::deque<YesNo> answers_;
  std::deque<Path> paths_;
  std::deque<std::string> recentBoxes_;
  std::deque<std::string> recentQuestions_;
};

}  // namespace tavrin
