#include "platform/posix/ProgramTable.h"

namespace tavrin {
namespace {

constexpr auto kTerminal = CommandPlace::Terminal;
constexpr auto kKept = CommandPlace::Kept;

constexpr std::array kServices{
    CommandRow{.program = "systemadm"},
    CommandRow{.program = "chkservice", .place = kTerminal},
    CommandRow{.program = "watch",
               .arguments = {"-x", "systemctl", "status", "--no-pager", "%u"},
               .place = kTerminal,
               .needs = "systemctl"},
};

constexpr std::array kEventLog{
    CommandRow{.program = "gnome-logs"},
    CommandRow{.program = "ksystemlog"},
    CommandRow{.program = "mate-system-log"},
    CommandRow{.program = "journalctl", .arguments = {"--follow", "--lines=200"}, .place = kTerminal},
};

// The two control centres refuse to run on a desktop that is not theirs.
constexpr std::array kUsers{
    CommandRow{.program = "gnome-control-center", .arguments = {"user-accounts"}, .desktop = "GNOME"},
    CommandRow{.program = "systemsettings", .arguments = {"kcm_users"}, .desktop = "KDE"},
    CommandRow{.program = "systemsettings5", .arguments = {"kcm_users"}, .desktop = "KDE"},
    CommandRow{.program = "cinnamon-settings-users"},
    CommandRow{.program = "lxqt-admin-user"},
    CommandRow{.program = "users-admin"},
};

constexpr std::array kSystemInformation{
    CommandRow{.program = "gnome-control-center", .arguments = {"info-overview"}, .desktop = "GNOME"},
    CommandRow{.program = "kinfocenter"},
    CommandRow{.program = "hardinfo"},
    CommandRow{.program = "hardinfo2"},
    CommandRow{.program = "inxi", .arguments = {"-F"}, .place = kKept},
    CommandRow{.program = "lshw", .arguments = {"-short"}, .place = kKept},
    CommandRow{.program = "less",
               .arguments = {"-L", "/etc/os-release", "/proc/cpuinfo", "/proc/meminfo"},
               .place = kTerminal},
};

// Option -L of less: no filter, which a shell would run on the name of the file.
constexpr std::array kTexts{
    CommandRow{.program = "gnome-text-editor", .arguments = {"%f"}},
    CommandRow{.program = "gedit", .arguments = {"%f"}},
    CommandRow{.program = "kate", .arguments = {"%f"}},
    CommandRow{.program = "kwrite", .arguments = {"%f"}},
    CommandRow{.program = "mousepad", .arguments = {"%f"}},
    CommandRow{.program = "xed", .arguments = {"%f"}},
    CommandRow{.program = "pluma", .arguments = {"%f"}},
    CommandRow{.program = "featherpad", .arguments = {"%f"}},
    CommandRow{.program = "l3afpad", .arguments = {"%f"}},
    CommandRow{.program = "xdg-open", .arguments = {"%f"}, .mediaType = "text/plain"},
    CommandRow{.program = "nano", .arguments = {"%f"}, .place = kTerminal},
    CommandRow{.program = "less", .arguments = {"-L", "%f"}, .place = kTerminal},
};

constexpr std::array kDocuments{
    CommandRow{.program = "xdg-open", .arguments = {"%f"}, .mediaType = "application/pdf"},
    CommandRow{.program = "evince", .arguments = {"--page-index=%n", "%f"}},
    CommandRow{.program = "okular", .arguments = {"--page", "%n", "%f"}},
    CommandRow{.program = "atril", .arguments = {"--page-index=%n", "%f"}},
    CommandRow{.program = "xreader", .arguments = {"--page-index=%n", "%f"}},
    CommandRow{.program = "papers", .arguments = {"%f"}},
    CommandRow{.program = "qpdfview", .arguments = {"%f"}},
    CommandRow{.program = "zathura", .arguments = {"-P", "%n", "%f"}},
    CommandRow{.program = "mupdf", .arguments = {"%f", "%n"}},
    CommandRow{.program = "xpdf", .arguments = {"%f", "%n"}},
    CommandRow{.program = "firefox", .arguments = {"%l#page=%n"}},
    CommandRow{.program = "firefox-esr", .arguments = {"%l#page=%n"}},
    CommandRow{.program = "chromium", .arguments = {"%l#page=%n"}},
};

constexpr std::array kTerminals{
    TerminalRow{"gnome-terminal", "", "--"},
    TerminalRow{"konsole", "--hold", "-e"},
    TerminalRow{"xfce4-terminal", "--hold", "-x"},
    TerminalRow{"mate-terminal", "", "-x"},
    TerminalRow{"kgx", "", "--"},
    TerminalRow{"foot", "--hold", ""},
    TerminalRow{"kitty", "--hold", ""},
    TerminalRow{"alacritty", "--hold", "-e"},
    TerminalRow{"xterm", "-hold", "-e"},
    TerminalRow{"x-terminal-emulator", "", "-e"},
};

}  // namespace

std::span<const CommandRow> CommandsFor(Administration purpose) {
  switch (purpose) {
    case Administration::UserManager: return kUsers;
    case Administration::Services: return kServices;
    case Administration::EventLog: return kEventLog;
    case Administration::SystemInformation: return kSystemInformation;
    case Administration::OpcSettings:
    case Administration::UserPasswords:
    case Administration::ServerManager: break;
  }
  return {};
}

std::span<const CommandRow> TextCommands() { return kTexts; }
std::span<const CommandRow> DocumentCommands() { return kDocuments; }
std::span<const TerminalRow> Terminals() { return kTerminals; }

}  // namespace tavrin
