#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Files.h"
#include "platform/RuntimeError.h"

namespace tavrin {

/// The real files, each operation of which can be made to fail: the error number is thrown for every path that ends
/// in the text given with it.
class FaultyFiles : public Files {
 public:
  explicit FaultyFiles(Files& real) : real_(real) {}

  struct Fault {
    std::string pathEnd;
    ErrorNumber number;
  };
  std::optional<Fault> reading;
  std::optional<Fault> creating;
  std::optional<Fault> appending;
  std::optional<Fault> removing;
  std::optional<Fault> looking;
  std::optional<Fault> listing;
  /// Bytes that a created file takes before writing fails as a full disk does.
  std::optional<std::size_t> room;

  std::optional<FileStatus> Status(std::string_view path) override {
    Check(looking, path);
    return real_.Status(path);
  }
  std::string ReadAll(std::string_view path) override {
    Check(reading, path);
    return real_.ReadAll(path);
  }
  std::unique_ptr<InputFile> Open(std::string_view path) override {
    Check(reading, path);
    return real_.Open(path);
  }
  std::unique_ptr<OutputFile> Create(std::string_view path) override {
    Check(creating, path);
    return std::make_unique<LimitedFile>(real_.Create(path), room);
  }
  void Append(std::string_view path, std::string_view bytes) override {
    Check(appending, path);
    real_.Append(path, bytes);
  }
  void ReplaceTail(std::string_view path, std::uint64_t offset, std::string_view bytes) override {
    Check(appending, path);
    real_.ReplaceTail(path, offset, bytes);
  }
  void Remove(std::string_view path) override {
    Check(removing, path);
    real_.Remove(path);
  }
  std::vector<std::string> List(std::string_view directory) override {
    Check(listing, directory);
    return real_.List(directory);
  }
  std::string SystemDirectory() override {
    Check(listing, {});
    return real_.SystemDirectory();
  }

 private:
  class LimitedFile : public OutputFile {
   public:
    LimitedFile(std::unique_ptr<OutputFile> real, std::optional<std::size_t> room)
        : real_(std::move(real)), room_(room) {}
    void Write(std::string_view bytes) override {
      const std::string_view fits = bytes.substr(0, room_.value_or(bytes.size()));
      real_->Write(fits);
      if (room_) *room_ -= fits.size();
      if (fits.size() < bytes.size()) throw RuntimeError(ErrorNumber::DiskFull);
    }

   private:
    std::unique_ptr<OutputFile> real_;
    std::optional<std::size_t> room_;
  };

  static void Check(const std::optional<Fault>& fault, std::string_view path) {
    if (!fault || path.size() < fault->pathEnd.size()) return;
    if (path.substr(path.size() - fault->pathEnd.size()) == fault->pathEnd) throw RuntimeError(fault->number);
  }

  Files& real_;
};

}  // namespace tavrin
