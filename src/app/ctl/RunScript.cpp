#include "app/ctl/RunScript.h"

#include <array>
#include <cstdio>
#include <memory>
#include <optional>

#include <fmt/format.h>

#include "app/ctl/PlainText.h"
#include "app/session/Session.h"
#include "app/session/Subjects.h"
#include "app/session/Verbs.h"
#include "brand/Brand.h"
#include "platform/headless/EmptyRegistry.h"
#include "platform/headless/MemorySettings.h"

namespace tavrin {

namespace {

constexpr std::size_t kLongestScript = 64 << 20;

struct CloseFile {
  void operator()(std::FILE* file) const { std::fclose(file); }
};

/// Nothing when the file cannot be read, or is no script by its length.
std::optional<std::string> ReadAll(std::FILE* file) {
  std::string text;
  std::array<char, 65536> block{};
  while (const std::size_t got = std::fread(block.data(), 1, block.size(), file)) {
    text.append(block.data(), got);
    if (text.size() > kLongestScript) return std::nullopt;
  }
  if (std::ferror(file) != 0) return std::nullopt;
  return text;
}

std::optional<std::string> ReadScript(const std::string& file) {
  if (file == "-") return ReadAll(stdin);
  const std::unique_ptr<std::FILE, CloseFile> opened(std::fopen(file.c_str(), "rb"));
  return opened ? ReadAll(opened.get()) : std::nullopt;
}

ExitStatus Fault(const ScriptRequest& request, const ScriptFault& fault, ExitStatus status) {
  std::fflush(stdout);
  Tell(fmt::format("{}:{}: {}", request.file == "-" ? "standard input" : request.file, fault.line, fault.message));
  return status;
}

/// Settings of a fresh user who has chosen the language of the run.
void ChooseLanguage(SettingsStore& settings) {
  settings.SaveSetting(OemBrand().settingsApplication, "Settings", "Language",
                       std::to_string(modMain::globals.gnLanguage));
}

template <class Row>
void AddRows(std::string& help, std::string_view title, std::span<const Row> rows) {
  help.append(title);
  for (const Row& row : rows) {
    const std::string line = fmt::format("{}{}{}", row.name, row.arguments.empty() ? "" : " ", row.arguments);
    help += fmt::format("  {:<45} {}\n", line, row.help);
  }
}

}  // namespace

ExitStatus RunScript(Host& host, const ScriptRequest& request) {
  const auto text = ReadScript(request.file);
  if (!text) {
    Tell(request.file + ": this script cannot be read");
    return ExitStatus::NotRun;
  }
  ScriptParser parser(request.arguments);
  if (!parser.Parse(*text)) return Fault(request, parser.Fault(), ExitStatus::NotRun);
  if (const auto fault = FindFault(parser.Lines())) return Fault(request, *fault, ExitStatus::NotRun);

  MemorySettings ownSettings;
  ChooseLanguage(ownSettings);
  EmptyRegistry noRegistry;
  const Services& own = modMain::Platform();
  SettingsStore& settings = request.userSettings ? own.settings : ownSettings;
  Registry& registry = request.userSettings ? own.registry : noRegistry;
  const Services machine{own.desktop, own.files,  own.profiles,
                         registry,    own.texts,  own.syntax,
                         settings,    own.around, own.applicationDirectory};
  Session session(machine, [](std::string_view line) { std::fwrite(line.data(), 1, line.size(), stdout); });
  if (const auto fault = session.Run(parser.Lines())) return Fault(request, *fault, ExitStatus::Warnings);
  if (!host.LostWrites()) return ExitStatus::Clean;
  Tell("not every file could be written");
  return ExitStatus::Warnings;
}

std::string ScriptHelp() {
  std::string help;
  AddRows(help, "Lines of a script:\n", Verbs());
  AddRows(help, "\nWhat print shows and expect compares:\n", Subjects());
  AddRows(help, "\nWhat only print shows:\n", Listings());
  help +=
      "\nExit status: 0 all lines were done and held, 1 one could not be done or did not hold, 2 the script cannot "
      "be run.";
  return help;
}

}  // namespace tavrin
