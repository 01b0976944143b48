#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string_view>

namespace tavrin {

/// Results of ProfileFiles::WriteString: the error numbers of the platform.
enum class ProfileError : int {
  None = 0,
  FileNotFound = 2,
  PathNotFound = 3,
  AccessDenied = 5,
};

/// The four profile operations of the platform: all access to INI files. Text is bytes of the code page; section and
/// key names are found without regard to case; of two sections or keys of one name the first counts. Lines end at
/// CR LF, LF or CR. A change made by anybody is seen by the next call.
/// Source: GetPrivateProfileStringA, GetPrivateProfileSectionNamesA, GetPrivateProfileSectionA and
/// WritePrivateProfileStringA of Windows NT.
class ProfileFiles {
 public:
  /// A text argument that may be left out (the platform's NULL pointer).
  using OptionalText = std::optional<std::string_view>;

  ProfileFiles() = default;
  ProfileFiles(const ProfileFiles&) = delete;
  ProfileFiles& operator=(const ProfileFiles&) = delete;
  virtual ~ProfileFiles() = default;

  /// Copies a value, or `fallback` without its trailing spaces when file, section or key is missing, cut to the
  /// buffer's size less one and followed by one NUL; bytes behind it stay as they were. A value in matching quotes
  /// loses them. Without `key` the buffer gets the list of the section's keys, without `section` the list of
  /// sections, in the form of GetSectionNames.
  /// @return bytes copied without the closing NUL
  [[nodiscard]] virtual std::size_t GetString(OptionalText section, OptionalText key, OptionalText fallback,
                                              std::span<char> buffer, std::string_view file) = 0;

  /// Copies all section names in file order, duplicates too, each ended by NUL, the list by one more. A list that
  /// does not fit is cut to the buffer's size less two and ended by two NULs.
  /// @return bytes copied without the last closing NUL
  [[nodiscard]] virtual std::size_t GetSectionNames(std::span<char> buffer, std::string_view file) = 0;

  /// Copies the lines of a section without comments and empty lines, in the form of GetSectionNames.
  /// @return bytes copied without the last closing NUL
  [[nodiscard]] virtual std::size_t GetSection(OptionalText section, std::span<char> buffer, std::string_view file) = 0;

  /// Changes a value, or adds it directly behind the last key of its section, or adds section and key at the end of
  /// the file, which is made when it is missing. Without `value` the key is removed, without `key` the section. All
  /// other bytes of the file stay as they are. Nothing given but `file` writes out what is still held in memory.
  virtual ProfileError WriteString(OptionalText section, OptionalText key, OptionalText value,
                                   std::string_view file) = 0;

  /// How many changes have not reached the disk so far, also such as were only held in memory at their call.
  [[nodiscard]] virtual std::size_t FailedWrites() const { return 0; }
};

}  // namespace tavrin
