#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tavrin {

/// Separator between a directory and a name in every path of this system.
inline constexpr char kPathSeparator = '/';

/// Tells one content of a file from a later one: any change of the file changes the stamp.
struct FileStamp {
  std::uint64_t size = 0;          ///< bytes
  std::int64_t modified = 0;       ///< last change, nanoseconds since 1970 UTC
  std::int64_t statusChanged = 0;  ///< last change of content or attributes, nanoseconds since 1970 UTC
  std::uint64_t disk = 0;          ///< number of the disk
  std::uint64_t identity = 0;      ///< number of the file on its disk

  friend bool operator==(const FileStamp&, const FileStamp&) = default;
};

/// What the system tells about a path without opening it.
struct FileStatus {
  bool directory = false;
  FileStamp stamp;
};

/// A file that is being written. Closed by its destructor, which ignores errors.
class OutputFile {
 public:
  OutputFile() = default;
  OutputFile(const OutputFile&) = delete;
  OutputFile& operator=(const OutputFile&) = delete;
  virtual ~OutputFile() = default;

  /// Hands all bytes to the system before it returns.
  /// @throws RuntimeError 61 when there is no room (disk, quota or size limit), 57 or 75 for other failures; a part
  ///         of the bytes may then have been written.
  virtual void Write(std::string_view bytes) = 0;
};

/// A file that is open for reading, as it was when it was opened.
class InputFile {
 public:
  InputFile() = default;
  InputFile(const InputFile&) = delete;
  InputFile& operator=(const InputFile&) = delete;
  virtual ~InputFile() = default;

  /// Bytes.
  [[nodiscard]] virtual std::uint64_t Size() const = 0;

  /// At most `count` bytes from `offset` on; fewer at the end of the file, none behind it.
  /// @throws RuntimeError 57 for a fault of the device
  [[nodiscard]] virtual std::string Read(std::uint64_t offset, std::size_t count) = 0;
};

/// Plain files. Paths are in the code page with kPathSeparator between the pieces. A last piece that does not exist
/// in exactly this spelling stands for the entry of the same directory that differs only in case, if there is one:
/// projects come from a system that does not distinguish it. A file that is made new gets the spelling of the call;
/// after Remove, nothing stands for the path until it is made new.
///
/// Failures are RuntimeError: 53 no such file, 75 not accessible (no right, read-only, a directory or a device in
/// place of a file), 76 no such directory, 61 no room, 67 too many open files, 57 any other fault of the device.
class Files {
 public:
  Files() = default;
  Files(const Files&) = delete;
  Files& operator=(const Files&) = delete;
  virtual ~Files() = default;

  /// Nothing when there is no such path or it cannot be looked at.
  [[nodiscard]] virtual std::optional<FileStatus> Status(std::string_view path) = 0;

  /// The whole content. Never blocks: only regular files can be read.
  [[nodiscard]] virtual std::string ReadAll(std::string_view path) = 0;

  /// Opens for reading piece by piece, for files that are too large to be read whole. Only regular files.
  [[nodiscard]] virtual std::unique_ptr<InputFile> Open(std::string_view path) = 0;

  /// Opens for writing; an existing file is emptied.
  [[nodiscard]] virtual std::unique_ptr<OutputFile> Create(std::string_view path) = 0;

  /// Adds bytes at the end; makes the file when it is missing.
  virtual void Append(std::string_view path, std::string_view bytes) = 0;

  /// Makes the file's content from `offset` on exactly `bytes`; makes the file when it is missing. `offset` is at
  /// most the file's size.
  virtual void ReplaceTail(std::string_view path, std::uint64_t offset, std::string_view bytes) = 0;

  virtual void Remove(std::string_view path) = 0;

  /// The names of a directory's entries but "." and "..", directories among them, in the order of the file system.
  /// Empty when it cannot be listed. An entry that the code page cannot spell is left out: no path leads to it.
  [[nodiscard]] virtual std::vector<std::string> List(std::string_view directory) = 0;

  /// Where the programs of the system lie, without a trailing separator.
  [[nodiscard]] virtual std::string SystemDirectory() = 0;
};

}  // namespace tavrin
