#include "platform/posix/PosixPrograms.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <optional>
#include <vector>

#include <fmt/format.h>
#include <sys/stat.h>

#include "platform/RuntimeError.h"
#include "platform/posix/Launch.h"
#include "platform/posix/ProgramSearch.h"
#include "platform/posix/ProgramTable.h"

namespace tavrin {

struct PosixPrograms::Subject {
  std::string file = {};  ///< UTF-8; begins with "/" or "./", so that no program takes it for an option
  int page = 1;
  std::string unit = {};
};

namespace {

using Words = std::vector<std::string>;

/// Stands for a file whose name cannot be told from an option.
std::string NoOption(const std::string& file) { return file.starts_with('/') ? file : "./" + file; }

/// The file as an address: every byte that could mean something there is written as a number.
std::string AddressOf(const std::string& file) {
  constexpr std::string_view kPlain = "/-._~";
  std::string address = "file://";
  for (const char byte : std::filesystem::absolute(file).string()) {
    const auto code = static_cast<unsigned char>(byte);
    const bool plain = (code < 0x80 && std::isalnum(code) != 0) || kPlain.find(byte) != std::string_view::npos;
    address += plain ? std::string(1, byte) : fmt::format("%{:02X}", code);
  }
  return address;
}

/// What is found under the path, following links and in any case of its last piece.
struct Found {
  std::string name;
  bool regular = false;
};
std::optional<Found> Find(PosixPathFinder& finder, std::string_view path) {
  std::optional<Found> found;
  static_cast<void>(finder.OnExisting(PosixPath(path), [&found](const char* name) {
    struct stat status {};
    const int result = stat(name, &status);
    if (result == 0) found = Found{name, S_ISREG(status.st_mode)};
    return result;
  }));
  return found;
}

bool Counts(const CommandRow& row) {
  return (row.desktop.empty() || IsDesktop(row.desktop)) && (row.needs.empty() || FindProgram(row.needs)) &&
         (row.mediaType.empty() || HasHandler(row.mediaType));
}

/// Puts the first terminal that is found, and that can do what is asked for, before the command.
bool PutIntoTerminal(Words& command, bool kept) {
  for (const TerminalRow& row : Terminals()) {
    const auto program = kept && row.keep.empty() ? std::nullopt : FindProgram(row.program);
    if (!program) continue;
    Words words{*program};
    if (kept) words.emplace_back(row.keep);
    if (!row.run.empty()) words.emplace_back(row.run);
    command.insert(command.begin(), words.begin(), words.end());
    return true;
  }
  return false;
}

}  // namespace

bool PosixPrograms::StartFirst(std::span<const CommandRow> commands, const Subject& subject) {
  const auto filled = [&subject](std::string_view argument) {
    std::string text;
    for (std::size_t i = 0; i < argument.size(); ++i) {
      const char mark = argument[i] == '%' && i + 1 < argument.size() ? argument[++i] : '\0';
      if (mark == 'f') text += subject.file;
      if (mark == 'l') text += AddressOf(subject.file);
      if (mark == 'n') text += std::to_string(subject.page);
      if (mark == 'u') text += subject.unit;
      if (mark == '\0') text += argument[i];
    }
    return text;
  };
  return std::any_of(commands.begin(), commands.end(), [&filled](const CommandRow& row) {
    const auto program = FindProgram(row.program);
    if (!program || !Counts(row)) return false;
    Words command{*program};
    for (const std::string_view argument : row.arguments) {
      if (!argument.empty()) command.push_back(filled(argument));
    }
    if (row.place != CommandPlace::Window && !PutIntoTerminal(command, row.place == CommandPlace::Kept)) return false;
    return StartDetached(command.front(), Words(command.begin() + 1, command.end()));
  });
}

void PosixPrograms::Start(Administration purpose, WindowStyle style) {
  if (purpose == Administration::OpcSettings) return ShowText(directory_ + "Tavrin.INI", style);
  if (!StartFirst(CommandsFor(purpose), {.unit = unit_})) throw RuntimeError(ErrorNumber::FileNotFound);
}

void PosixPrograms::ShowText(std::string_view path, WindowStyle /*style*/) {
  const auto found = Find(finder_, path);
  if (found && !found->regular) throw RuntimeError(ErrorNumber::PathFileAccess);
  // A missing file is the program's to tell, or to make.
  const std::string file = found ? found->name : PosixPath(path).whole;
  if (!StartFirst(TextCommands(), {.file = NoOption(file)})) throw RuntimeError(ErrorNumber::FileNotFound);
}

bool PosixPrograms::OpenDocument(std::string_view path, int page) {
  const auto found = Find(finder_, path);
  return found && found->regular && StartFirst(DocumentCommands(), {.file = NoOption(found->name), .page = page});
}

}  // namespace tavrin
