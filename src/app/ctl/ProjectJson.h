#pragma once

#include <cstdio>
#include <string>
#include <vector>

namespace tavrin {

/// What came of a load or a save.
struct Outcome {
  bool bOK = true;
  std::vector<std::string> boxes;  ///< texts of the message boxes, in order
};

/// Prints the open project and what its load has told as one JSON document (UTF-8). Written as a stream: a project of
/// a million tags is not built up in memory once more.
void PrintLoadedProject(const Outcome& outcome, std::FILE* to);

/// Prints what a save has told as one JSON document (UTF-8).
void PrintSaved(const Outcome& outcome, std::FILE* to);

}  // namespace tavrin
