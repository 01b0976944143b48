#include "platform/RecordingFiles.h"

namespace tavrin {

std::optional<FileStatus> RecordingFiles::Status(std::string_view path) {
  ++calls_["Status"];
  return files_.Status(path);
}

std::string RecordingFiles::ReadAll(std::string_view path) {
  ++calls_["ReadAll"];
  std::string bytes = files_.ReadAll(path);
  bytesRead += bytes.size();
  return bytes;
}

std::unique_ptr<OutputFile> RecordingFiles::Create(std::string_view path) {
  Change("Create", {});
  return files_.Create(path);
}

void RecordingFiles::Append(std::string_view path, std::string_view bytes) {
  Change(bytes.empty() ? "Open" : "Append", bytes);
  files_.Append(path, bytes);
}

void RecordingFiles::ReplaceTail(std::string_view path, std::uint64_t offset, std::string_view bytes) {
  if (refuseReplace) throw RuntimeError(*refuseReplace);
  Change("ReplaceTail", bytes);
  files_.ReplaceTail(path, offset, bytes);
}

void RecordingFiles::Remove(std::string_view path) {
  Change("Remove", {});
  files_.Remove(path);
}

std::vector<std::string> RecordingFiles::List(std::string_view directory) {
  ++calls_["List"];
  return files_.List(directory);
}

std::string RecordingFiles::SystemDirectory() { return files_.SystemDirectory(); }

int RecordingFiles::Calls(const std::string& operation) const {
  const auto found = calls_.find(operation);
  return found == calls_.end() ? 0 : found->second;
}

void RecordingFiles::ForgetCalls() {
  calls_.clear();
  bytesRead = bytesWritten = 0;
}

void RecordingFiles::Change(const char* operation, std::string_view bytes) {
  ++calls_[operation];
  if (refuse) throw RuntimeError(*refuse);
  bytesWritten += bytes.size();
}

}  // namespace tavrin
