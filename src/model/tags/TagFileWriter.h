#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "platform/Files.h"

namespace tavrin {

class cTag;

/// Writes tags as the lines of a tag file, in large blocks. A tag's dirty mark goes when its line has reached the
/// file: after a failure the rest is still asked for when the program ends.
class TagFileWriter {
 public:
  /// @param upperCaseNames as the project's nSaveTagsUppercase says
  TagFileWriter(OutputFile& file, bool upperCaseNames);

  /// @throws RuntimeError as OutputFile::Write, also for tags added before
  void Add(cTag& tag);
  /// To be called behind the last tag.
  void Finish();

 private:
  OutputFile& file_;
  bool upperCaseNames_;
  std::string block_;
  std::vector<cTag*> dirty_;  // marked tags whose lines lie in the block
};

}  // namespace tavrin
