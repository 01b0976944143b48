#pragma once

#include "platform/controls/Grid.h"

namespace tavrin {

class cDevice;

/// The rows of the tag grid and the tags of the selected device. Column 0 of a row is its key: the name under which the
/// row's tag came into the list. A row without a key is an open row: it holds no tag yet and lives in the grid alone.

/// Columns of the tag grid.
enum TagColumn : int { kTagKey = 0, kTagName = 1, kTagData = 2, kTagAccess = 3, kTagComment = 9, kTagColumns = 10 };

/// Takes a cell that the user has edited to the model. A row with a key: the value goes to its tag, or the user is told
/// and the cell shows the tag's value again. An open row becomes a tag when name, address and access are all there.
/// An edit that ends in the comment column leaves the cursor on the last tag, with an empty row below it.
/// @return false when the user was told that the text is refused
/// @throws RuntimeError 91 when no device is selected
bool AfterTagEdit(Grid& grid, Cell cell);

/// Removes the tags of the selected rows after asking, and fills the grid anew. An open row is passed over.
/// @throws RuntimeError 91 when no device is selected
void DeleteTagsOfSelection(Grid& grid);

/// False for a character that cannot be typed into a column: only "," in the comment.
[[nodiscard]] bool TagKeyPasses(int col, int key);

}  // namespace tavrin
