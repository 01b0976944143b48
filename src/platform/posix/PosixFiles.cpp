#include "platform/posix/PosixFiles.h"

#include <cerrno>
#include <csignal>
#include <exception>
#include <utility>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/CodePage.h"
#include "platform/RuntimeError.h"
#include "platform/posix/SharedFolder.h"

namespace tavrin {
namespace {

using SystemStatus = struct stat;

constexpr mode_t kWriteBits = S_IWUSR | S_IWGRP | S_IWOTH;

/// Repeats a system call that a signal has interrupted.
template <typename Call>
auto Retried(Call call) {
  auto result = call();
  while (result < 0 && errno == EINTR) result = call();
  return result;
}

class Descriptor {
 public:
  explicit Descriptor(int number) : number_(number) {}
  Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
  Descriptor& operator=(Descriptor&&) = delete;
  ~Descriptor() {
    if (number_ >= 0) close(number_);
  }

  [[nodiscard]] int Number() const { return number_; }

 private:
  int number_;
};

ErrorNumber NumberOf(int systemError) {
  switch (systemError) {
    case ENOENT: return ErrorNumber::FileNotFound;
    case ENOTDIR: return ErrorNumber::PathNotFound;
    case EACCES:
    case EPERM:
    case EROFS:
    case EISDIR:
    case ELOOP:
    case ENAMETOOLONG:
    case ENXIO:
    case ENODEV:
    case ETXTBSY: return ErrorNumber::PathFileAccess;
    case ENOSPC:
    case EDQUOT:
    case EFBIG: return ErrorNumber::DiskFull;
    case EMFILE:
    case ENFILE: return ErrorNumber::TooManyFiles;
    default: return ErrorNumber::DeviceIoError;
  }
}

[[noreturn]] void Fail(int systemError) { throw RuntimeError(NumberOf(systemError)); }

/// Tells a missing directory (76) from a missing file (53).
[[noreturn]] void FailOn(const PosixPath& path, int systemError) {
  SystemStatus status{};
  const bool noFolder = systemError == ENOENT && stat(path.FolderToOpen().c_str(), &status) != 0;
  Fail(noFolder ? ENOTDIR : systemError);
}

SystemStatus StatusOf(const Descriptor& file) {
  SystemStatus status{};
  if (fstat(file.Number(), &status) != 0) Fail(errno);
  return status;
}

/// Bytes that are read at once of a file that has more than it said.
constexpr std::size_t kGrowth = 65536;

/// Only regular files are let through; opening does not wait for the other end of a FIFO.
constexpr int kAlways = O_NONBLOCK | O_CLOEXEC | O_NOCTTY;

Descriptor Regular(int number) {
  Descriptor file(number);
  if (!S_ISREG(StatusOf(file).st_mode)) throw RuntimeError(ErrorNumber::PathFileAccess);
  return file;
}

Descriptor OpenToRead(PosixPathFinder& finder, const PosixPath& path) {
  const int number = finder.OnExisting(path, [](const char* name) { return open(name, O_RDONLY | kAlways); });
  if (number < 0) FailOn(path, errno);
  return Regular(number);
}

/// @throws RuntimeError 7 for a size that no memory can hold; a file can claim any
void Resize(std::string& text, std::size_t size) {
  try {
    text.resize(size);
  } catch (const std::exception&) {
    throw RuntimeError(ErrorNumber::OutOfMemory);
  }
}

/// Opens without emptying: what is there must be known to be a regular file first.
Descriptor OpenToWrite(PosixPathFinder& finder, const PosixPath& path, int flags = 0) {
  const int all = O_WRONLY | kAlways | flags;
  int number = finder.OnExisting(path, [all](const char* name) { return OpenForWriting(name, all); });
  if (number < 0 && errno == ENOENT) {
    number = Retried([&] { return OpenForWriting(path.whole.c_str(), all | O_CREAT, 0666); });
    if (number < 0 && errno == ENOENT) Fail(ENOTDIR);  // a file that can be made new is only missing its directory
    if (number >= 0) finder.MarkMade(path);
  }
  if (number < 0) Fail(errno);
  return Regular(number);
}

void Truncate(const Descriptor& file, std::uint64_t size) {
  if (Retried([&] { return ftruncate(file.Number(), static_cast<off_t>(size)); }) != 0) Fail(errno);
}

void WriteAll(const Descriptor& file, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = Retried([&] { return write(file.Number(), bytes.data(), bytes.size()); });
    if (written <= 0) Fail(written < 0 ? errno : EIO);
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
}

class PosixInputFile : public InputFile {
 public:
  explicit PosixInputFile(Descriptor file)
      : file_(std::move(file)), size_(static_cast<std::uint64_t>(StatusOf(file_).st_size)) {}

  [[nodiscard]] std::uint64_t Size() const override { return size_; }

