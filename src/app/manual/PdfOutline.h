#pragma once

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace tavrin {

/// An entry of the tree that a PDF viewer shows beside the pages.
struct Bookmark {
  std::u16string title;
  int level = 1;       ///< 1 at the top; an entry belongs to the one before it of a lower level
  int page = 0;        ///< counted from 0
  double fromTop = 0;  ///< place on the page, 0 the upper edge, 1 the lower one
};

/// Adds bookmarks, which the toolkit's PDF writer does not know, as an update at the end of a file that it has written.
/// The viewer opens the file with them. @param height of the pages in points
/// @throws ManualFault for a file of another make, and for a page that it does not have
[[nodiscard]] std::string WithBookmarks(std::string pdf, const std::vector<Bookmark>& marks, double height);

/// Objects of the kind "/Type /Page".
[[nodiscard]] int CountPages(std::string_view pdf);

}  // namespace tavrin
