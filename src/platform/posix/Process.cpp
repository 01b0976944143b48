#include "platform/posix/Process.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <string_view>

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/ioctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tavrin {

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::size_t kMostOutput = 65536;
/// Between two looks whether the program has ended: who holds its output open may outlive it.
constexpr int kLookMilliseconds = 10;

/// The two ends of a pipe. No program that is started gets them but by name.
class Pipe {
 public:
  Pipe() : open_(pipe2(ends_.data(), O_CLOEXEC) == 0) {}
  Pipe(const Pipe&) = delete;
  Pipe& operator=(const Pipe&) = delete;
  ~Pipe() {
    CloseWriteEnd();
    if (open_) close(ends_[0]);
  }
  [[nodiscard]] bool IsOpen() const { return open_; }
  [[nodiscard]] int ReadEnd() const { return ends_[0]; }
  [[nodiscard]] int WriteEnd() const { return ends_[1]; }
  void CloseWriteEnd() {
    if (open_ && ends_[1] >= 0) close(ends_[1]);
    ends_[1] = -1;
  }

 private:
  std::array<int, 2> ends_{-1, -1};
  bool open_;
};

/// What the program gets from the start: nothing to read, its output into the pipe, a group of its own to be ended by,
/// the usual signals.
class StartConditions {
 public:
  explicit StartConditions(int output) {
    posix_spawn_file_actions_init(&files_);
    posix_spawn_file_actions_addopen(&files_, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_adddup2(&files_, output, STDOUT_FILENO);
    posix_spawn_file_actions_adddup2(&files_, output, STDERR_FILENO);
    posix_spawn_file_actions_addclosefrom_np(&files_, STDERR_FILENO + 1);
    sigset_t none;
    sigset_t all;
    sigemptyset(&none);
    sigfillset(&all);
    posix_spawnattr_init(&attributes_);
    posix_spawnattr_setsigmask(&attributes_, &none);
    posix_spawnattr_setsigdefault(&attributes_, &all);
    posix_spawnattr_setpgroup(&attributes_, 0);
    constexpr auto kFlags = POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETPGROUP;
    posix_spawnattr_setflags(&attributes_, static_cast<short>(kFlags));
  }
  StartConditions(const StartConditions&) = delete;
  StartConditions& operator=(const StartConditions&) = delete;
  ~StartConditions() {
    posix_spawn_file_actions_destroy(&files_);
    posix_spawnattr_destroy(&attributes_);
  }
  [[nodiscard]] const posix_spawn_file_actions_t* Files() const { return &files_; }
  [[nodiscard]] const posix_spawnattr_t* Attributes() const { return &attributes_; }

 private:
  posix_spawn_file_actions_t files_{};
  posix_spawnattr_t attributes_{};
};

std::vector<char*> Pointers(std::vector<std::string>& texts) {
  std::vector<char*> pointers;
  pointers.reserve(texts.size() + 1);
  for (std::string& text : texts) pointers.push_back(text.data());
  pointers.push_back(nullptr);
  return pointers;
}

/// That of this process, but for the language.
std::vector<std::string> Environment() {
  std::vector<std::string> variables;
  for (char** variable = environ; *variable != nullptr; ++variable) {
    if (!std::string_view(*variable).starts_with("LC_ALL=")) variables.emplace_back(*variable);
  }
  variables.emplace_back("LC_ALL=C");
  return variables;
}

/// @return 0 when it could not be started
pid_t Start(std::vector<std::string> command, int output) {
  if (command.empty()) return 0;
  std::vector<std::string> environment = Environment();
  const StartConditions conditions(output);
  pid_t process = 0;
  const int error = posix_spawnp(&process, command[0].c_str(), conditions.Files(), conditions.Attributes(),
                                 Pointers(command).data(), Pointers(environment).data());
  return error == 0 ? process : 0;
}

/// What a program says, of which the beginning is kept.
class Output {
 public:
  Output(int from, std::string& kept) : from_(from), kept_(kept) {}

  /// Reads what there is, waiting for it a moment.
  void ReadSome(int milliseconds) {
    pollfd wanted{open_ ? from_ : -1, POLLIN, 0};
    if (poll(&wanted, 1, milliseconds) > 0) Read();
  }

  /// Reads what lies there now. Others that still hold it open could go on for ever.
  void ReadRest() {
    int waiting = 0;
    if (ioctl(from_, FIONREAD, &waiting) != 0) return;
    const std::size_t end = count_ + static_cast<std::size_t>(waiting);
    while (open_ && count_ < end) Read();
  }

 private:
  void Read() {
    std::array<char, 4096> buffer{};
    const ssize_t count = read(from_, buffer.data(), buffer.size());
    if (count < 0 && errno == EINTR) return;
    open_ = count > 0;
    if (!open_) return;
    const auto length = static_cast<std::size_t>(count);
    kept_.append(buffer.data(), std::min(length, kMostOutput - kept_.size()));
    count_ += length;
  }

  const int from_;
  std::string& kept_;
  std::size_t count_ = 0;
  bool open_ = true;
};

void TakeStatus(int status, ProcessResult& result) {
  result.end = WIFEXITED(status) ? ProcessResult::End::Exited : ProcessResult::End::Killed;
  if (WIFEXITED(status)) result.status = WEXITSTATUS(status);
}

/// @return whether it has ended
bool TakeEnd(pid_t process, ProcessResult& result) {
  int status = 0;
  const pid_t ended = waitpid(process, &status, WNOHANG);
  if (ended == process) TakeStatus(status, result);
  if (ended < 0) result.end = ProcessResult::End::Gone;
  return ended != 0;
}

/// Ends the program and all that it has started.
void Kill(pid_t process) {
  kill(-process, SIGKILL);
  while (waitpid(process, nullptr, 0) < 0 && errno == EINTR) {
  }
}

void Await(pid_t process, int from, Clock::time_point deadline, ProcessResult& result) {
  Output output(from, result.output);
  do {
    output.ReadSome(kLookMilliseconds);
    if (TakeEnd(process, result)) return output.ReadRest();
  } while (Clock::now() < deadline);
  result.end = ProcessResult::End::TimedOut;
  Kill(process);
}

}  // namespace

ProcessResult RunProcess(const std::vector<std::string>& command, std::chrono::milliseconds limit) {
  ProcessResult result;
  const Clock::time_point deadline = Clock::now() + limit;
  Pipe pipe;
  if (!pipe.IsOpen()) return result;
  const pid_t process = Start(command, pipe.WriteEnd());
  if (process == 0) return result;
  pipe.CloseWriteEnd();
  Await(process, pipe.ReadEnd(), deadline, result);
  return result;
}

}  // namespace tavrin