  [[nodiscard]] std::string Read(std::uint64_t offset, std::size_t count) override {
    if (offset >= size_) return {};
    std::string bytes;
    Resize(bytes, static_cast<std::size_t>(std::min<std::uint64_t>(count, size_ - offset)));
    std::size_t filled = 0;
    while (filled < bytes.size()) {
      const ssize_t got = Retried([&] {
        return pread(file_.Number(), bytes.data() + filled, bytes.size() - filled, static_cast<off_t>(offset + filled));
      });
      if (got < 0) Fail(errno);
      if (got == 0) break;  // it has been cut meanwhile
      filled += static_cast<std::size_t>(got);
    }
    bytes.resize(filled);
    return bytes;
  }

 private:
  Descriptor file_;
  std::uint64_t size_;
};

class PosixOutputFile : public OutputFile {
 public:
  explicit PosixOutputFile(Descriptor file) : file_(std::move(file)) {}
  void Write(std::string_view bytes) override { WriteAll(file_, bytes); }

 private:
  Descriptor file_;
};

/// The superuser may write any file: what tells that a file is to be kept is that nobody has the right.
bool MayGo(const char* name, const SystemStatus& status) {
  return S_ISREG(status.st_mode) && (status.st_mode & kWriteBits) != 0 &&
         faccessat(AT_FDCWD, name, W_OK, AT_EACCESS) == 0;
}

std::int64_t Nanoseconds(const timespec& time) { return std::int64_t{time.tv_sec} * 1'000'000'000 + time.tv_nsec; }

}  // namespace

void IgnoreFileSizeSignal() { std::signal(SIGXFSZ, SIG_IGN); }

std::optional<FileStatus> PosixFiles::Status(std::string_view path) {
  SystemStatus status{};
  if (finder_.OnExisting(PosixPath(path), [&status](const char* name) { return stat(name, &status); }) != 0) {
    return std::nullopt;
  }
  return FileStatus{S_ISDIR(status.st_mode),
                    {static_cast<std::uint64_t>(status.st_size), Nanoseconds(status.st_mtim),
                     Nanoseconds(status.st_ctim), static_cast<std::uint64_t>(status.st_dev),
                     static_cast<std::uint64_t>(status.st_ino)}};
}

std::string PosixFiles::ReadAll(std::string_view path) {
  const Descriptor file = OpenToRead(finder_, PosixPath(path));
  // One byte more than the file has lets the first read that reaches the end say so without a larger buffer.
  std::string content;
  Resize(content, static_cast<std::size_t>(StatusOf(file).st_size) + 1);
  std::size_t filled = 0;
  while (true) {
    const ssize_t got = Retried([&] { return read(file.Number(), content.data() + filled, content.size() - filled); });
    if (got < 0) Fail(errno);
    if (got == 0) break;
    filled += static_cast<std::size_t>(got);
    if (filled == content.size()) Resize(content, filled * 2 + kGrowth);  // it has grown meanwhile
  }
  content.resize(filled);
  return content;
}

std::unique_ptr<InputFile> PosixFiles::Open(std::string_view path) {
  return std::make_unique<PosixInputFile>(OpenToRead(finder_, PosixPath(path)));
}

std::unique_ptr<OutputFile> PosixFiles::Create(std::string_view path) {
  Descriptor file = OpenToWrite(finder_, PosixPath(path));
  Truncate(file, 0);
  return std::make_unique<PosixOutputFile>(std::move(file));
}

void PosixFiles::Append(std::string_view path, std::string_view bytes) {
  WriteAll(OpenToWrite(finder_, PosixPath(path), O_APPEND), bytes);
}

void PosixFiles::ReplaceTail(std::string_view path, std::uint64_t offset, std::string_view bytes) {
  const Descriptor file = OpenToWrite(finder_, PosixPath(path));
  if (offset > static_cast<std::uint64_t>(StatusOf(file).st_size)) throw RuntimeError(ErrorNumber::InvalidCall);
  if (lseek(file.Number(), static_cast<off_t>(offset), SEEK_SET) < 0) Fail(errno);
  WriteAll(file, bytes);
  Truncate(file, offset + bytes.size());
}

void PosixFiles::Remove(std::string_view text) {
  const PosixPath path(text);
  const auto removeRegular = [](const char* name) {
    SystemStatus status{};
    if (stat(name, &status) == 0 && !MayGo(name, status)) {
      errno = EACCES;
      return -1;
    }
    return unlink(name);
  };
  if (finder_.OnExisting(path, removeRegular) != 0) FailOn(path, errno);
  finder_.MarkRemoved(path);
}

std::vector<std::string> PosixFiles::List(std::string_view directory) {
  // Without the separator at its end, so that a directory is found under another case of its name too.
  while (directory.size() > 1 && directory.back() == kPathSeparator) directory.remove_suffix(1);
  std::unique_ptr<DIR, int (*)(DIR*)> folder(nullptr, &closedir);
  static_cast<void>(finder_.OnExisting(PosixPath(directory), [&folder](const char* name) {
    folder.reset(opendir(name));
    return folder ? 0 : -1;
  }));
  std::vector<std::string> names;
  while (const dirent* entry = folder ? readdir(folder.get()) : nullptr) {
    std::optional<std::string> name = FromUtf8(&entry->d_name[0]);
    if (name && *name != "." && *name != "..") names.push_back(std::move(*name));
  }
  return names;
}

std::string PosixFiles::SystemDirectory() { return "/usr/bin"; }

}  // namespace tavrin
