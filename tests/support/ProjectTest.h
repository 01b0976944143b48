#pragma once

#include <string>
#include <string_view>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "model/cOPC.h"
#include "model/shared/NumberTexts.h"
#include "model/shared/cWarnings.h"
#include "model/shared/modMain.h"
#include "platform/headless/HeadlessDesktop.h"
#include "platform/headless/HeadlessSurroundings.h"
#include "platform/headless/MemorySettings.h"
#include "platform/posix/PosixFiles.h"
#include "platform/posix/UnitRegistry.h"
#include "platform/profile/ProfiledFiles.h"
#include "support/FaultyFiles.h"
#include "support/ScriptedSyntax.h"
#include "support/TemporaryDirectory.h"

namespace tavrin {

/// Joins lines as the program writes them, each ended by CR LF.
[[nodiscard]] std::string Lines(const std::vector<std::string>& lines);

/// A project in an own directory on the real disk, with the desktop without a screen. Text of number N reads "#N".
/// There is an open, empty project of the name ZOPCSRV.ini. At the end, no question may have come unexpected.
class ProjectTest : public testing::Test {
 protected:
  ProjectTest();
  ~ProjectTest() override;
  void TearDown() override;

  /// Loads ZOPCSRV.ini of the directory; the result of cOPC::Refresh.
  bool Load();
  /// Writes everything into the directory; the result of cOPC::UpdateAll.
  bool Save();

  [[nodiscard]] cOPC& Project() { return modMain::OpenProject(); }
  /// By position counted from 1.
  [[nodiscard]] cNetwork& Network(std::int32_t position);
  [[nodiscard]] cDevice& Device(std::int32_t network, std::int32_t device);

  /// Adds an object of a type as the structure commands do, and makes it the selected one.
  cNetwork& AddNetwork(NetworkType type, std::string_view name);
  cDevice& AddDevice(cNetwork& network, std::string_view name);

  /// The boxes shown since the last call.
  [[nodiscard]] std::vector<std::string> Boxes() { return desktop.TakeBoxes(); }
  /// Warnings as "kind|file|text".
  [[nodiscard]] static std::vector<std::string> ReadWarnings();
  [[nodiscard]] static std::vector<std::string> WriteWarnings();

  TemporaryDirectory directory;
  HeadlessDesktop desktop;
  PosixFiles systemFiles;
  FaultyFiles faults{systemFiles};
  ProfiledFiles files{faults};
  UnitRegistry registry{files, directory.Path()};
  NumberTexts texts;
  ScriptedSyntax syntax;
  MemorySettings settings;
  HeadlessSurroundings around;
  Services services{desktop, files, files, registry, texts, syntax, settings, around.all, directory.Path() + "app"};
};

}  // namespace tavrin
