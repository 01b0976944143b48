#include "platform/controls/MenuEntry.h"

#include "platform/controls/Form.h"

namespace tavrin {

void MenuEntry::Add(MenuEntry& entry) {
  entry.parent_ = this;
  entries_.push_back(&entry);
  Changed();
}

void MenuEntry::UserOpen() {
  Owner().EndPendingEdits();
  Run(OnOpen);
}

void MenuEntry::UserClick() {
  if (!CanBeChosen()) return;
  Owner().EndPendingEdits();
  // The rule of an edit may have switched the entry off.
  if (CanBeChosen()) Run(OnClick);
}

void MenuEntry::UserShortcut() {
  Owner().EndPendingEdits();
  std::vector<MenuEntry*> above;
  for (MenuEntry* menu = parent_; menu != nullptr; menu = menu->parent_) above.push_back(menu);
  for (auto menu = above.rbegin(); menu != above.rend(); ++menu) Run((*menu)->OnOpen);
  UserClick();
}

std::string MenuEntry::ShownCaption() const { return literal_ ? caption_ : WithoutMnemonic(caption_); }

bool MenuEntry::CanBeChosen() const {
  if (IsSeparator() || !entries_.empty() || !Visible()) return false;
  for (const MenuEntry* entry = this; entry != nullptr; entry = entry->parent_) {
    if (!entry->Enabled()) return false;
  }
  return true;
}

std::string WithoutMnemonic(std::string_view caption) {
  std::string shown;
  for (std::size_t i = 0; i < caption.size(); ++i) {
    if (caption[i] == '&' && ++i == caption.size()) break;
    shown += caption[i];
  }
  return shown;
}

}  // namespace tavrin
