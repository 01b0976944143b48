#include "app/Machine.h"

#include <array>
#include <csignal>
#include <filesystem>

#include <fcntl.h>
#include <unistd.h>

#include "brand/Brand.h"
#include "model/cOPC.h"
#include "model/shared/NumberTexts.h"
#include "model/shared/TextCatalogue.h"
#include "model/shared/cWarnings.h"
#include "online/opc/OpcServers.h"
#include "platform/CodePage.h"
#include "platform/RuntimeError.h"

namespace tavrin {

namespace {

std::string InCodePage(const std::string& utf8) {
  auto path = FromUtf8(utf8);
  if (!path) throw RuntimeError(ErrorNumber::PathNotFound);
  return *path;
}

/// Project files may be in another page than the default one; Tavrin.INI names it. An unknown page changes nothing.
/// @return the directory in the page that is now in use
std::string UseConfiguredCodePage(ProfileFiles& profiles, const std::string& directory) {
  std::array<char, 16> number{};
  const std::size_t count = profiles.GetString("Editor", "CodePage", "", number, InCodePage(directory) + "Tavrin.INI");
  if (const auto page = MakeCodePage({number.data(), count})) UseCodePage(*page);
  return InCodePage(directory);
}

std::string WithoutSeparator(std::string directory) {
  if (directory.size() > 1 && directory.back() == kPathSeparator) directory.pop_back();
  return directory;
}

std::unique_ptr<TextLibrary> MakeTexts(Wording wording, Files& files, const std::string& directory) {
  if (wording == Wording::Numbers) return std::make_unique<NumberTexts>();
  return std::make_unique<TextCatalogue>(files, directory + "texts" + kPathSeparator);
}

}  // namespace

Machine::Machine(Desktop& desktop, SettingsStore* settings, Wording wording, const std::string& applicationDirectory)
    : service_(UnitOf(OemBrand().serviceKey)),
      directory_(UseConfiguredCodePage(files_, applicationDirectory)),
      texts_(MakeTexts(wording, files_, directory_)),
      programs_(directory_, UnitOf(OemBrand().serviceKey)),
      opc_(MakeOpcServers(desktop, files_, directory_ + "Tavrin.INI")),
      around_{programs_, regional_, fileProperties_, service_, opc_.get()},
      services_{desktop,
                files_,
                files_,
                registry_,
                *texts_,
                syntax_,
                settings == nullptr ? settings_ : *settings,
                around_,
                WithoutSeparator(directory_)} {
  modMain::globals = modMain::State{};
  modMain::globals.services = &services_;
  modMain::globals.gnLanguage = wording == Wording::German ? kGerman : kEnglish;
}

Machine::~Machine() { modMain::globals = modMain::State{}; }

std::string ApplicationDirectory() {
  std::error_code error;
  const auto program = std::filesystem::read_symlink("/proc/self/exe", error);
  return error ? std::string{} : program.parent_path().string() + kPathSeparator;
}

void PrepareProcess() {
  int number = open("/dev/null", O_RDWR);
  while (number >= 0 && number <= STDERR_FILENO) number = open("/dev/null", O_RDWR);
  if (number > STDERR_FILENO) close(number);
  std::signal(SIGCHLD, SIG_DFL);  // ignored, it would keep from this process how those that it runs have ended
  IgnoreFileSizeSignal();
}

}  // namespace tavrin
