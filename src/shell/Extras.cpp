#include "shell/Extras.h"

#include <array>

#include "model/cOPC.h"
#include "model/shared/cWarnings.h"
#include "model/shared/modMain.h"
#include "model/shared/modText.h"
#include "online/frmReconfig.h"
#include "platform/Programs.h"
#include "shell/frmOPC.h"
#include "shell/frmOptions.h"
#include "tools/frmSettle.h"

namespace tavrin {

namespace {

/// A program that an entry starts. Where a purpose is served by programs of two generations, the entry has two rows:
/// it tries both, and the one that this machine lacks is passed over without a word.
struct AdministrationRow {
  ExtrasEntry entry;
  Administration purpose;
  WindowStyle style;
  bool mayFail;
};

constexpr std::array kAdministration{
    AdministrationRow{kExtrasOpcSettings, Administration::OpcSettings, WindowStyle::Normal, false},
    AdministrationRow{kExtrasUsers, Administration::UserManager, WindowStyle::Normal, true},
    AdministrationRow{kExtrasUsers, Administration::UserPasswords, WindowStyle::Normal, true},
    AdministrationRow{kExtrasServices, Administration::Services, WindowStyle::Minimised, true},
    AdministrationRow{kExtrasServices, Administration::ServerManager, WindowStyle::Minimised, true},
    AdministrationRow{kExtrasEventLog, Administration::EventLog, WindowStyle::Normal, true},
};

void Tell(int text) { modMain::Platform().desktop.ShowBox(ResText(text)); }

template <class Window>
void OpenModally() {
  Window window;
  modMain::Platform().desktop.ShowModal(window);
}

}  // namespace

Extras::Extras(frmOPC& form) : form_(form) {
  form_.mnuExtras.ForEach(
      [this](MenuEntry& entry) { entry.OnClick = [this, &entry] { mnuExtras_Click(entry.Index()); }; });
}

void Extras::mnuExtras_Click(int index) try {
  ShowWarnings(index);
  Administrate(index);
  if (index == kExtrasReconfigure) Reconfigure();
  if (index == kExtrasCleanUp) CleanUp();
  if (index == kExtrasOptions) OpenModally<frmOptions>();
} catch (...) {
  modMain::Trap("frmOPC.mnuExtras_Click : ");
}

void Extras::ShowWarnings(int index) {
  if (index == kExtrasReadWarnings) modMain::ReadWarnings().Show(form_.vsgWarnings, form_.lblWarnings);
  if (index == kExtrasWriteWarnings) modMain::WriteWarnings().Show(form_.vsgWarnings, form_.lblWarnings);
}

void Extras::Administrate(int index) {
  for (const AdministrationRow& row : kAdministration) {
    if (row.entry != index) continue;
    const auto start = [&row] { modMain::Platform().around.programs.Start(row.purpose, row.style); };
    if (row.mayFail) {
      modMain::IgnoreErrors(start);
    } else {
      start();
    }
  }
}

void Extras::Reconfigure() {
  if (!modMain::globals.gOPC) return;
  // The server reads the files: what is not saved would not reach it.
  if (modMain::globals.gOPC->bOpcProjectDirty()) {
    Tell(261);
  } else {
    OpenModally<frmReconfig>();
  }
}

void Extras::CleanUp() {
  if (modMain::globals.gOPC) {
    OpenModally<frmSettle>();
  } else {
    Tell(266);
  }
}

}  // namespace tavrin
