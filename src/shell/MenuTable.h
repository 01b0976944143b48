#pragma once

#include <span>
#include <string_view>

namespace tavrin {

/// How an entry stands before anything has happened.
enum class MenuState { Live, Disabled, Hidden };

/// One entry of a menu of the main window as it is designed.
struct MenuRow {
  std::string_view menu = {};      ///< name of the control array
  int index = 0;                   ///< its number there
  int text = 0;                    ///< number of the caption in the catalogue; 0: `caption` stands in every language
  std::string_view caption = {};   ///< "-" for a separator; empty where one comes at run time
  std::string_view shortcut = {};  ///< e.g. "Ctrl+N"; empty for none
  std::string_view submenu = {};   ///< control array of the entries below; empty for none
  MenuState state = MenuState::Live;
};

/// All entries in the order in which they are shown, a menu before the entries below it.
[[nodiscard]] std::span<const MenuRow> MenuTable();

/// One button of the tool bar.
struct ToolRow {
  int index;
  int text;                ///< number of its tool tip
  std::string_view image;  ///< key of its picture
};
[[nodiscard]] std::span<const ToolRow> ToolTable();

}  // namespace tavrin
