#include "app/session/SessionDesktop.h"

#include <algorithm>
#include <utility>

namespace tavrin {

SessionDesktop::SessionDesktop(Transcript& transcript) : transcript_(transcript) {}

std::optional<int> SessionDesktop::UnusedAnswer() const {
  if (answers_.empty() && paths_.empty()) return std::nullopt;
  if (paths_.empty()) return answers_.front().line;
  if (answers_.empty()) return paths_.front().line;
  return std::min(answers_.front().line, paths_.front().line);
}

void SessionDesktop::Forget() {
  recentBoxes_.clear();
  recentQuestions_.clear();
}

void SessionDesktop::ShowBox(std::string_view text) {
  transcript_.Tell("box " + Quoted(text) + " [OK]");
  recentBoxes_.emplace_back(text);
}

bool SessionDesktop::AskYesNo(std::string_view text) {
  const auto answer = TakeAnswer();
  const std::string question = "question " + Quoted(text);
  transcript_.Tell(question + " [Yes] [No]" + (answer ? (*answer ? " -> yes" : " -> no") : ""));
  recentQuestions_.emplace_back(text);
  if (!answer) OnUnexpected("no answer was given beforehand to the " + question);
  return answer.value_or(false);
}

std::optional<bool> SessionDesktop::TakeAnswer() {
  if (answers_.empty()) {
    if (otherwise == Otherwise::Fail) return std::nullopt;
    return otherwise == Otherwise::Yes;
  }
  const bool yes = answers_.front().yes;
  answers_.pop_front();
  return yes;
}

std::optional<std::string> SessionDesktop::AskOpenFile(const OpenFileRequest& request) {
  return TakePath(Dialog::File, "file dialog ", request.fileName);
}

std::string SessionDesktop::AskFolder(std::string_view title) {
  return TakePath(Dialog::Folder, "folder dialog ", title).value_or(std::string());
}

void SessionDesktop::Sleep(int milliseconds) {
  transcript_.Tell("the program stands still for " + std::to_string(milliseconds) + " ms");
}

std::optional<std::string> SessionDesktop::TakePath(Dialog dialog, std::string_view what, std::string_view text) {
  const std::string asked = std::string(what) + Quoted(text);
  const bool answered = !paths_.empty() && (paths_.front().dialog == dialog || paths_.front().dialog == Dialog::Either);
  if (!answered) {
    transcript_.Tell(asked);
    OnUnexpected("no answer was given beforehand to the " + asked);
    return std::nullopt;
  }
  auto path = std::move(paths_.front().path);
  paths_.pop_front();
  transcript_.Tell(asked + " -> " + (path ? Quoted(*path) : "cancelled"));
  return path;
}

}  // namespace tavrin
