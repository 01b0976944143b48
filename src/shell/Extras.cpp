#include "shell/Extras.h"

#include "model/cOPC.h"
#include "model/shared/cWarnings.h"
#include "model/shared/modMain.h"
#include "model/shared/modText.h"
#include "shell/frmOPC.h"
#include "shell/frmOptions.h"

namespace tavrin {

namespace {

/// Numbers of the entries of mnuExtras.
enum ExtrasEntry : int { kReadWarnings = 1, kWriteWarnings = 2, kReconfigure = 10, kCleanUp = 11, kOptions = 12 };

void Tell(int text) { modMain::Platform().desktop.ShowBox(ResText(text)); }

}  // namespace

Extras::Extras(frmOPC& form) : form_(form) {
  form_.mnuExtras.ForEach(
      [this](MenuEntry& entry) { entry.OnClick = [this, &entry] { mnuExtras_Click(entry.Index()); }; });
}

void Extras::mnuExtras_Click(int index) try {
  if (index == kReadWarnings) modMain::ReadWarnings().Show(form_.vsgWarnings, form_.lblWarnings);
  if (index == kWriteWarnings) modMain::WriteWarnings().Show(form_.vsgWarnings, form_.lblWarnings);
  if (index == kReconfigure) Reconfigure();
  if (index == kCleanUp && !modMain::globals.gOPC) Tell(266);
  if (index == kOptions) {
    frmOptions options;
    modMain::Platform().desktop.ShowModal(options);
  }
} catch (...) {
  modMain::Trap("frmOPC.mnuExtras_Click : ");
}

void Extras::Reconfigure() {
  // The server reads the files: what is not saved would not reach it.
  if (modMain::globals.gOPC && modMain::globals.gOPC->bOpcProjectDirty()) Tell(261);
}

}  // namespace tavrin
