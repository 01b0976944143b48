#pragma once

#include <cstdio>
#include <initializer_list>
#include <string>
#include <string_view>

namespace tavrin {

/// Prints texts of the code page as one line of columns separated by tabs, in UTF-8. A control character from a file
/// is printed as \xNN: it neither breaks the line nor reaches the terminal.
void PrintLine(std::FILE* to, std::initializer_list<std::string_view> columns);

/// The same line at the end of a text.
void AppendLine(std::string& to, std::initializer_list<std::string_view> columns);

/// Tells something about the run itself on standard error, behind the program's name. `utf8` is one line; control
/// characters in it come out as "?". Nothing happens when there is no standard error.
void Tell(std::string utf8);

}  // namespace tavrin
