#include "platform/posix/Launch.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstddef>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tavrin {
namespace {

/// The channel on which the started side tells that it could not go on. A successful start closes it without a word.
struct Channel {
  int read = -1;
  int write = -1;
};

// Between fork and exec another thread may hold any lock: nothing there may allocate or lock.

/// Files that others have opened without close-on-exec. Those above the limit cannot exist.
void CloseOnExec(int first) {
  if (close_range(static_cast<unsigned>(first), ~0U, CLOSE_RANGE_CLOEXEC) == 0) return;
  rlimit limit{};
  constexpr rlim_t kMost = 65536;  // an older kernel: one by one, but not by the million
  const rlim_t end = getrlimit(RLIMIT_NOFILE, &limit) == 0 && limit.rlim_cur < kMost ? limit.rlim_cur : kMost;
  for (int number = first; static_cast<rlim_t>(number) < end; ++number) fcntl(number, F_SETFD, FD_CLOEXEC);
}

/// What this program ignores or holds back is not to be ignored by the other one.
void ResetSignals() {
  for (const int number : {SIGPIPE, SIGXFSZ, SIGCHLD, SIGINT, SIGTERM, SIGHUP}) std::signal(number, SIG_DFL);
  sigset_t none;
  sigemptyset(&none);
  sigprocmask(SIG_SETMASK, &none, nullptr);
}

void DetachStreams() {
  const int nothing = open("/dev/null", O_RDWR | O_CLOEXEC);
  if (nothing < 0) return;
  for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) dup2(nothing, stream);
}

[[noreturn]] void Become(char* const* words, const Channel& channel) {
  ResetSignals();
  DetachStreams();
  CloseOnExec(STDERR_FILENO + 1);
  execv(words[0], words);
  const char failed = 1;
  static_cast<void>(!write(channel.write, &failed, 1));
  _exit(127);
}

/// The process in between ends at once, so that the started one belongs to the system and leaves no trace here.
[[noreturn]] void HandOver(char* const* words, const Channel& channel) {
  setsid();
  const pid_t program = fork();
  if (program == 0) Become(words, channel);
  const char failed = 1;
  if (program < 0) static_cast<void>(!write(channel.write, &failed, 1));
  _exit(0);
}

/// Waits until the channel is closed. @return true when nothing was said on it
bool IsSilent(int channel) {
  std::array<char, 2> said{};
  ssize_t count = read(channel, said.data(), said.size());
  while (count < 0 && errno == EINTR) count = read(channel, said.data(), said.size());
  return count == 0;
}

}  // namespace

bool StartDetached(const std::string& program, const std::vector<std::string>& arguments) {
  std::vector<std::string> texts{program};
  texts.insert(texts.end(), arguments.begin(), arguments.end());
  std::vector<char*> words;
  words.reserve(texts.size() + 1);
  for (std::string& text : texts) words.push_back(text.data());
  words.push_back(nullptr);

  std::array<int, 2> ends{};
  if (pipe2(ends.data(), O_CLOEXEC) != 0) return false;
  const Channel channel{ends[0], ends[1]};
  const pid_t between = fork();
  if (between == 0) HandOver(words.data(), channel);
  close(channel.write);
  const bool silent = IsSilent(channel.read);
  close(channel.read);
  if (between < 0) return false;
  while (waitpid(between, nullptr, 0) < 0 && errno == EINTR) continue;
  return silent;
}

}  // namespace tavrin
