#pragma once

#include <array>
#include <span>
#include <string_view>

#include "platform/Programs.h"

namespace tavrin {

/// Where a command runs.
enum class CommandPlace {
  Window,    ///< it has windows of its own
  Terminal,  ///< in a terminal, and stays until the user ends it
  Kept,      ///< in a terminal that stays open behind it: it prints and ends
};

/// A command of the desktop that serves a purpose. In an argument that is not fixed stand
/// %f the file, %l the file as an address of a browser, %n the page, %u the unit of the server.
struct CommandRow {
  std::string_view program;                        ///< name in the search path
  std::array<std::string_view, 6> arguments = {};  ///< up to the first empty one
  CommandPlace place = CommandPlace::Window;
  std::string_view needs = {};      ///< a further program that must be there
  std::string_view desktop = {};    ///< counts only in a session of this desktop; empty: in any
  std::string_view mediaType = {};  ///< counts only while a program is known for files of this type
};

/// The commands for a purpose, the preferred one first. Empty for one that is served by another purpose here, or whose
/// command is that for a text file.
[[nodiscard]] std::span<const CommandRow> CommandsFor(Administration purpose);
/// The commands that show a text file, and a document with pages.
[[nodiscard]] std::span<const CommandRow> TextCommands();
[[nodiscard]] std::span<const CommandRow> DocumentCommands();

/// A terminal. The command that it runs stands behind its own arguments, each word for itself.
struct TerminalRow {
  std::string_view program;
  std::string_view keep;  ///< keeps it open behind the command; empty where it cannot
  std::string_view run;   ///< stands before the command; empty for none
};
[[nodiscard]] std::span<const TerminalRow> Terminals();

}  // namespace tavrin
