#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "platform/Files.h"
#include "platform/RuntimeError.h"

namespace tavrin {

/// Hands all operations on, counts them and the bytes they move, and can refuse to change anything.
class RecordingFiles : public Files {
 public:
  explicit RecordingFiles(Files& files) : files_(files) {}

  [[nodiscard]] std::optional<FileStatus> Status(std::string_view path) override;
  [[nodiscard]] std::string ReadAll(std::string_view path) override;
  [[nodiscard]] std::unique_ptr<InputFile> Open(std::string_view path) override { return files_.Open(path); }
  [[nodiscard]] std::unique_ptr<OutputFile> Create(std::string_view path) override;
  void Append(std::string_view path, std::string_view bytes) override;
  void ReplaceTail(std::string_view path, std::uint64_t offset, std::string_view bytes) override;
  void Remove(std::string_view path) override;
  [[nodiscard]] std::vector<std::string> List(std::string_view directory) override;
  [[nodiscard]] std::string SystemDirectory() override;

  /// How often an operation was called, by its name. An Append of nothing counts as "Open".
  [[nodiscard]] int Calls(const std::string& operation) const;
  void ForgetCalls();

  /// Error of every operation that changes a file; nothing lets them pass.
  std::optional<ErrorNumber> refuse;
  /// Error of ReplaceTail alone.
  std::optional<ErrorNumber> refuseReplace;

  std::uint64_t bytesRead = 0;
  std::uint64_t bytesWritten = 0;

 private:
  void Change(const char* operation, std::string_view bytes);

  Files& files_;
  std::map<std::string, int> calls_;
};

}  // namespace tavrin
