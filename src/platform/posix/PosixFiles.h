#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Files.h"
#include "platform/posix/PosixPath.h"

namespace tavrin {

/// Makes a write beyond the process's file size limit an error (61) instead of the end of the process. For the mains.
void IgnoreFileSizeSignal();

/// The files of a POSIX system. Names on the disk are UTF-8. Only regular files are touched: a FIFO, device, socket
/// or directory is error 75 at once, it is never opened for good, waited for or removed. A file without the right to
/// write is not removed either (75), although its directory would allow it: who took the right away wants it kept. That
/// holds for the superuser too where nobody has the right. In a directory that everybody may write to, only files of
/// the user's own are written (SharedFolder.h); any other is 75.
class PosixFiles : public Files {
 public:
  [[nodiscard]] std::optional<FileStatus> Status(std::string_view path) override;
  /// @throws RuntimeError 7 also for a file that memory cannot hold
  [[nodiscard]] std::string ReadAll(std::string_view path) override;
  [[nodiscard]] std::unique_ptr<InputFile> Open(std::string_view path) override;
  [[nodiscard]] std::unique_ptr<OutputFile> Create(std::string_view path) override;
  void Append(std::string_view path, std::string_view bytes) override;
  /// @throws RuntimeError 5 also when `offset` is behind the end of the file
  void ReplaceTail(std::string_view path, std::uint64_t offset, std::string_view bytes) override;
  void Remove(std::string_view path) override;
  [[nodiscard]] std::vector<std::string> List(std::string_view directory) override;
  [[nodiscard]] std::string SystemDirectory() override;

 private:
  PosixPathFinder finder_;
};

}  // namespace tavrin
