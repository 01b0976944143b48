#include "online/frmReconfig.h"

#include <algorithm>
#include <span>

#include <fmt/format.h>

#include "model/shared/AtExit.h"
#include "model/shared/modMain.h"
#include "model/shared/modText.h"
#include "platform/ServiceControl.h"
#include "platform/controls/MenuEntry.h"

namespace tavrin {

namespace {

enum Action : int { kRestart = 0, kClose = 1 };
enum Text : int { kStopping = 85, kStarting = 92 };

constexpr Rect kSize{0, 0, 7200, 4200};
constexpr int kDone = 0;
constexpr int kWasNotRunning = 4;  // of a stop: as good as done

/// What a result of a call is told by. A result without a row is not told.
struct ResultRow {
  int result;
  int text;
  bool withNumber = true;
};

constexpr ResultRow kStopResults[]{{kDone, 86, false}, {1, 87}, {3, 88}, {kWasNotRunning, 89}, {5, 90}, {6, 91}};
constexpr ResultRow kStartResults[]{{kDone, 93, false}, {1, 94}, {2, 95}, {4, 96}, {5, 97}, {6, 90}, {7, 91}};

void ShowResult(ListBox& list, std::span<const ResultRow> table, int result) {
  const auto row =
      std::find_if(table.begin(), table.end(), [result](const ResultRow& entry) { return entry.result == result; });
  if (row == table.end()) return;
  const std::string text = ResText(row->text);
  list.AddItem(row->withNumber ? fmt::format("{} ({})", text, result) : text);
}

}  // namespace

frmReconfig::frmReconfig() : Form("frmReconfig"), List1(*this, "List1"), cmdAction(*this, "cmdAction") {
  cmdAction.Load(kRestart).Role(ButtonRole::Default);
  cmdAction.Load(kClose).Role(ButtonRole::Cancel);
  cmdAction.ForEach([this](Button& button) { button.OnClick = [this, &button] { cmdAction_Click(button.Index()); }; });
  Arrangement({{&List1}, {&cmdAction(kRestart), &cmdAction(kClose)}});
  Place(kSize);
  Form_Load();
}

void frmReconfig::Form_Load() try {
  GUI_Init();
  cmdAction(kRestart).SetFocus();
} catch (...) {
  modMain::Trap("frmReconfig.Form_Load : ");
}

void frmReconfig::GUI_Init() try {
  Caption(WithoutMnemonic(ResText(160)));  // the menu entry reads the same
  List1.SpokenName(Caption());
  cmdAction(kRestart).Caption(ResText(161));
  cmdAction(kClose).Caption(ResText(28));
} catch (...) {
  modMain::Trap("frmReconfig.GUI_Init : ");
}

void frmReconfig::cmdAction_Click(int index) {
  if (index == kClose) UserClose();
  // Events run between the steps: a press that was meant for the first run must not begin another within it.
  if (index != kRestart || running_) return;
  const AtExit ready([this] {
    modMain::Platform().desktop.Pointer(MousePointer::Normal);
    running_ = false;
  });
  running_ = true;
  Restart();
}

void frmReconfig::Restart() try {
  const Services& services = modMain::Platform();
  services.desktop.Pointer(MousePointer::Hourglass);
  ShowStep(ResText(kStopping));
  const int stopped = services.around.service.CmdStopServiceEx();
  ShowResult(List1, kStopResults, stopped);
  services.desktop.DoEvents();
  if (stopped != kDone && stopped != kWasNotRunning) return;
  ShowStep(ResText(kStarting));
  ShowResult(List1, kStartResults, services.around.service.CmdStartServiceEx());
} catch (...) {
  modMain::Trap("frmReconfig.cmdAction_Click : ");
}

void frmReconfig::ShowStep(std::string_view line) {
  List1.AddItem(line);
  modMain::Platform().desktop.DoEvents();
}

}  // namespace tavrin
