#include "online/frmTest.h"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>
#include <utility>

#include "model/cDevice.h"
#include "model/shared/AtExit.h"
#include "model/shared/modMain.h"
#include "model/tags/cTag.h"
#include "online/OnlineServer.h"
#include "online/TestError.h"
#include "online/TestProtocol.h"
#include "platform/NumberText.h"

namespace tavrin {

namespace {

constexpr Rect kSize{0, 0, 10200, 6600};
constexpr std::string_view kDesignInterval = "5000";
constexpr int kInterval = 5000;
constexpr int kLeastInterval = 10;
constexpr int kEventRounds = 3;

constexpr std::array<std::string_view, 6> kLegends{
    "Anzahl Testdurchl\xE4"
    "ufe",
    "Intervall (in Millisek.)",
    "Ausgew\xE4hltes Device",
    "Devicetyp",
    "Aktueller Durchgang",
    "Letzte Aktion"};

struct ColumnRow {
  std::string_view head;
  float width;
};

constexpr std::array<ColumnRow, 6> kColumns{
    {{"T ", 0}, {"Tag", 1200}, {"Sollwert", 2100}, {"Istwert", 2100}, {"Quality", 1200}, {"OK", 900}}};

}  // namespace

frmTest::frmTest()
    : Form("frmTest"),
      Label1(*this, "Label1"),
      txtSollRuns(*this, "txtSollRuns"),
      chkDoAbo(*this, "chkDoAbo"),
      txtInterval(*this, "txtInterval"),
      chkDoCheck(*this, "chkDoCheck"),
      cmdStart(*this, "cmdStart"),
      cmdStop(*this, "cmdStop"),
      lblDVCName(*this, "lblDVCName"),
      lblDVCType(*this, "lblDVCType"),
      lblCurrRun(*this, "lblCurrRun"),
      lblLastCommand(*this, "lblLastCommand"),
      vsgTest(*this, "vsgTest"),
      Timer1(*this, "Timer1"),
      opcDC(modMain::Platform().around.opc) {
  Caption("Testform (intern)");
  Place(kSize);
  for (std::size_t i = 0; i < kLegends.size(); ++i) Label1.Load(static_cast<int>(i)).Caption(kLegends[i]);
  txtSollRuns.Text("1");
  txtSollRuns.SpokenName(kLegends[0]);
  txtInterval.Text(kDesignInterval);
  txtInterval.SpokenName(kLegends[1]);
  chkDoAbo.Caption("inkl. Abonnement");
  chkDoCheck.Caption(
      "inkl. Pr\xFC"
      "fung");
  cmdStart.Caption("Start");
  cmdStop.Caption("Stop");
  cmdStop.Enabled(false);
  vsgTest.SpokenName(Caption());
  Arrange();
  Wire();
}

void frmTest::Arrange() {
  Arrangement({{&Label1(0), &txtSollRuns, &chkDoAbo, &cmdStart},
               {&Label1(1), &txtInterval, &chkDoCheck, &cmdStop},
               {&Label1(2), &lblDVCName, &Label1(3), &lblDVCType},
               {&Label1(4), &lblCurrRun, &Label1(5), &lblLastCommand},
               {&vsgTest}});
}

void frmTest::Wire() {
  cmdStart.OnClick = [this] { cmdStart_Click(); };
  cmdStop.OnClick = [this] { cmdStop_Click(); };
  txtInterval.OnChange = [this] { txtInterval_Change(); };
  Timer1.OnTimer = [this] { Timer1_Timer(); };
  opcDC.OnDataChanged = [this](const std::vector<OPCItem*>& changed) { opcDC_OnDataChanged(changed); };
  OnUnload = [this](bool&) { Form_Unload(); };
}

void frmTest::Form_Load() {
  Alone([this] {
    try {
      const cDevice& selected = modMain::CurrentDevice();
      device.Take(modMain::CurrentDevice());
      lblDVCName.Caption(selected.szDeviceName());
      lblDVCType.Caption(selected.szDeviceTypeName());
      SetupGrid();
      opcDC.ServerProgID(OnlineServerProgID());
      Timer1.Interval(kInterval);
      txtInterval.Text(kDesignInterval);
      chkDoAbo.Checked(false);
      chkDoCheck.Checked(true);
      cycle.Reset();
      cycle.Grundstellung();
    } catch (...) {
      TellTestError("Form_Load");
    }
  });
}

void frmTest::SetupGrid() {
  vsgTest.Shape(1, static_cast<int>(kColumns.size()), 1, 1);
  int col = 0;
  for (const ColumnRow& column : kColumns) {
    vsgTest.Text({0, col}, column.head);
    vsgTest.ColWidth(col++, column.width);
  }
}

void frmTest::Form_Unload() {
  // A tick that comes among the events, or after them while the window goes, would connect again.
  const AtExit done([this, before = busy_] {
    Timer1.Enabled(false);
    busy_ = before;
  });
  busy_ = true;
  modMain::IgnoreErrors([this] { opcDC.ControlDisconnect(); });
  for (int i = 0; i < kEventRounds; ++i) modMain::IgnoreErrors([] { modMain::Platform().desktop.DoEvents(); });
}

void frmTest::cmdStart_Click() {
  Timer1.Enabled(true);
  cmdStart.Enabled(false);
  cmdStop.Enabled(true);
}

void frmTest::cmdStop_Click() {
  Timer1.Enabled(false);
  cmdStart.Enabled(true);
  cmdStop.Enabled(false);
}

void frmTest::txtInterval_Change() {
  const double wanted = NumericPrefix(txtInterval.Text());
  modMain::IgnoreErrors([&] { Timer1.Interval(wanted > 0 ? std::max(RoundToInt32(wanted), 1) : kLeastInterval); });
}

void frmTest::Timer1_Timer() {
  if (busy_) {
    tickIsDue_ = true;
    return;
  }
  tickIsDue_ = false;
  Alone([this] { cycle.Timer1_Timer(); });
}

void frmTest::opcDC_OnDataChanged(const std::vector<OPCItem*>& changed) {
  // A tick that has waited for a box comes first: values that move fast would keep it waiting box after box.
  if (busy_ || tickIsDue_) return items.Hold(changed);
  Alone([&] { TakeChanges(changed); });
}

void frmTest::TakeChanges(const std::vector<OPCItem*>& changed) {
  ShowChanges(changed);
  constexpr std::int32_t kStepAfterCheck = 2;
  if (cycle.Step() == kStepAfterCheck && cycle.LastCommand() == TestCommand::Pruefen) SaveResult();
}

void frmTest::ShowChanges(const std::vector<OPCItem*>& changed) {
  modMain::IgnoreErrors([&] { items.Take(changed); });
  modMain::IgnoreErrors([this] { device.Show(vsgTest); });
}

void frmTest::SaveResult() {
  const cTag* const result = device.Tag(kResultArrayTag);
  if (result == nullptr) return;
  resultIsLost_ = !SaveResultArray(cycle.Run(), kResultArrayTag, result->szTest2());
}

template <class Action>
void frmTest::Alone(const Action& action) {
  if (busy_) return;
  const AtExit done([this] {
    busy_ = false;
    PostTick();
  });
  busy_ = true;
  resultIsLost_ = false;
  action();
  if (!resultIsLost_) TakeHeld(&frmTest::TakeChanges);
  // A box for each change that comes while a box is open would leave the user no moment to stop or to close.
  TakeHeld(&frmTest::ShowChanges);
}

void frmTest::TakeHeld(void (frmTest::*take)(const std::vector<OPCItem*>& changed)) {
  const std::vector<OPCItem*> held = items.Held();
  if (!held.empty()) (this->*take)(held);
}

void frmTest::PostTick() {
  if (!tickIsDue_) return;
  modMain::Platform().desktop.Post([weak = std::weak_ptr<frmTest>(self_)] {
    if (const auto self = weak.lock()) self->RunDueTick();
  });
}

void frmTest::RunDueTick() {
  if (busy_ || !std::exchange(tickIsDue_, false)) return;
  Timer1.Elapse();
  Alone([] {});  // what has come meanwhile, also when the clock was stopped
}

}  // namespace tavrin
