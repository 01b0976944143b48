#include "app/session/Session.h"

#include <utility>

#include "app/session/Reach.h"
#include "app/session/Subjects.h"
#include "app/session/Verbs.h"
#include "platform/CodePage.h"
#include "platform/RuntimeError.h"

namespace tavrin {

Session::Session(const Services& machine, const Transcript::Sink& sink) : stage_(machine, sink) {
  stage_.desktop.OnUnexpected = [this](const std::string& message) { Fail(message); };
  stage_.desktop.OnModal = [this](Form& form) { PlayModal(form); };
  stage_.desktop.OnPopup = [this](MenuEntry& menu) { PlayPopup(menu); };
}

std::optional<ScriptFault> Session::Run(const std::vector<ScriptLine>& lines) {
  lines_ = &lines;
  while (MayGoOn()) RunLine();
  CheckAnswers();
  return fault_;
}

void Session::RunLine() {
  const ScriptLine& line = (*lines_)[next_++];
  stage_.transcript.Echo(line.text);
  stage_.line = line.number;
  try {
    Act(line);
  } catch (const Refusal& refusal) {
    Fail(refusal.message);
  } catch (const RuntimeError& error) {
    Fail(std::string(error.Description()));
  }
  if (!fault_) TellChanges();
}

void Session::Act(const ScriptLine& line) {
  const Verb& verb = *FindVerb(line.words.front());
  if (verb.kind == VerbKind::Gesture) stage_.desktop.Forget();
  verb.act(stage_, Words(line.words).subspan(1));
  if (verb.kind == VerbKind::Gesture) CheckAnswers();
}

void Session::CheckAnswers() {
  const auto unused = stage_.desktop.UnusedAnswer();
  if (unused && !fault_) fault_ = {*unused, "nothing was asked that this answers"};
}

void Session::Fail(const std::string& message) {
  if (!fault_) fault_ = {stage_.line, message};
}

void Session::TellChanges() {
  // A program that has ended shows nothing any more. Its modal windows are left first.
  if (stage_.desktop.Ended()) {
    if (watchers_.size() > 1) return;
    watchers_.clear();
    return stage_.Finish();
  }
  if (stage_.Runs() && watchers_.empty()) watchers_.push_back(std::make_unique<Watcher>(stage_.Window()));
  if (!watchers_.empty()) watchers_.back()->TellChanges(stage_.transcript);
}

void Session::PlayModal(Form& form) {
  if (fault_) return;
  TellChanges();
  stage_.transcript.Tell("window " + ToUtf8(form.Name()) + " opens");
  stage_.Enter(form);
  watchers_.push_back(std::make_unique<Watcher>(form));
  TellChanges();
  while (form.Visible() && MayGoOn() && !stage_.desktop.Ended()) RunLine();
  if (form.Visible() && !fault_ && !stage_.desktop.Ended())
    Fail("the script ends while a window is open: " + form.Name());
  watchers_.pop_back();
  stage_.Leave();
  form.Hide();
  if (!fault_) stage_.transcript.Tell("window " + ToUtf8(form.Name()) + " closes");
}

void Session::PlayPopup(MenuEntry& menu) {
  if (fault_) return;
  TellChanges();
  stage_.transcript.Tell("menu " + NameOf(menu) + " pops up");
  PrintEntries(stage_.transcript, menu);
  MenuEntry* const outer = std::exchange(stage_.popup, &menu);
  while (MayGoOn() && FindVerb((*lines_)[next_].words.front())->kind == VerbKind::Look) RunLine();
  if (MayGoOn() && ClicksBelow(menu)) {
    RunLine();
  } else {
    TakeEscape();
    stage_.transcript.Tell("menu " + NameOf(menu) + " closes");
  }
  stage_.popup = outer;
}

void Session::TakeEscape() {
  if (!MayGoOn()) return;
  const ScriptLine& line = (*lines_)[next_];
  if (line.words.size() != 2 || line.words[0] != "key" || !EqualIgnoringCase(line.words[1], "Escape")) return;
  stage_.transcript.Echo(line.text);
  ++next_;
}

bool Session::ClicksBelow(const MenuEntry& menu) const {
  const auto& words = (*lines_)[next_].words;
  if (words.size() != 3 || words[0] != "click") return false;
  try {
    const auto* entry = FindKind<MenuEntry>(stage_, Words(words).subspan(1));
    while (entry != nullptr && entry != &menu) entry = entry->Parent();
    return entry != nullptr;
  } catch (const Refusal&) {
    return false;
  }
}

}  // namespace tavrin
