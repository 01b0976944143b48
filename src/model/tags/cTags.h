#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "model/shared/OwnedIterator.h"
#include "model/tags/NameIndex.h"
#include "model/tags/cTag.h"

namespace tavrin {

class Grid;
class OutputFile;

/// The tags of one device in the order of their file, and that file's reader and writer.
///
/// A tag's key is the name under which it was added. In a key the case of A to Z counts, that of all other letters
/// does not. A later change of the tag's name does not change its key: until the project is read again, Tag() finds it
/// under the old name and Remove() under the new one.
class cTags {
 public:
  cTags() = default;
  cTags(const cTags&) = delete;
  cTags& operator=(const cTags&) = delete;

  /// The tag file, without directory. An empty name is refused by a message box.
  [[nodiscard]] const std::string& szFileName() const { return szFileName_; }
  void szFileName(std::string_view value);

  /// The tag that was added under the name; an unknown one is told by the error report and gives nullptr.
  [[nodiscard]] cTag* Tag(std::string_view szName);
  [[nodiscard]] std::int32_t Count() const { return static_cast<std::int32_t>(tags_.size()); }
  /// True when the quality of every tag is good (192), so also for an empty list.
  [[nodiscard]] bool QualityOK() const;
  /// True when any tag differs from the file.
  [[nodiscard]] bool AnyDirty() const;
  /// True when no tag has the name now; without regard to blanks around it and case unless the project's
  /// nCaseSensitive is 1.
  [[nodiscard]] bool CheckUniqueTag(std::string_view szName) const;

  /// Removes the first tag that has exactly this name now; none is no error.
  void Remove(const std::string& szName) { Remove(std::span(&szName, 1)); }
  /// The same for each of the names, in one pass over the tags.
  void Remove(std::span<const std::string> names);
  /// Adds a tag at the end. False when its key is taken (silently) or on an error (told); the tag is then gone.
  bool AddItem(std::unique_ptr<cTag> tag);

  /// Reads the tag file. Bad lines become read warnings; most of them still give a tag.
  /// @param nDeviceType 0 MPI, 1 H1, 2 ISO, 3 Read/Write, 4 IPK @param nPLCType 1 S7, 2 S5, 3 ZELKAR IEC1131
  void Refresh(std::int32_t nDeviceType, std::int32_t nPLCType);
  /// Writes the tag file anew and clears the marks of the tags written. A failure leaves a partial file and the marks
  /// of the tags that did not reach it. @return false after an error, which was told
  bool Update();

  /// Fills the tag grid: a row a tag behind the heading, and an empty one for a new tag. The widths of the columns
  /// follow the type of the device; any other type than 0 to 4 sets none and adds no tag.
  void Show(Grid& grid, std::int32_t nDeviceType) const;

  [[nodiscard]] OwnedIterator<cTag> begin() const { return OwnedIterator<cTag>(tags_.begin()); }
  [[nodiscard]] OwnedIterator<cTag> end() const { return OwnedIterator<cTag>(tags_.end()); }

 private:
  friend class TagFileReader;

  [[nodiscard]] std::string szFullName() const;
  [[nodiscard]] std::uint32_t Find(std::string_view szName);
  /// Adds a tag whose key is known to be new.
  void Append(std::unique_ptr<cTag> tag);
  void WriteTags(OutputFile& file);

  std::string szFileName_;
  std::vector<std::unique_ptr<cTag>> tags_;
  NameIndex keys_;         // of tags_; only true while keysStale_ is false
  bool keysStale_ = true;  // built again when next needed
  NameFold keyFold_{};
};

}  // namespace tavrin
