#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Files.h"
#include "platform/ProfileFiles.h"
#include "platform/profile/ProfileImage.h"

namespace tavrin {

/// Files together with the four profile operations for a system that has none: one view of the disk, in which each
/// operation sees what the one before it did.
///
/// The INI file used last is kept in memory, so that a project is read and parsed once and not once per key. Changes
/// are collected there and written out, from the first changed byte on, when a plain operation meets the file (also
/// under another case of its name), when another INI file is asked for, by WriteString with only a file, and by the
/// destructor. Before each use the copy is compared with the file's stamp: a change made by others is seen by the
/// next call, as exactly as the disk keeps time, and takes the place of changes that were not yet written out.
///
/// When writing out fails, the copy is dropped and the disk is left as it is; nobody is told, except by WriteString
/// with only a file. What can be known before is told at once: WriteString opens the file before the first change.
class ProfiledFiles : public Files, public ProfileFiles {
 public:
  /// `files` must live longer than this object.
  explicit ProfiledFiles(Files& files) : files_(files) {}
  ProfiledFiles(const ProfiledFiles&) = delete;
  ProfiledFiles& operator=(const ProfiledFiles&) = delete;
  ~ProfiledFiles() override;

  [[nodiscard]] std::optional<FileStatus> Status(std::string_view path) override;
  [[nodiscard]] std::string ReadAll(std::string_view path) override;
  [[nodiscard]] std::unique_ptr<InputFile> Open(std::string_view path) override;
  [[nodiscard]] std::unique_ptr<OutputFile> Create(std::string_view path) override;
  void Append(std::string_view path, std::string_view bytes) override;
  void ReplaceTail(std::string_view path, std::uint64_t offset, std::string_view bytes) override;
  void Remove(std::string_view path) override;
  [[nodiscard]] std::vector<std::string> List(std::string_view directory) override;
  [[nodiscard]] std::string SystemDirectory() override;

  [[nodiscard]] std::size_t GetString(OptionalText section, OptionalText key, OptionalText fallback,
                                      std::span<char> buffer, std::string_view file) override;
  [[nodiscard]] std::size_t GetSectionNames(std::span<char> buffer, std::string_view file) override;
  [[nodiscard]] std::size_t GetSection(OptionalText section, std::span<char> buffer, std::string_view file) override;
  ProfileError WriteString(OptionalText section, OptionalText key, OptionalText value, std::string_view file) override;

  /// How often WriteString or a later write-out has failed. Writers ignore the single result; who wants to know
  /// whether all of a save has reached the disk asks here.
  [[nodiscard]] std::size_t FailedWrites() const override { return failedWrites_; }

 private:
  /// The INI file that is kept.
  struct Copy {
    std::string path;
    std::optional<FileStamp> stamp;  ///< of the file that the image stands for; nothing when there is none
    bool readable = true;            ///< false: there is something, but it cannot be read; the image is empty
    ProfileImage image;
  };

  /// The copy of a file, made or renewed when it does not stand for the file as it is now.
  Copy& Current(std::string_view file);
  Copy& Load(std::string_view file);
  [[nodiscard]] std::optional<FileStamp> StampOf(std::string_view path);
  /// True when the copy stands for the file as it is now.
  [[nodiscard]] bool IsCurrent();
  /// Takes the stamp behind an own change; drops the copy when the file is not as long as it should be.
  void TakeStamp();
  /// The copy of a file that can be changed: the file is opened for writing, and made when it is missing.
  /// @throws RuntimeError when that is not possible
  Copy& OpenForChange(std::string_view file);
  /// Writes what is held back. @return why it failed; the copy is dropped then
  ProfileError WriteOut();
  /// Before a plain operation on a path: writes out when it may be the kept file.
  /// @return true when it is the kept file and the copy is still there
  bool Meet(std::string_view path);
  void MeetAndForget(std::string_view path);

  Files& files_;
  std::optional<Copy> copy_;
  std::size_t failedWrites_ = 0;
};

}  // namespace tavrin
