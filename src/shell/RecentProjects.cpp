#include "shell/RecentProjects.h"

#include <algorithm>
#include <array>

#include "model/cOPC.h"
#include "model/shared/modMain.h"
#include "platform/CodePage.h"
#include "shell/frmOPC.h"

namespace tavrin {

namespace {

constexpr int kSeparator = 10;

/// Newest first.
std::array<std::string*, 4> Slots(frmOPC& form) { return {&form.szMRU1, &form.szMRU2, &form.szMRU3, &form.szMRU4}; }

}  // namespace

void RecentProjects::SetNewMRU(std::string_view szPath) try {
  const auto slots = Slots(form_);
  // A project that is in the list stays where it is: the entries keep their places under the user's hand.
  if (std::any_of(slots.begin(), slots.end(),
                  [szPath](const std::string* slot) { return EqualIgnoringCase(*slot, szPath); })) {
    return;
  }
  for (std::size_t i = slots.size() - 1; i > 0; --i) *slots[i] = *slots[i - 1];
  *slots.front() = modMain::OpenProject().szFullName();
  ShowMRU();
} catch (...) {
  modMain::Trap("frmOPC.SetNewMRU : ");
}

void RecentProjects::ShowMRU() try {
  form_.mnuFile(kSeparator).Visible(false);
  int index = kSeparator;
  for (const std::string* const slot : Slots(form_)) {
    MenuEntry& entry = form_.mnuFile(++index);
    entry.Literal(true);
    entry.Caption(*slot);
    entry.Visible(!slot->empty());
    if (!slot->empty()) form_.mnuFile(kSeparator).Visible(true);
  }
} catch (...) {
  modMain::Trap("frmOPC.ShowMRU : ");
}

}  // namespace tavrin
