#pragma once

#include <cstdlib>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "MemoryFiles.h"
#include "model/cOPC.h"
#include "model/shared/LengthSyntax.h"
#include "model/shared/NumberTexts.h"
#include "model/shared/cWarnings.h"
#include "model/shared/modMain.h"
#include "platform/headless/HeadlessDesktop.h"
#include "platform/headless/HeadlessSurroundings.h"
#include "platform/headless/MemorySettings.h"
#include "platform/profile/ProfiledFiles.h"

namespace tavrin {

inline void Require(bool condition) {
  if (!condition) std::abort();
}

/// The machine for one run of a fuzz target: a directory in memory, an empty open project in it, no user.
class MemoryProject {
 public:
  MemoryProject() {
    modMain::globals = modMain::State{};
    modMain::globals.services = &services_;
    modMain::globals.gszProjectDir = kDirectory;
    modMain::globals.gOPC = std::make_unique<cOPC>();
  }
  MemoryProject(const MemoryProject&) = delete;
  MemoryProject& operator=(const MemoryProject&) = delete;
  ~MemoryProject() { modMain::globals = modMain::State{}; }

  static constexpr std::string_view kDirectory = "/project/";
  [[nodiscard]] static std::string Path(std::string_view name) { return std::string(kDirectory) + std::string(name); }

  void Write(std::string_view name, std::string_view bytes) { files_.Create(Path(name))->Write(bytes); }
  [[nodiscard]] std::string Read(std::string_view name) { return files_.ReadAll(Path(name)); }

 private:
  class NoRegistry : public Registry {
    [[nodiscard]] std::optional<std::string> QueryText(std::string_view, std::string_view) override { return {}; }
  };

  HeadlessDesktop desktop_;
  MemoryFiles disk_{std::string(kDirectory)};
  ProfiledFiles files_{disk_};
  NoRegistry registry_;
  NumberTexts texts_;
  LengthSyntax syntax_;
  MemorySettings settings_;
  HeadlessSurroundings around_;
  Services services_{desktop_, files_, files_, registry_, texts_, syntax_, settings_, around_.all, {}};
};

}  // namespace tavrin
