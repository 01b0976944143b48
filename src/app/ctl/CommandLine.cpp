#include "app/ctl/CommandLine.h"

#include <cstdio>
#include <functional>
#include <string>

#include <CLI/CLI.hpp>
#include <fmt/core.h>

#include "app/ctl/Commands.h"
#include "platform/RuntimeError.h"

namespace tavrin {

namespace {

constexpr const char* kFooter =
    "Exit status: 0 without a warning, 1 with warnings, 2 the command could not be run.\n"
    "More in the manual page tavrinctl(1).";

struct Request {
  std::string language = "en";
  std::string file;
  std::string directory;
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
    return app.exit(error) == 0 ? 0 : static_cast<int>(ExitStatus::NotRun);
  }
  Host host(WordingOf(request.language), ApplicationDirectory());
  const ExitStatus status = request.command(host);
  if (std::fflush(stdout) == 0 && std::ferror(stdout) == 0) return static_cast<int>(status);
  fmt::print(stderr, "tavrinctl: the output cannot be written\n");
  return static_cast<int>(ExitStatus::NotRun);
} catch (const RuntimeError& error) {
  fmt::print(stderr, "tavrinctl: the texts beside the program cannot be read: {}\n", error.Description());
  return static_cast<int>(ExitStatus::NotRun);
}

}  // namespace tavrin
