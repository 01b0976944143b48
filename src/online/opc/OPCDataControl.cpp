#include "online/opc/OPCDataControl.h"

#include "platform/RuntimeError.h"

namespace tavrin {

void OPCItem::ItemValue(Variant value) {
  state_.value = std::move(value);
  write_ = true;
}

OPCItem& OPCItems::AddItem(const std::string& itemID) {
  const auto [place, added] = byName_.try_emplace(itemID, nullptr);
  if (!added) throw RuntimeError(ErrorNumber::KeyInUse);
  place->second = items_.emplace_back(std::make_unique<OPCItem>(itemID)).get();
  return *place->second;
}

OPCItem& OPCItems::ItemByName(std::string_view itemID) {
  const auto found = byName_.find(std::string(itemID));
  if (found == byName_.end()) throw RuntimeError(ErrorNumber::InvalidCall);
  return *found->second;
}

void OPCItems::ClearItems() {
  byName_.clear();
  items_.clear();
}

void OPCDataControl::ControlConnect() {
  if (link_) return;
  if (servers_ == nullptr) throw RuntimeError(ErrorNumber::InvalidCall);
  std::vector<std::string> names;
  names.reserve(items_.items_.size());
  for (const auto& item : items_.items_) names.push_back(item->ItemID());
  link_ = servers_->Connect(progID_, names, [this](const std::vector<ItemChange>& changes) { Take(changes); });
}

void OPCDataControl::ControlDisconnect() { link_.reset(); }

void OPCDataControl::ControlWrite() {
  std::vector<ItemWrite> writes;
  for (const auto& item : items_.items_) {
    if (item->write_) writes.push_back({item->ItemID(), item->ItemValue()});
    item->write_ = false;
  }
  if (!link_) throw RuntimeError(ErrorNumber::InvalidCall);
  if (!writes.empty()) link_->Write(writes);
}

void OPCDataControl::Take(const std::vector<ItemChange>& changes) {
  std::vector<OPCItem*> changed;
  changed.reserve(changes.size());
  for (const ItemChange& change : changes) {
    const auto found = items_.byName_.find(change.itemID);
    if (found == items_.byName_.end()) continue;
    found->second->state_ = change.state;
    changed.push_back(found->second);
  }
  if (!changed.empty() && OnDataChanged) OnDataChanged(changed);
}

}  // namespace tavrin
