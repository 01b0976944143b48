#include "shell/MenuTable.h"

#include <array>

#include "shell/MainControls.h"

namespace tavrin {

namespace {

constexpr auto kDisabled = MenuState::Disabled;
constexpr auto kHidden = MenuState::Hidden;

constexpr std::array kMenus{
    MenuRow{.menu = "mnuMain", .index = 1, .text = 40, .submenu = "mnuFile"},
    MenuRow{.menu = "mnuMain", .index = 2, .text = 46, .submenu = "mnuEdit"},
    MenuRow{.menu = "mnuMain", .index = 3, .text = 52, .submenu = "mnuExtras"},
    MenuRow{.menu = "mnuMain", .index = 4, .caption = "&?", .submenu = "mnuHelp"},
    MenuRow{.menu = "mnuMain", .index = 5, .submenu = "mnuTest", .state = kHidden},

    MenuRow{.menu = "mnuFile", .index = 1, .text = 41},
    MenuRow{.menu = "mnuFile", .index = 2, .text = 42, .shortcut = "Ctrl+O"},
    MenuRow{.menu = "mnuFile", .index = 3, .text = 43, .shortcut = "Ctrl+S"},
    MenuRow{.menu = "mnuFile", .index = 4, .text = 44},
    MenuRow{.menu = "mnuFile", .index = 10, .caption = "-", .state = kHidden},
    MenuRow{.menu = "mnuFile", .index = 11, .state = kHidden},
    MenuRow{.menu = "mnuFile", .index = 12, .state = kHidden},
    MenuRow{.menu = "mnuFile", .index = 13, .state = kHidden},
    MenuRow{.menu = "mnuFile", .index = 14, .state = kHidden},
    MenuRow{.menu = "mnuFile", .index = 20, .caption = "-"},
    MenuRow{.menu = "mnuFile", .index = 21, .text = 45},

    MenuRow{.menu = "mnuEdit", .index = 1, .text = 47, .shortcut = "Ctrl+N", .state = kDisabled},
    MenuRow{.menu = "mnuEdit", .index = 2, .text = 48, .shortcut = "Ctrl+M", .state = kDisabled},
    MenuRow{.menu = "mnuEdit", .index = 3, .text = 49, .shortcut = "Ctrl+D", .state = kDisabled},
    MenuRow{.menu = "mnuEdit", .index = 4, .text = 50, .shortcut = "Ctrl+F", .state = kDisabled},
    MenuRow{.menu = "mnuEdit", .index = 5, .text = 51, .shortcut = "Ctrl+U", .state = kDisabled},
    MenuRow{.menu = "mnuEdit", .index = 6, .caption = "Testen", .state = kHidden},

    MenuRow{.menu = "mnuExtras", .index = 1, .text = 53},
    MenuRow{.menu = "mnuExtras", .index = 2, .text = 54},
    MenuRow{.menu = "mnuExtras", .index = 3, .text = 55, .submenu = "mnuLanguage"},
    MenuRow{.menu = "mnuExtras", .index = 4, .text = 58, .submenu = "mnuSize"},
    MenuRow{.menu = "mnuExtras", .index = 5, .text = 61},
    MenuRow{.menu = "mnuExtras", .index = 6, .text = 62, .submenu = "mnuLog"},
    MenuRow{.menu = "mnuExtras", .index = 7, .text = 63},
    MenuRow{.menu = "mnuExtras", .index = 8, .text = 64},
    MenuRow{.menu = "mnuExtras", .index = 9, .text = 66},
    MenuRow{.menu = "mnuExtras", .index = 10, .text = 160},
    MenuRow{.menu = "mnuExtras", .index = 11, .text = 267},
    MenuRow{.menu = "mnuExtras", .index = 12, .text = 67},

    MenuRow{.menu = "mnuLanguage", .index = 1, .state = kHidden},
    MenuRow{.menu = "mnuSize", .index = 1, .text = 59},
    MenuRow{.menu = "mnuSize", .index = 2, .text = 60},
    MenuRow{.menu = "mnuLog", .index = 1, .caption = "LOG&1.TXT"},
    MenuRow{.menu = "mnuLog", .index = 2, .caption = "LOG&2.TXT"},

    MenuRow{.menu = "mnuHelp", .index = 1, .text = 69},
    MenuRow{.menu = "mnuHelp", .index = 2, .text = 70},
    MenuRow{.menu = "mnuHelp", .index = 3, .text = 71},
    MenuRow{.menu = "mnuHelp", .index = 4, .text = 72},

    MenuRow{.menu = "mnuTest", .index = 1, .text = 65},
};

constexpr std::array kTools{
    ToolRow{kToolNew, 41, "NEW"},
    ToolRow{kToolOpen, 42, "OPEN"},
    ToolRow{kToolSave, 43, "SAVE"},
    ToolRow{kToolDelete, 73, "DELETE"},
    ToolRow{kToolReconfigure, 160, "RECONFIGURE"},
};

}  // namespace

std::span<const MenuRow> MenuTable() { return kMenus; }
std::span<const ToolRow> ToolTable() { return kTools; }

}  // namespace tavrin
