#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "platform/profile/ProfileLine.h"
#include "platform/profile/SectionTable.h"

namespace tavrin {

/// The content of an INI file in memory, with its sections at hand. It is edited in place: every byte that an edit is
/// not about stays, and what the image finds afterwards is what a new image of the same bytes would find.
///
/// A section is found at once, a key by walking its section. Letters are compared without regard to case by the code
/// page that was in use when the image was made, those outside ASCII too: the platform documents no exception.
class ProfileImage {
 public:
  /// @throws RuntimeError 7 when there are more than SectionTable::kMaxBytes
  explicit ProfileImage(std::string bytes = {});

  [[nodiscard]] std::string_view Bytes() const { return bytes_; }
  /// Offset of the first byte that differs from what was last marked as written; nothing when none does.
  [[nodiscard]] std::optional<std::size_t> ChangedFrom() const { return changedFrom_; }
  void MarkWritten() { changedFrom_.reset(); }
  /// True while the code page in use compares names like the one the image was made with.
  [[nodiscard]] bool FitsCodePage() const;

  [[nodiscard]] std::size_t SectionCount() const { return sections_.Count(); }
  [[nodiscard]] std::string_view SectionName(std::size_t section) const;
  /// The first section of the name. Spaces around the name are ignored here and in all functions below.
  [[nodiscard]] std::optional<std::size_t> FindSection(std::string_view name) const;
  /// The lines of a section behind its header.
  [[nodiscard]] ProfileLineReader Lines(std::size_t section) const;
  /// The line of the first key of the name.
  [[nodiscard]] std::optional<ProfileLine> FindKey(std::size_t section, std::string_view key) const;

  /// Puts the value, byte for byte, behind the equal sign of an existing key; else adds a line directly behind the
  /// last key of the section (or its header), before comments, empty lines and lines without equal sign; else adds
  /// section and key at the end. New lines, and the last one if it was not ended, end in CR LF; the rest keep their
  /// line ends.
  void Set(std::string_view section, std::string_view key, std::string_view value);
  /// Removes the line of a key, if there is one; its header stays.
  void RemoveKey(std::string_view section, std::string_view key);
  /// Removes the first section of the name, if there is one. Its comments and empty lines stay where they are.
  void RemoveSection(std::string_view section);
  /// Adds bytes at the end.
  void Append(std::string_view bytes) { Splice(bytes_.size(), 0, bytes); }

 private:
  /// Puts `inserted` in the place of `removed` bytes.
  void Splice(std::size_t at, std::size_t removed, std::string_view inserted);
  /// Line end that is still missing before a new line can begin at the offset.
  [[nodiscard]] std::string_view MissingLineEnd(std::size_t at) const;
  [[nodiscard]] std::size_t EndOfKeys(std::size_t section) const;

  std::string bytes_;
  SectionTable sections_;
  std::optional<std::size_t> changedFrom_;
};

}  // namespace tavrin
