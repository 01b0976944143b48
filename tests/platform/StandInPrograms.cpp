#include "platform/StandInPrograms.h"

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <thread>

namespace tavrin {

namespace {

namespace fs = std::filesystem;

}  // namespace

StandInPrograms::StandInPrograms() {
  for (const char* folder : {"bin", "home", "config", "data", "data/applications", "none"}) {
    fs::create_directory(directory_.Path() + folder);
  }
  SetVariable("PATH", directory_.Path() + "bin");
  SetVariable("HOME", directory_.Path() + "home");
  SetVariable("XDG_CONFIG_HOME", directory_.Path() + "config");
  SetVariable("XDG_CONFIG_DIRS", directory_.Path() + "none");
  SetVariable("XDG_DATA_HOME", directory_.Path() + "data");
  SetVariable("XDG_DATA_DIRS", directory_.Path() + "none");
  SetVariable("XDG_CURRENT_DESKTOP", "");
}

StandInPrograms::~StandInPrograms() {
  for (const auto& [name, value] : before_) {
    if (value) {
      setenv(name.c_str(), value->c_str(), 1);
    } else {
      unsetenv(name.c_str());
    }
  }
}

void StandInPrograms::SetVariable(const std::string& name, const std::string& value) {
  const char* const now = std::getenv(name.c_str());
  before_.emplace(name, now == nullptr ? std::nullopt : std::optional<std::string>(now));
  setenv(name.c_str(), value.c_str(), 1);
}

std::string StandInPrograms::ProgramPath(std::string_view name) const {
  return directory_.Path() + "bin/" + std::string(name);
}

void StandInPrograms::Install(std::string_view name, std::string_view before) const {
  const std::string note = directory_.Path() + "started";
  std::string script = "#!/bin/sh\nwait_for_go() { until [ -e '" + directory_.Path() +
                       "go' ]; do /bin/sleep 0.01; done; }\n" + std::string(before) +
                       "\nprintf '%s\\0' \"${0##*/}\" \"$@\" > '" + note + ".part'\n/bin/mv '" + note + ".part' '" +
                       note + "'\n";
  directory_.Write("bin/" + std::string(name), script);
  fs::permissions(ProgramPath(name), fs::perms::owner_all);
}

void StandInPrograms::InstallHandler(std::string_view mediaType) const {
  directory_.Write("data/applications/viewer.desktop", "[Desktop Entry]\nExec=viewer %f\n");
  directory_.Write("data/applications/mimeinfo.cache",
                   "[MIME Cache]\n" + std::string(mediaType) + "=viewer.desktop;\n");
}

std::vector<std::string> StandInPrograms::TakeStarted() const {
  constexpr int kMostRounds = 2000;
  for (int round = 0; !directory_.Has("started") && round < kMostRounds; ++round) {
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
  }
  if (!directory_.Has("started")) return {};
  const std::string note = directory_.Read("started");
  fs::remove(directory_.Path() + "started");
  std::vector<std::string> words;
  for (std::size_t begin = 0; begin < note.size();) {
    const std::size_t end = note.find('\0', begin);
    words.push_back(note.substr(begin, end - begin));
    begin = end + 1;
  }
  return words;
}

}  // namespace tavrin
