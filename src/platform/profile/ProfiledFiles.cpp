#include "platform/profile/ProfiledFiles.h"

#include <utility>

#include "platform/CodePage.h"
#include "platform/RuntimeError.h"
#include "platform/profile/ProfileAnswer.h"

namespace tavrin {
namespace {

ProfileError ErrorOf(const RuntimeError& error) {
  switch (error.Number()) {
    case ErrorNumber::FileNotFound: return ProfileError::FileNotFound;
    case ErrorNumber::PathNotFound: return ProfileError::PathNotFound;
    default: return ProfileError::AccessDenied;
  }
}

/// True when the two stamps may differ by the file's attributes, but not by its content.
bool SameContent(const std::optional<FileStamp>& left, const std::optional<FileStamp>& right) {
  if (!left || !right) return !left && !right;
  return left->size == right->size && left->modified == right->modified && left->disk == right->disk &&
         left->identity == right->identity;
}

}  // namespace

ProfiledFiles::~ProfiledFiles() {
  try {
    WriteOut();
  } catch (...) {  // NOLINT(bugprone-empty-catch): there is nobody left to tell
  }
}

std::optional<FileStatus> ProfiledFiles::Status(std::string_view path) {
  Meet(path);
  return files_.Status(path);
}

std::string ProfiledFiles::ReadAll(std::string_view path) {
  Meet(path);
  return files_.ReadAll(path);
}

std::unique_ptr<InputFile> ProfiledFiles::Open(std::string_view path) {
  Meet(path);
  return files_.Open(path);
}

std::unique_ptr<OutputFile> ProfiledFiles::Create(std::string_view path) {
  MeetAndForget(path);
  return files_.Create(path);
}

void ProfiledFiles::Append(std::string_view path, std::string_view bytes) {
  // A writer that adds plain lines between its sections must not make the next section read the file again.
  if (!Meet(path) || copy_->path != path || !IsCurrent()) {
    MeetAndForget(path);
    files_.Append(path, bytes);
    return;
  }
  files_.Append(path, bytes);
  copy_->image.Append(bytes);
  copy_->image.MarkWritten();
  TakeStamp();
}

void ProfiledFiles::ReplaceTail(std::string_view path, std::uint64_t offset, std::string_view bytes) {
  MeetAndForget(path);
  files_.ReplaceTail(path, offset, bytes);
}

void ProfiledFiles::Remove(std::string_view path) {
  MeetAndForget(path);
  files_.Remove(path);
}

// A file with changes held back is in its directory already: it is made before the first of them.
std::vector<std::string> ProfiledFiles::List(std::string_view directory) { return files_.List(directory); }

std::string ProfiledFiles::SystemDirectory() { return files_.SystemDirectory(); }

std::size_t ProfiledFiles::GetString(OptionalText section, OptionalText key, OptionalText fallback,
                                     std::span<char> buffer, std::string_view file) {
  const ProfileImage& image = Current(file).image;
  if (!section) return AnswerSectionNames(image, buffer);
  if (!key) return AnswerKeys(image, *section, fallback.value_or(""), buffer);
  return AnswerValue(image, *section, *key, fallback.value_or(""), buffer);
}

std::size_t ProfiledFiles::GetSectionNames(std::span<char> buffer, std::string_view file) {
  return AnswerSectionNames(Current(file).image, buffer);
}

std::size_t ProfiledFiles::GetSection(OptionalText section, std::span<char> buffer, std::string_view file) {
  if (!section) return AnswerSection(ProfileImage(), {}, buffer);
  return AnswerSection(Current(file).image, *section, buffer);
}

ProfileError ProfiledFiles::WriteString(OptionalText section, OptionalText key, OptionalText value,
                                        std::string_view file) {
  if (!section) return key ? ProfileError::FileNotFound : WriteOut();
  try {
    ProfileImage& image = OpenForChange(file).image;
    if (!key) {
      image.RemoveSection(*section);
    } else if (!value) {
      image.RemoveKey(*section, *key);
    } else {
      image.Set(*section, *key, *value);
    }
    return ProfileError::None;
  } catch (const RuntimeError& error) {
    ++failedWrites_;
    return ErrorOf(error);
  }
}

ProfiledFiles::Copy& ProfiledFiles::Current(std::string_view file) {
  if (copy_ && copy_->path == file && copy_->image.FitsCodePage()) {
    const std::optional<FileStamp> stamp = StampOf(file);
    const bool unwritten = copy_->image.ChangedFrom().has_value();
    if (stamp == copy_->stamp || (unwritten && SameContent(stamp, copy_->stamp))) return *copy_;
  } else {
    WriteOut();
  }
  return Load(file);
}

ProfiledFiles::Copy& ProfiledFiles::Load(std::string_view file) {
  copy_.reset();  // first, so that two large files are never in memory together
  // The stamp from before reading: if somebody changes the file meanwhile, the next use sees it.
  const std::optional<FileStatus> status = files_.Status(file);
  Copy copy{std::string(file), std::nullopt, !status || !status->directory, ProfileImage()};
  if (status) copy.stamp = status->stamp;
  try {
    if (status && copy.readable) copy.image = ProfileImage(files_.ReadAll(file));
  } catch (const RuntimeError&) {
    copy.readable = false;
  }
  return copy_.emplace(std::move(copy));
}

std::optional<FileStamp> ProfiledFiles::StampOf(std::string_view path) {
  const std::optional<FileStatus> status = files_.Status(path);
  if (!status) return std::nullopt;
  return status->stamp;
}

bool ProfiledFiles::IsCurrent() { return StampOf(copy_->path) == copy_->stamp; }

void ProfiledFiles::TakeStamp() {
  copy_->stamp = StampOf(copy_->path);
  if (!copy_->stamp || copy_->stamp->size != copy_->image.Bytes().size()) copy_.reset();
}

ProfiledFiles::Copy& ProfiledFiles::OpenForChange(std::string_view file) {
  Copy& copy = Current(file);
  if (!copy.readable) throw RuntimeError(ErrorNumber::PathFileAccess);
  if (copy.image.ChangedFrom()) return copy;
  files_.Append(file, {});
  TakeStamp();
  if (copy_) return *copy_;
  Copy& renewed = Load(file);  // somebody has changed the file in this moment
  if (!renewed.readable) throw RuntimeError(ErrorNumber::PathFileAccess);
  return renewed;
}

ProfileError ProfiledFiles::WriteOut() {
  if (!copy_ || !copy_->image.ChangedFrom()) return ProfileError::None;
  try {
    const std::size_t from = *copy_->image.ChangedFrom();
    // The changed end of the copy must not be put behind a beginning that somebody else has changed.
    if (!SameContent(StampOf(copy_->path), copy_->stamp)) throw RuntimeError(ErrorNumber::PermissionDenied);
    files_.ReplaceTail(copy_->path, from, copy_->image.Bytes().substr(from));
    copy_->image.MarkWritten();
    TakeStamp();
    return ProfileError::None;
  } catch (const RuntimeError& error) {
    copy_.reset();
    ++failedWrites_;
    return ErrorOf(error);
  }
}

bool ProfiledFiles::Meet(std::string_view path) {
  if (!copy_ || !EqualIgnoringCase(copy_->path, path)) return false;
  WriteOut();
  return copy_.has_value();
}

void ProfiledFiles::MeetAndForget(std::string_view path) {
  if (Meet(path)) copy_.reset();
}

}  // namespace tavrin
