#include "app/TavrinctlRun.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <sstream>
#include <stdexcept>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tavrin {

namespace {

constexpr unsigned kSecondsAllowed = 120;
constexpr int kNotStarted = 127;
constexpr unsigned kNobody = 65534;

/// A pipe whose reading end belongs to the test.
struct Pipe {
  Pipe() {
    if (pipe2(ends.data(), O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
  }
  Pipe(const Pipe&) = delete;
  Pipe& operator=(const Pipe&) = delete;
  ~Pipe() {
    CloseWriting();
    close(ends[0]);
  }
  void CloseWriting() {
    if (ends[1] >= 0) close(ends[1]);
    ends[1] = -1;
  }

  std::array<int, 2> ends{-1, -1};
};

/// Gives the child its conditions; false when that is impossible.
bool Enter(const RunConditions& conditions) {
  if (!conditions.directory.empty() && chdir(conditions.directory.c_str()) != 0) return false;
  if (conditions.fileSize) {
    const rlimit limit{*conditions.fileSize, *conditions.fileSize};
    if (setrlimit(RLIMIT_FSIZE, &limit) != 0) return false;
  }
  if (conditions.unprivileged && geteuid() == 0 && (setgid(kNobody) != 0 || setuid(kNobody) != 0)) return false;
  return true;
}

[[noreturn]] void BecomeProgram(const std::vector<char*>& words, const RunConditions& conditions, const Pipe& out,
                                const Pipe& err) {
  const int file = conditions.output.empty() ? out.ends[1] : open(conditions.output.c_str(), O_WRONLY | O_CLOEXEC);
  dup2(file, STDOUT_FILENO);
  if (!conditions.input.empty()) dup2(open(conditions.input.c_str(), O_RDONLY | O_CLOEXEC), STDIN_FILENO);
  dup2(err.ends[1], STDERR_FILENO);
  alarm(kSecondsAllowed);
  if (Enter(conditions)) execv(words.front(), words.data());
  _exit(kNotStarted);
}

/// Reads both outputs as they come, so that neither of them ever stops the program.
void ReadOutputs(const Pipe& out, const Pipe& err, ProgramRun& run) {
  std::array<pollfd, 2> waiting{pollfd{out.ends[0], POLLIN, 0}, pollfd{err.ends[0], POLLIN, 0}};
  const std::array<std::string*, 2> texts{&run.out, &run.err};
  std::array<char, 65536> block{};
  while (waiting[0].fd >= 0 || waiting[1].fd >= 0) {
    if (poll(waiting.data(), waiting.size(), -1) < 0) continue;
    for (std::size_t i = 0; i < waiting.size(); ++i) {
      if (waiting[i].fd < 0 || waiting[i].revents == 0) continue;
      const ssize_t got = read(waiting[i].fd, block.data(), block.size());
      if (got > 0) {
        texts[i]->append(block.data(), static_cast<std::size_t>(got));
      } else {
        waiting[i].fd = -1;
      }
    }
  }
}

}  // namespace

ProgramRun CallTavrinctl(const std::vector<std::string>& arguments, const RunConditions& conditions) {
  std::vector<std::string> texts{conditions.program};
  texts.insert(texts.end(), arguments.begin(), arguments.end());
  std::vector<char*> words;
  for (std::string& text : texts) words.push_back(text.data());
  words.push_back(nullptr);

  Pipe out;
  Pipe err;
  const pid_t child = fork();
  if (child < 0) throw std::runtime_error("no process");
  if (child == 0) BecomeProgram(words, conditions, out, err);
  out.CloseWriting();
  err.CloseWriting();
  ProgramRun run;
  ReadOutputs(out, err, run);
  int status = 0;
  waitpid(child, &status, 0);
  run.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  return run;
}

std::vector<std::string> LinesOf(const std::string& text) {
  std::istringstream stream(text);
  std::vector<std::string> lines;
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}

std::string InSourceTree(const std::string& path) { return std::string(TAVRIN_SOURCE_DIR "/") + path; }

std::string BytesOf(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  EXPECT_TRUE(file.good()) << "no file " << path;
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

void CopyFiles(const std::string& from, const std::string& to) {
  std::filesystem::copy(from, to, std::filesystem::copy_options::recursive);
}

std::vector<std::string> Differences(const std::string& left, const std::string& right) {
  const auto read = [](const std::string& directory) {
    std::map<std::string, std::string> files;
    for (const auto& entry : std::filesystem::directory_iterator(directory)) {
      files[entry.path().filename()] = BytesOf(entry.path());
    }
    return files;
  };
  const auto first = read(left);
  const auto second = read(right);
  std::vector<std::string> names;
  for (const auto& [name, bytes] : first) {
    const auto other = second.find(name);
    if (other == second.end() || other->second != bytes) names.push_back(name);
  }
  for (const auto& file : second) {
    if (first.count(file.first) == 0) names.push_back(file.first);
  }
  std::sort(names.begin(), names.end());
  return names;
}

}  // namespace tavrin
