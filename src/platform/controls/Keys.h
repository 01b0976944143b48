#pragma once

namespace tavrin {

/// Keys that rules know, by the numbers that the program's handlers use.
enum class Key : int { Back = 8, Tab = 9, Enter = 13, Escape = 27, Delete = 46, F2 = 113 };

/// Mouse buttons.
enum class MouseButton : int { Left = 1, Right = 2 };

}  // namespace tavrin
