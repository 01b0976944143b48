#pragma once

#include <array>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "support/TemporaryDirectory.h"

namespace tavrin {

class cTags;
class Grid;

/// What the users share who edit as the dice say: the texts that they type, and what they know of the program.

inline constexpr std::array<std::string_view, 40> kRandomValues{"",
                                                                "0",
                                                                "1",
                                                                "2",
                                                                "5",
                                                                "7",
                                                                "15",
                                                                "16",
                                                                "20",
                                                                "30",
                                                                "31",
                                                                "32",
                                                                "50",
                                                                "100",
                                                                "255",
                                                                "999",
                                                                "1001",
                                                                "65535",
                                                                "65536",
                                                                "99999999999",
                                                                "S7",
                                                                "S5",
                                                                "ZELKAR IEC1131",
                                                                "RO",
                                                                "rw",
                                                                "OFF",
                                                                "on",
                                                                "ON ",
                                                                "remote",
                                                                "LOCAL",
                                                                "1.2.3.4",
                                                                "0.0.0.0",
                                                                "127.0.0.1",
                                                                "224.1.1.1",
                                                                "a.b",
                                                                "/",
                                                                "\\!",
                                                                "x y;",
                                                                "\xE4\xC4",
                                                                "12.5x"};
inline constexpr std::array<std::string_view, 6> kRandomAddresses{"MB1", "mb2", " db1.dbw3 ", "", "E0.0;X", "MB33"};
inline constexpr std::array<std::string_view, 7> kRandomAccess{"RO", "rw", " Rw ", "RW", "X", "", "RO"};
inline constexpr std::array<std::string_view, 6> kRandomTexts{"", "1", "1,5", " a;b ", "\xE4", "x y"};

/// What the boxes say about an edit that has ended.
struct EditOutcome {
  bool refused = false;   ///< the user was told that his text is not taken
  bool reported = false;  ///< the error trap has told something
};
/// Fails the test when a refused edit has changed the project, or when an error was told that no user can cause.
EditOutcome JudgeBoxes(const std::vector<std::string>& boxes, const std::vector<std::string>& projectBefore,
                       const std::vector<std::string>& projectAfter);
/// True unless the box is one of the error trap for something else than what a user can cause: a number too big, a text
/// for a number, a row whose tag was renamed.
[[nodiscard]] bool MayBeTold(const std::string& box);

/// What the sheet of the selected object would show when it was filled now, from row 1 on.
[[nodiscard]] std::vector<std::string> FreshSheet();

/// The texts of the rows that hold a tag, in no order; as those of the tags (TextsOf in ProjectState.h).
[[nodiscard]] std::multiset<std::string> TagsShown(const Grid& grid);
[[nodiscard]] std::multiset<std::string> TagsHeld(const cTags& tags);

/// All files of a directory with their bytes.
[[nodiscard]] std::map<std::string, std::string> FilesIn(const TemporaryDirectory& directory);

}  // namespace tavrin
