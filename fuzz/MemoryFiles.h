#pragma once

#include <algorithm>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/CodePage.h"
#include "platform/Files.h"
#include "platform/RuntimeError.h"

namespace tavrin {

/// One directory of files in memory.
class MemoryFiles : public Files {
 public:
  explicit MemoryFiles(std::string directory) : directory_(std::move(directory)) {}

  [[nodiscard]] std::optional<FileStatus> Status(std::string_view path) override {
    FileStatus status;
    status.directory = path == directory_;
    if (status.directory) return status;
    const auto file = Find(path);
    if (file == files_.end()) return std::nullopt;
    status.stamp.size = file->second.bytes.size();
    status.stamp.modified = file->second.changed;
    return status;
  }

  [[nodiscard]] std::string ReadAll(std::string_view path) override { return Existing(path).bytes; }

  [[nodiscard]] std::unique_ptr<InputFile> Open(std::string_view path) override {
    return std::make_unique<Input>(Existing(path).bytes);
  }

  [[nodiscard]] std::unique_ptr<OutputFile> Create(std::string_view path) override {
    Content& content = Made(path);
    content.bytes.clear();
    return std::make_unique<Output>(*this, content);
  }

  void Append(std::string_view path, std::string_view bytes) override { Add(Made(path), bytes); }

  void ReplaceTail(std::string_view path, std::uint64_t offset, std::string_view bytes) override {
    Content& content = Made(path);
    content.bytes.resize(static_cast<std::size_t>(offset));
    Add(content, bytes);
  }

  void Remove(std::string_view path) override {
    static_cast<void>(Existing(path));
    files_.erase(Find(path));
  }

  [[nodiscard]] std::vector<std::string> List(std::string_view directory) override {
    std::vector<std::string> names;
    if (directory != directory_) return names;
    for (const auto& [path, content] : files_) names.push_back(path.substr(directory_.size()));
    return names;
  }

  [[nodiscard]] std::string SystemDirectory() override { return directory_; }

 private:
  struct Content {
    std::string bytes;
    std::int64_t changed = 0;
  };
  using Map = std::map<std::string, Content, std::less<>>;

  class Input : public InputFile {
   public:
    explicit Input(std::string bytes) : bytes_(std::move(bytes)) {}
    [[nodiscard]] std::uint64_t Size() const override { return bytes_.size(); }
    [[nodiscard]] std::string Read(std::uint64_t offset, std::size_t count) override {
      return offset < bytes_.size() ? bytes_.substr(static_cast<std::size_t>(offset), count) : std::string{};
    }

   private:
    std::string bytes_;
  };

  class Output : public OutputFile {
   public:
    Output(MemoryFiles& files, Content& content) : files_(files), content_(content) {}
    void Write(std::string_view bytes) override { files_.Add(content_, bytes); }

   private:
    MemoryFiles& files_;
    Content& content_;
  };

  void Add(Content& content, std::string_view bytes) {
    content.bytes += bytes;
    content.changed = ++changes_;
  }

  Map::iterator Find(std::string_view path) {
    const auto exact = files_.find(path);
    if (exact != files_.end()) return exact;
    return std::find_if(files_.begin(), files_.end(),
                        [&](const auto& file) { return EqualIgnoringCase(file.first, path); });
  }

  Content& Existing(std::string_view path) {
    const auto file = Find(path);
    if (file == files_.end()) throw RuntimeError(ErrorNumber::FileNotFound);
    return file->second;
  }

  Content& Made(std::string_view path) {
    if (path == directory_) throw RuntimeError(ErrorNumber::PathFileAccess);
    const auto file = Find(path);
    Content& content = file != files_.end() ? file->second : files_[std::string(path)];
    content.changed = ++changes_;
    return content;
  }

  std::string directory_;  // with a trailing separator
  Map files_;
  std::int64_t changes_ = 0;
};

}  // namespace tavrin
