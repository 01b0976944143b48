#include "shell/Help.h"

#include "model/shared/modMain.h"
#include "model/shared/modText.h"
#include "platform/Programs.h"
#include "shell/frmInfo.h"
#include "shell/frmOPC.h"
#include "tools/frmFileInfo.h"

namespace tavrin {

namespace {

constexpr int kFirstPage = 1;

}  // namespace

Help::Help(frmOPC& form) {
  form.mnuHelp.ForEach([](MenuEntry& entry) { entry.OnClick = [&entry] { mnuHelp_Click(entry.Index()); }; });
}

void Help::mnuHelp_Click(int index) try {
  const Services& services = modMain::Platform();
  if (index == kHelpManual) OpenManual();
  if (index == kHelpAbout) {
    frmInfo window;
    services.desktop.ShowModal(window);
  }
  if (index == kHelpSystem) services.around.programs.Start(Administration::SystemInformation, WindowStyle::Normal);
  if (index == kHelpVersions) {
    frmFileInfo window;
    services.desktop.ShowModal(window);
  }
} catch (...) {
  modMain::Trap("frmOPC.mnuHelp_Click : ");
}

void Help::OpenManual() {
  const Services& services = modMain::Platform();
  if (services.around.programs.OpenDocument(modMain::globals.gszManual, kFirstPage)) return;
  services.desktop.ShowBox(ResText(296));
}

}  // namespace tavrin
