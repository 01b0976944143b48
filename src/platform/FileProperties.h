#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/DateTime.h"

namespace tavrin {

/// Bits of a file's attribute word.
enum FileAttribute : std::uint32_t {
  kReadOnly = 0x01,
  kHidden = 0x02,
  kSystem = 0x04,
  kDirectory = 0x10,
  kArchive = 0x20,
  kNormal = 0x80,
  kTemporary = 0x100,
  kCompressed = 0x800,
};

/// What a search in a directory tells about one entry.
struct FileRecord {
  std::string name;           ///< in the file system's own spelling
  std::string alternateName;  ///< short name of eight and three characters; empty where there is none
  std::uint32_t attributes = 0;
  std::uint64_t size = 0;            ///< bytes
  std::uint64_t compressedSize = 0;  ///< bytes on the disk of a compressed file, else `size`
  UtcTime creation;
  UtcTime lastAccess;
  UtcTime modification;
};

enum class FileTime { Creation, LastAccess, Modification };

/// Properties of files beyond their content. Paths as in Files.
class FileProperties {
 public:
  FileProperties() = default;
  FileProperties(const FileProperties&) = delete;
  FileProperties& operator=(const FileProperties&) = delete;
  virtual ~FileProperties() = default;

  /// Nothing when there is no such entry. Follows the rule of Files for the case of the last piece and also for the
  /// pieces before it.
  [[nodiscard]] virtual std::optional<FileRecord> Find(std::string_view path) = 0;
  /// @return false when the system refuses, or keeps no such time
  virtual bool SetTime(std::string_view path, FileTime which, UtcTime time) = 0;
  /// @return false when the system refuses; bits that it does not keep are no refusal
  virtual bool SetAttributes(std::string_view path, std::uint32_t attributes) = 0;
  /// The path with the short form of each piece. Empty when there is no such entry.
  [[nodiscard]] virtual std::string ShortPath(std::string_view path) = 0;
  /// What the desktop calls this kind of file; empty when it does not know.
  [[nodiscard]] virtual std::string TypeName(std::string_view path) = 0;
};

}  // namespace tavrin
