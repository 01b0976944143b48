// Prints what the reader of version resources finds in files: one table of lines for each, in the form of
// platform_table.cpp, which asks the platform. The names of the files come from standard input, one a line.
#include <array>
#include <iostream>
#include <memory>
#include <string>

#include "model/shared/NumberTexts.h"
#include "model/shared/modMain.h"
#include "platform/headless/HeadlessDesktop.h"
#include "platform/headless/HeadlessSurroundings.h"
#include "platform/headless/MemorySettings.h"
#include "platform/posix/PosixFiles.h"
#include "platform/posix/PosixRegional.h"
#include "platform/posix/UnitRegistry.h"
#include "platform/profile/ProfiledFiles.h"
#include "platform/version/Bytes.h"
#include "platform/version/VersionResource.h"
#include "support/ScriptedSyntax.h"
#include "tools/CFileVersionInfo.h"

namespace tavrin {
namespace {

constexpr int kUsEnglish = 0x409;

/// What a file says besides its texts, which the program shows in words only.
void PrintNumbers(PosixFiles& files, const std::string& path) {
  const std::unique_ptr<InputFile> file = files.Open(path);
  const auto bytes = ReadVersionResource(*file, kUsEnglish);
  if (!bytes) return;
  const VersionBlock block(*bytes);
  const std::string fixed = block.Query("\\").value_or("");
  std::cout << "fixed";
  for (std::size_t at = 0; fixed.size() >= 52 && at < 52; at += 4) {
    std::cout << ' ' << CFileVersionInfo::FmtHex(static_cast<std::int32_t>(DoubleWordAt(fixed, at)), 8);
  }
  std::string translation = block.Query("\\VarFileInfo\\Translation").value_or("");
  std::cout << "\ntranslation";
  if (!translation.empty()) {
    translation.resize(4);
    std::cout << ' ' << CFileVersionInfo::FmtHex(static_cast<std::int32_t>(DoubleWordAt(translation, 0)), 8);
  }
  std::cout << '\n';
}

void PrintFile(PosixFiles& files, const std::string& path) {
  CFileVersionInfo info;
  info.FullPathName(path);
  std::cout << "file " << path.substr(path.rfind('/') + 1) << '\n' << "available " << info.Available() << '\n';
  if (!info.Available()) return;
  PrintNumbers(files, path);
  for (std::int32_t index = 1; index < 15; ++index) {
    std::cout << CFileVersionInfo::PredefinedName(index) << '=' << info.PredefinedValue(index) << '\n';
  }
}

void PrintAll() {
  HeadlessDesktop desktop;
  PosixFiles files;
  ProfiledFiles profiles(files);
  UnitRegistry registry(files);
  NumberTexts texts;
  ScriptedSyntax syntax;
  MemorySettings settings;
  HeadlessSurroundings around;
  PosixRegional english;  // compare.sh sets no other language
  Surroundings surroundings{around.programs, english, around.fileProperties, around.service, nullptr};
  const Services services{desktop, files, profiles, registry, texts, syntax, settings, surroundings, "."};
  modMain::globals.services = &services;
  for (std::string path; std::getline(std::cin, path);) PrintFile(files, path);
  modMain::globals = modMain::State{};
}

}  // namespace
}  // namespace tavrin

int main() {
  tavrin::PrintAll();
  return 0;
}
