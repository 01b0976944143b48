#include "app/ctl/TestRun.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <string>

#include "app/ctl/Interruption.h"
#include "app/ctl/LoadedProject.h"
#include "app/ctl/PlainText.h"
#include "model/cOPC.h"
#include "online/OnlineServer.h"
#include "online/frmTest.h"
#include "platform/CodePage.h"
#include "platform/RuntimeError.h"

namespace tavrin {

namespace {

using Clock = std::chrono::steady_clock;

/// Selects the device as a click in the tree does. @return false when the project has none of this name
bool SelectDevice(const std::string& name) {
  std::int32_t networkPosition = 0;
  for (const cNetwork& network : modMain::OpenProject().Networks()) {
    ++networkPosition;
    std::int32_t devicePosition = 0;
    for (const cDevice& device : network.Devices()) {
      ++devicePosition;
      if (device.szDeviceName() != name) continue;
      modMain::globals.gnCurrentNetwork = networkPosition;
      modMain::globals.gnCurrentDevice = devicePosition;
      return true;
    }
  }
  return false;
}

/// The window passes a missing server over; a command must not.
bool ServerAnswers() {
  OPCDataControl client(modMain::Platform().around.opc);
  client.ServerProgID(OnlineServerProgID());
  try {
    client.ControlConnect();
  } catch (const RuntimeError&) {
    return false;
  }
  return true;
}

void FillIn(frmTest& window, const TestRequest& request) {
  window.txtSollRuns.UserText(std::to_string(request.runs));
  window.txtInterval.UserText(std::to_string(request.interval));
  if (window.chkDoAbo.Checked() != request.subscribe) window.chkDoAbo.UserClick();
  if (window.chkDoCheck.Checked() == request.noCheck) window.chkDoCheck.UserClick();
}

/// The clock of the window: lets it tick until it has stopped by itself.
class Ticker {
 public:
  Ticker(frmTest& window, Desktop& desktop, const TestRequest& request)
      : window_(window), desktop_(desktop), request_(request) {}

  /// @return false when it was told to end, or a run took too long
  bool Run() {
    window_.cmdStart.UserClick();
    while (window_.Timer1.Enabled()) {
      if (!WaitForTick()) return false;
      window_.Timer1.Elapse();
      TellStep();
    }
    return true;
  }

 private:
  bool WaitForTick() {
    constexpr int kLook = 100;  // milliseconds between two looks at what ends it
    const Clock::time_point due = Clock::now() + std::chrono::milliseconds(window_.Timer1.Interval());
    while (Clock::now() < due) {
      if (interruption_.Came() || Clock::now() > deadline_) return false;
      const auto left = std::chrono::ceil<std::chrono::milliseconds>(due - Clock::now()).count();
      static_cast<void>(desktop_.WaitUntil([] { return false; }, std::clamp(static_cast<int>(left), 0, kLook)));
    }
    return true;
  }

  /// What the tick has done, unless it has only waited.
  void TellStep() {
    const std::string step = window_.lblCurrRun.Caption() + "\t" + window_.lblLastCommand.Caption();
    if (window_.lblCurrRun.Caption() != run_) deadline_ = Deadline();
    run_ = window_.lblCurrRun.Caption();
    if (step == step_ || !window_.Timer1.Enabled()) return;
    step_ = step;
    PrintLine(stdout, {run_, window_.lblLastCommand.Caption()});
    std::fflush(stdout);
  }

  [[nodiscard]] Clock::time_point Deadline() const {
    return Clock::now() + std::chrono::duration_cast<Clock::duration>(std::chrono::duration<double>(request_.timeout));
  }

  frmTest& window_;
  Desktop& desktop_;
  const TestRequest& request_;
  Interruption interruption_;
  Clock::time_point deadline_ = Deadline();
  std::string run_;
  std::string step_;
};

void PrintTags(const Grid& grid) {
  for (int row = grid.FixedRows(); row < grid.Rows(); ++row) {
    PrintLine(stdout, {grid.Text({row, 1}), grid.Text({row, 2}), grid.Text({row, 3}), grid.Text({row, 4})});
  }
}

/// @return true when all runs were done
bool RunWindow(HeadlessDesktop& desktop, const TestRequest& request) {
  bool done = false;
  frmTest window;
  window.Form_Load();
  desktop.OnModal = [&](Form&) {
    FillIn(window, request);
    done = Ticker(window, desktop, request).Run();
    window.UserClose();
  };
  desktop.ShowModal(window);
  desktop.OnModal = nullptr;
  PrintTags(window.vsgTest);
  return done;
}

}  // namespace

ExitStatus RunDeviceTest(Host& host, const TestRequest& request) {
  const auto loaded = Load(host, request.file);
  if (!loaded) return ExitStatus::NotRun;
  TellBoxes(*loaded);
  modMain::globals.gbDemo = request.demo;
  const auto device = FromUtf8(request.device);
  if (!device || !SelectDevice(*device)) return NotRun(request.device + ": the project has no such device");
  if (!ServerAnswers()) {
    return NotRun("there is no connection to the OPC server " + std::string(OnlineServerProgID()));
  }
  const bool done = RunWindow(host.Desktop(), request);
  const auto errors = host.Desktop().TakeBoxes();
  for (const std::string& error : errors) PrintLine(stderr, {"tavrinctl: message:", error});
  if (!done) Tell("the test was ended before all its runs were done");
  return done && errors.empty() ? ExitStatus::Clean : ExitStatus::Warnings;
}

}  // namespace tavrin
