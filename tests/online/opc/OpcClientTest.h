#pragma once

#include <chrono>
#include <map>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "online/opc/OPCDataControl.h"
#include "platform/RuntimeError.h"
#include "platform/headless/HeadlessDesktop.h"
#include "platform/posix/PosixFiles.h"
#include "platform/profile/ProfiledFiles.h"
#include "support/TemporaryDirectory.h"

namespace tavrin {

/// The number of the run-time error that an action ends with, 0 without any.
inline int ErrorOf(const std::function<void()>& action) {
  try {
    action();
  } catch (const RuntimeError& error) {
    return static_cast<int>(error.Number());
  }
  return 0;
}

/// A client with a configuration file of its own, on the desktop without a screen.
class OpcClientTest : public testing::Test {
 protected:
  OpcClientTest() {
    control.OnDataChanged = [this](const std::vector<OPCItem*>& changed) {
      ++deliveries;
      for (const OPCItem* item : changed) ++changes[item->ItemID()];
    };
  }

  /// Connects with the items.
  void Connect(const std::string& progID, const std::vector<std::string>& itemIDs) {
    for (const std::string& itemID : itemIDs) control.ControlItems().AddItem(itemID);
    control.ServerProgID(progID);
    control.ControlConnect();
  }
  [[nodiscard]] OPCItem& Item(const std::string& itemID) { return control.ControlItems().ItemByName(itemID); }
  void Write(const std::string& itemID, Variant value) {
    Item(itemID).ItemValue(std::move(value));
    control.ControlWrite();
  }
  /// Runs the desktop until it is so; false when too much time passes.
  bool Until(const std::function<bool()>& so, int milliseconds = 4000) { return desktop.WaitUntil(so, milliseconds); }
  bool UntilQuality(const std::string& itemID, int quality, int milliseconds = 4000) {
    return Until([&] { return changes[itemID] > 0 && Item(itemID).ItemQuality() == quality; }, milliseconds);
  }
  bool UntilValue(const std::string& itemID, const Variant& value) {
    return Until([&] { return Item(itemID).ItemValue() == value; });
  }
  /// Nothing has come in so much time.
  void RunFor(int milliseconds) {
    (void)desktop.WaitUntil([] { return false; }, milliseconds);
  }

  TemporaryDirectory directory;
  HeadlessDesktop desktop;
  PosixFiles systemFiles;
  ProfiledFiles files{systemFiles};
  std::string configuration = directory.Path() + "Tavrin.INI";
  std::unique_ptr<OpcServers> servers = MakeOpcServers(desktop, files, configuration);
  OPCDataControl control{servers.get()};
  int deliveries = 0;
  std::map<std::string, int> changes;
};

/// Seconds that an action takes.
inline double SecondsOf(const std::function<void()>& action) {
  const auto start = std::chrono::steady_clock::now();
  action();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

}  // namespace tavrin
