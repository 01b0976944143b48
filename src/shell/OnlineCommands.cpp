#include "shell/OnlineCommands.h"

#include <string>

#include "editing/TagRows.h"
#include "model/cDevice.h"
#include "model/shared/modMain.h"
#include "online/frmOnline.h"
#include "platform/RuntimeError.h"
#include "shell/frmOPC.h"

namespace tavrin {

namespace {

constexpr int kWatch = 1;

}  // namespace

OnlineCommands::OnlineCommands(frmOPC& form) : form_(form) {
  form_.mnuTest.ForEach([this](MenuEntry& entry) { entry.OnClick = [this, &entry] { mnuTest_Click(entry.Index()); }; });
}

void OnlineCommands::mnuTest_Click(int index) try {
  if (index != kWatch) return;
  const Grid& grid = form_.vsgTags;
  const std::string key = grid.Text({grid.Row(), kTagKey});
  if (key.empty()) return;
  cDevice& device = modMain::CurrentDevice();
  const cTag* const tag = device.Tags().Tag(key);
  if (tag == nullptr) throw RuntimeError(ErrorNumber::NoObject);
  frmOnline window;
  window.szDeviceName(device.szDeviceName());
  window.szTag(tag->szTag());
  window.szData(tag->szData());
  window.szRW(tag->szRW());
  window.Form_Load();
  modMain::Platform().desktop.ShowModal(window);
} catch (...) {
  modMain::Trap("frmOPC.mnuTest_Click : ");
}

}  // namespace tavrin
