#include "sim/SimProcess.h"

#include <algorithm>
#include <array>
#include <csignal>
#include <stdexcept>

#include <fcntl.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tavrin {

namespace {

constexpr int kPatience = 30'000;  // milliseconds
constexpr unsigned kSecondsAllowed = 120;

struct Pipe {
  Pipe() {
    if (pipe2(ends.data(), O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
  }
  std::array<int, 2> ends{-1, -1};
};

}  // namespace

SimProcess::SimProcess(const std::string& project, std::vector<std::string> arguments) {
  arguments.insert(arguments.begin(), {TAVRIN_SIM, project});
  if (std::find(arguments.begin(), arguments.end(), "--port") == arguments.end()) {
    arguments.insert(arguments.end(), {"--port", "0"});
  }
  std::vector<char*> words;
  words.reserve(arguments.size() + 1);
  for (std::string& argument : arguments) words.push_back(argument.data());
  words.push_back(nullptr);

  const Pipe out;
  const Pipe err;
  process_ = fork();
  if (process_ < 0) throw std::runtime_error("no process");
  if (process_ == 0) {
    dup2(out.ends[1], STDOUT_FILENO);
    dup2(err.ends[1], STDERR_FILENO);
    alarm(kSecondsAllowed);
    execv(words.front(), words.data());
    _exit(127);
  }
  close(out.ends[1]);
  close(err.ends[1]);
  out_ = out.ends[0];
  err_ = err.ends[0];
}

SimProcess::~SimProcess() {
  if (process_ > 0) {
    kill(process_, SIGKILL);
    Wait();
  }
  close(out_);
  close(err_);
}

std::string SimProcess::NextLine() {
  while (pending_.find('\n') == std::string::npos) {
    pollfd waiting{out_, POLLIN, 0};
    std::array<char, 4096> block{};
    if (poll(&waiting, 1, kPatience) <= 0) return {};
    const ssize_t got = read(out_, block.data(), block.size());
    if (got <= 0) return {};
    pending_.append(block.data(), static_cast<std::size_t>(got));
  }
  const std::size_t end = pending_.find('\n');
  std::string line = pending_.substr(0, end);
  pending_.erase(0, end + 1);
  return line;
}

std::string SimProcess::UrlOf(const std::string& line) { return line.substr(line.rfind(' ') + 1); }

void SimProcess::Signal(int signal) const { kill(process_, signal); }

int SimProcess::Wait() {
  int status = 0;
  waitpid(process_, &status, 0);
  process_ = -1;
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

std::string SimProcess::Problems() {
  std::string problems;
  std::array<char, 4096> block{};
  for (ssize_t got = read(err_, block.data(), block.size()); got > 0; got = read(err_, block.data(), block.size())) {
    problems.append(block.data(), static_cast<std::size_t>(got));
  }
  return problems;
}

}  // namespace tavrin
