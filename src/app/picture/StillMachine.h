#pragma once

#include <algorithm>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/FileProperties.h"
#include "platform/Files.h"
#include "platform/headless/HeadlessSurroundings.h"

namespace tavrin {

/// The real files, told in the order of their names: a disk has an order of its own.
class StillFiles : public Files {
 public:
  explicit StillFiles(Files& real) : real_(real) {}
  [[nodiscard]] std::optional<FileStatus> Status(std::string_view path) override { return real_.Status(path); }
  [[nodiscard]] std::string ReadAll(std::string_view path) override { return real_.ReadAll(path); }
  [[nodiscard]] std::unique_ptr<InputFile> Open(std::string_view path) override { return real_.Open(path); }
  [[nodiscard]] std::unique_ptr<OutputFile> Create(std::string_view path) override { return real_.Create(path); }
  void Append(std::string_view path, std::string_view bytes) override { real_.Append(path, bytes); }
  void ReplaceTail(std::string_view path, std::uint64_t offset, std::string_view bytes) override {
    real_.ReplaceTail(path, offset, bytes);
  }
  void Remove(std::string_view path) override { real_.Remove(path); }
  [[nodiscard]] std::vector<std::string> List(std::string_view directory) override {
    auto names = real_.List(directory);
    std::sort(names.begin(), names.end());
    return names;
  }
  [[nodiscard]] std::string SystemDirectory() override { return real_.SystemDirectory(); }

 private:
  Files& real_;
};

/// The real properties of files, but all made at the same moment.
class StillProperties : public FileProperties {
 public:
  explicit StillProperties(FileProperties& real) : real_(real) {}
  [[nodiscard]] std::optional<FileRecord> Find(std::string_view path) override {
    auto record = real_.Find(path);
    if (record) record->creation = Join({2026, 11, 20, 9, 30, 0, 0});
    return record;
  }
  bool SetTime(std::string_view, FileTime, UtcTime) override { return false; }
  bool SetAttributes(std::string_view, std::uint32_t) override { return false; }
  [[nodiscard]] std::string ShortPath(std::string_view path) override { return std::string(path); }
  [[nodiscard]] std::string TypeName(std::string_view) override { return {}; }

 private:
  FileProperties& real_;
};

/// A clock that stands, numbers as the language of the picture writes them.
class StillRegional : public FixedRegional {
 public:
  explicit StillRegional(bool german);

  [[nodiscard]] std::string ShortDate(const DateTime& date) override {
    return german_ ? FixedRegional::ShortDate(date) : EnglishDate(date);
  }
  [[nodiscard]] std::string DecimalSeparator() override { return german_ ? "," : "."; }
  [[nodiscard]] std::string GroupSeparator() override { return german_ ? "." : ","; }

 private:
  [[nodiscard]] static std::string EnglishDate(const DateTime& date);

  bool german_;
};

}  // namespace tavrin
