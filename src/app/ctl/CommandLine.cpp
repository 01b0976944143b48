#include "app/ctl/CommandLine.h"

#include <cstdio>
#include <exception>
#include <functional>
#include <memory>
#include <sstream>
#include <string>

#include <CLI/CLI.hpp>

#include "app/ctl/Commands.h"
#include "app/ctl/PlainText.h"
#include "app/ctl/RunScript.h"
#include "app/ctl/TestRun.h"
#include "app/ctl/Watch.h"
#include "platform/RuntimeError.h"

namespace tavrin {

namespace {

constexpr const char* kFooter =
    "Exit status: 0 without a warning, 1 with warnings, 2 the command could not be run.\n"
    "Of run: 0 all lines held, 1 one did not, 2 the script could not be run.\n"
    "More in the manual page tavrinctl(1).";

struct Request {
  std::string language = "en";
  std::string file;
  std::string directory;
  ScriptRequest script;
  WatchRequest watch;
  TestRequest test;
  std::function<ExitStatus(Host&)> command;
};

Wording WordingOf(const std::string& language) {
  if (language == "numbers") return Wording::Numbers;
  return language == "de" ? Wording::German : Wording::English;
}

void AddCommand(CLI::App& app, Request& request, const char* name, const char* description,
                ExitStatus (*run)(Host&, const std::string&)) {
  CLI::App* command = app.add_subcommand(name, description);
  command->add_option("FILE", request.file, "Root file of the project, usually ZOPCSRV.ini")->required();
  command->callback(
      [&request, run] { request.command = [&request, run](Host& host) { return run(host, request.file); }; });
}

void AddResave(CLI::App& app, Request& request) {
  CLI::App* command = app.add_subcommand("resave", "Load a project and write all of it into another directory");
  command->add_option("FILE", request.file, "Root file of the project, usually ZOPCSRV.ini")->required();
  command->add_option("DIR", request.directory, "Existing directory for the files written")->required();
  command->callback([&request] {
    request.command = [&request](Host& host) { return ResaveProject(host, request.file, request.directory); };
  });
}

void AddRun(CLI::App& app, Request& request) {
  CLI::App* command = app.add_subcommand("run", "Run a script: a user's session with the editor, one line a gesture");
  command->add_option("SCRIPT", request.script.file, "File of the script, - for standard input")->required();
  command->add_option("ARGS", request.script.arguments, "What $1 to $9 stand for in the script");
  command->add_flag("--user-settings", request.script.userSettings,
                    "Start with the settings of your own editor, and change them");
  command->footer(ScriptHelp());
  command->callback(
      [&request] { request.command = [&request](Host& host) { return RunScript(host, request.script); }; });
}

void AddWatch(CLI::App& app, Request& request) {
  CLI::App* command =
      app.add_subcommand("watch", "Print value, quality and time stamp of tags as the server tells them");
  command->add_option("FILE", request.watch.file, "Root file of the project, usually ZOPCSRV.ini")->required();
  command->add_option("TAGS", request.watch.items, "DEVICE/TAG, or DEVICE for all its tags")->required();
  command->add_flag("--json", request.watch.json, "Print one JSON document a line");
  command->add_flag("--demo", request.watch.demo, "Ask the demonstration server, TAGS being its items");
  command->add_option("--seconds", request.watch.seconds, "End after so long")->check(CLI::PositiveNumber);
  command->callback(
      [&request] { request.command = [&request](Host& host) { return WatchTags(host, request.watch); }; });
}

void AddTest(CLI::App& app, Request& request) {
  CLI::App* command = app.add_subcommand("test", "Run the test cycle of a device against the server");
  command->add_option("FILE", request.test.file, "Root file of the project, usually ZOPCSRV.ini")->required();
  command->add_option("DEVICE", request.test.device, "Name of the device")->required();
  command->add_option("--runs", request.test.runs, "Cycles wanted")->check(CLI::PositiveNumber)->capture_default_str();
  command->add_option("--interval", request.test.interval, "Milliseconds between two steps, and before the check")
      ->check(CLI::PositiveNumber)
      ->capture_default_str();
  command->add_option("--timeout", request.test.timeout, "Seconds that one run may take")
      ->check(CLI::PositiveNumber)
      ->capture_default_str();
  command->add_flag("--subscribe", request.test.subscribe, "Subscribe anew in every run");
  command->add_flag("--no-check", request.test.noCheck, "Leave the partner's check out");
  command->add_flag("--demo", request.test.demo, "Against the demonstration server");
  command->callback(
      [&request] { request.command = [&request](Host& host) { return RunDeviceTest(host, request.test); }; });
}

void Define(CLI::App& app, Request& request) {
  app.description("tavrinctl: the Tavrin editor without a window");
  app.footer(kFooter);
  app.set_version_flag("--version", "tavrinctl " TAVRIN_VERSION);
  app.add_option("--language", request.language, "Words of the messages: German, English, or #N for text N")
      ->check(CLI::IsMember({"de", "en", "numbers"}).description(""))
      ->type_name("de|en|numbers")
      ->capture_default_str();
  app.require_subcommand(0, 1);  // none is told below: an unknown one is then told with its name
  app.fallthrough();
  AddCommand(app, request, "show", "Load a project and print it as one JSON document", ShowProject);
  AddCommand(app, request, "check", "Load a project and print its warnings, one a line: kind, file, text",
             CheckProject);
  AddResave(app, request);
  AddRun(app, request);
  AddWatch(app, request);
  AddTest(app, request);
}

/// The status, unless what was printed has not reached its reader.
int Finish(ExitStatus status) {
  if (std::fflush(stdout) == 0 && std::ferror(stdout) == 0) return static_cast<int>(status);
  Tell("the output cannot be written");
  return static_cast<int>(ExitStatus::NotRun);
}

/// @return nothing after telling why the program cannot work from where it stands
std::unique_ptr<Host> MakeHost(Wording wording) {
  const std::string directory = ApplicationDirectory();
  try {
    return std::make_unique<Host>(wording, directory);
  } catch (const RuntimeError& error) {
    const bool isNamed = error.Number() == ErrorNumber::PathNotFound;
    Tell(directory + (isNamed ? ": the directory of the program has characters that the code page does not have"
                              : ": the texts of the program cannot be read here"));
  }
  return nullptr;
}

}  // namespace

int RunTavrinctl(int argc, const char* const* argv) try {
  CLI::App app("", "tavrinctl");
  Request request;
  Define(app, request);
  try {
    app.parse(argc, argv);
    if (!request.command) throw CLI::RequiredError("A subcommand");
  } catch (const CLI::ParseError& error) {
    std::ostringstream out;
    std::ostringstream problem;
    const bool isAnswer = app.exit(error, out, problem) == 0;
    std::fputs(out.str().c_str(), stdout);
    std::fputs(problem.str().c_str(), stderr);
    return Finish(isAnswer ? ExitStatus::Clean : ExitStatus::NotRun);
  }
  const std::unique_ptr<Host> host = MakeHost(WordingOf(request.language));
  return host ? Finish(request.command(*host)) : static_cast<int>(ExitStatus::NotRun);
} catch (const std::exception& error) {
  Tell(std::string("the work was broken off: ") + error.what());
  return static_cast<int>(ExitStatus::NotRun);
}

}  // namespace tavrin
