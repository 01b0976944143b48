#include "app/session/Verbs.h"

#include <algorithm>
#include <array>
#include <optional>

#include "app/session/Gestures.h"
#include "app/session/Reach.h"
#include "app/session/Subjects.h"
#include "platform/CodePage.h"

namespace tavrin {

namespace {

void Start(Stage& stage, Words words) {
  std::string commandLine;
  for (const std::string& word : words) commandLine += (commandLine.empty() ? "" : " ") + word;
  stage.Start(std::move(commandLine));
}

void Answer(Stage& stage, Words words) {
  const std::string& what = words[0];
  const bool hasPath = what == "file" || what == "folder";
  if (words.size() != (hasPath ? 2U : 1U)) throw Refusal{"wanted: yes, no, cancel, file PATH or folder PATH"};
  if (hasPath) {
    const auto dialog = what == "file" ? SessionDesktop::Dialog::File : SessionDesktop::Dialog::Folder;
    stage.desktop.AnswerPath(dialog, AbsolutePath(words[1]), stage.line);
  } else if (what == "cancel") {
    stage.desktop.AnswerPath(SessionDesktop::Dialog::Either, std::nullopt, stage.line);
  } else if (what == "yes" || what == "no") {
    stage.desktop.Answer(what == "yes", stage.line);
  } else {
    throw Refusal{"wanted: yes, no, cancel, file PATH or folder PATH"};
  }
}

struct OtherwiseName {
  std::string_view name;
  SessionDesktop::Otherwise otherwise;
};
constexpr std::array kOtherwise{OtherwiseName{"yes", SessionDesktop::Otherwise::Yes},
                                OtherwiseName{"no", SessionDesktop::Otherwise::No},
                                OtherwiseName{"fail", SessionDesktop::Otherwise::Fail}};

void Otherwise(Stage& stage, Words words) {
  for (const OtherwiseName& known : kOtherwise) {
    if (known.name != words[0]) continue;
    stage.desktop.otherwise = known.otherwise;
    return;
  }
  throw Refusal{"wanted: yes, no or fail"};
}

void Print(Stage& stage, Words words) {
  const Words rest = words.subspan(1);
  if (const Listing* const listing = FindListing(words[0])) return listing->print(stage, rest);
  std::string subject;
  for (const std::string& word : words) subject += (subject.empty() ? "" : " ") + ToUtf8(word);
  stage.transcript.Tell(subject, FindSubject(words[0])->text(stage, rest));
}

void Expect(Stage& stage, Words words) {
  const std::string found = FindSubject(words[0])->text(stage, words.subspan(1, words.size() - 2));
  if (found != words.back()) throw Refusal{"expected " + Quoted(words.back()) + ", found " + Quoted(found)};
}

constexpr std::array kVerbs{
    Verb{"start", "[WORDS...]", VerbKind::Gesture, "starts the program with the words of a command line", Start},
    Verb{"click", "CONTROL [NUMBER | PATH | ROW] [COL]", VerbKind::Gesture,
         "left button on a menu entry, a button of any kind, a check box, a node, a cell", Click},
    Verb{"rightclick", "CONTROL PATH | ROW [COL]", VerbKind::Gesture, "right button on a node or a cell", RightClick},
    Verb{"doubleclick", "GRID ROW COL", VerbKind::Gesture, "double click on a cell, e.g. of the heading", DoubleClick},
    Verb{"point", "GRID ROW COL", VerbKind::Gesture, "moves the mouse over a cell", PointAt},
    Verb{"expand", "TREE PATH", VerbKind::Gesture, "opens a node", ExpandNode},
    Verb{"collapse", "TREE PATH", VerbKind::Gesture, "closes a node", CollapseNode},
    Verb{"tick", "LIST TEXT", VerbKind::Gesture, "ticks the box of a row that has the text", TickRow},
    Verb{"untick", "LIST TEXT", VerbKind::Gesture, "takes the tick of such a row away", UntickRow},
    Verb{"drag", "SPLITTER TWIPS", VerbKind::Gesture, "drags a bar to the right or down, or back by a negative number",
         DragSplitter},
    Verb{"widen", "GRID COL TWIPS", VerbKind::Gesture,
         "pulls the edge of a column in the heading until it has this width, also of one with none", WidenColumn},
    Verb{"select", "CONTROL PATH | ROW [COL] [ROW2] [COL2]", VerbKind::Gesture,
         "goes to a node, a row of a list or a cell by keys, and pulls the selection on to a second cell",
         SelectByKeys},
    Verb{"focus", "CONTROL [NUMBER]", VerbKind::Gesture, "gives the keyboard to a control", FocusControl},
    Verb{"key", "KEYS", VerbKind::Gesture,
         "Enter, Escape, Tab, Shift+Tab, Space, Delete or F2, or the shortcut of a menu entry as Ctrl+S", PressKey},
    Verb{"type", "TEXT [TEXT...]", VerbKind::Gesture,
         "types where the keyboard is; further texts into the next cells, with Tab between", TypeText},
    Verb{"clear", "", VerbKind::Gesture, "marks the whole text of an open edit or a text box and deletes it",
         ClearText},
    Verb{"choose", "TEXT", VerbKind::Gesture, "takes a text of the list of an open edit", ChooseText},
    Verb{"resize", "WIDTH HEIGHT", VerbKind::Gesture, "pulls the window to a size, in twips", ResizeWindow},
    Verb{"move", "LEFT TOP", VerbKind::Gesture, "moves the window to a place, in twips", MoveWindow},
    Verb{"state", "STATE", VerbKind::Gesture, "normal, minimised or maximised", ChangeState},
    Verb{"drop", "PATH", VerbKind::Gesture, "drops a file on the window", DropFile},
    Verb{"close", "", VerbKind::Gesture, "the close box of the window", CloseWindow},
    Verb{"elapse", "TIMER [TICKS]", VerbKind::Gesture,
         "lets the time of a running timer come, so many times or until it is stopped", ElapseTimer},
    Verb{"data", "ITEM TYPE VALUE [QUALITY]", VerbKind::Gesture,
         "the OPC server tells a value of a type such as Int16, Double or Text, with bars between for an array",
         ChangeData},
    Verb{"server", "STATE", VerbKind::Look, "on, off: whether an OPC server can be reached from here on", SetServer},
    Verb{"clock", "DATE TIME", VerbKind::Look, "sets the clock of the machine, as 2026-11-20 14:05:09", SetClock},
    Verb{"service", "CALL RESULT", VerbKind::Look,
         "what the calls stop and start of the server's service give from here on, a number", SetService},
    Verb{"programs", "WHICH", VerbKind::Look, "none, all: the other programs that the machine has from here on",
         SetPrograms},
    Verb{"answer", "ANSWER [PATH]", VerbKind::Look,
         "yes, no: to the next question; file PATH, folder PATH, cancel: to the next such dialog", Answer},
    Verb{"otherwise", "ANSWER", VerbKind::Look,
         "yes, no: to every question without an answer; fail (as at the start): the run ends", Otherwise},
    Verb{"print", "SUBJECT [WORDS...]", VerbKind::Look, "prints a subject or a listing", Print},
    Verb{"expect", "SUBJECT [WORDS...] TEXT", VerbKind::Look, "ends the run unless a subject has the text", Expect},
};

struct Count {
  std::size_t least = 0;
  std::size_t most = 0;
};

/// How many words a pattern allows. Alternatives joined by " | " are one word.
Count CountOf(std::string_view pattern) {
  Count count;
  bool alternative = false;
  while (!pattern.empty()) {
    const std::size_t end = std::min(pattern.find(' '), pattern.size());
    const std::string_view word = pattern.substr(0, end);
    pattern.remove_prefix(std::min(end + 1, pattern.size()));
    if (word == "|") {
      alternative = true;
      continue;
    }
    const bool many = word.find("...") != std::string_view::npos;
    if (many) count.most = ScriptParser::kLongestLine;
    if (!many && !alternative) ++count.most;
    if (word.front() != '[' && !alternative) ++count.least;
    alternative = false;
  }
  return count;
}

std::optional<std::string> WrongCount(std::string_view name, std::string_view pattern, std::size_t words) {
  const Count count = CountOf(pattern);
  if (words >= count.least && words <= count.most) return std::nullopt;
  return "wanted: " + std::string(name) + (pattern.empty() ? "" : " ") + std::string(pattern);
}

/// What is wrong with the subject of a line that prints or expects one.
std::optional<std::string> WrongSubject(const ScriptLine& line, bool expects) {
  const std::string& name = line.words[1];
  const std::size_t words = line.words.size() - (expects ? 3 : 2);
  if (const Subject* const subject = FindSubject(name)) {
    std::string pattern(subject->arguments);
    if (expects) pattern += pattern.empty() ? "TEXT" : " TEXT";
    return WrongCount(line.words[0] + " " + name, pattern, words + (expects ? 1 : 0));
  }
  const Listing* const listing = FindListing(name);
  if (listing == nullptr) return Quoted(name) + " is no subject";
  if (expects) return Quoted(name) + " can be printed only";
  return WrongCount(line.words[0] + " " + name, listing->arguments, words);
}

std::optional<std::string> Wrong(const ScriptLine& line) {
  const Verb* const verb = FindVerb(line.words[0]);
  if (verb == nullptr) return Quoted(line.words[0]) + " is no verb";
  if (auto count = WrongCount(verb->name, verb->arguments, line.words.size() - 1)) return count;
  if (verb->act != Print && verb->act != Expect) return std::nullopt;
  return WrongSubject(line, verb->act == Expect);
}

}  // namespace

std::span<const Verb> Verbs() { return kVerbs; }

const Verb* FindVerb(std::string_view name) {
  const auto* const found =
      std::find_if(kVerbs.begin(), kVerbs.end(), [name](const Verb& verb) { return verb.name == name; });
  return found == kVerbs.end() ? nullptr : found;
}

std::optional<ScriptFault> FindFault(const std::vector<ScriptLine>& lines) {
  for (const ScriptLine& line : lines) {
    if (const auto wrong = Wrong(line)) return ScriptFault{line.number, *wrong};
  }
  return std::nullopt;
}

}  // namespace tavrin
