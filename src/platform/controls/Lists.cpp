// Controls that show lines one below the other, and the timer.
#include <algorithm>

#include "platform/RuntimeError.h"
#include "platform/controls/Form.h"
#include "platform/controls/ListBox.h"
#include "platform/controls/ListView.h"
#include "platform/controls/Timer.h"

namespace tavrin {

void Timer::Elapse() {
  if (!Enabled() || running_) return;
  struct Running {
    explicit Running(bool& value) : flag(value) { flag = true; }
    Running(const Running&) = delete;
    Running& operator=(const Running&) = delete;
    ~Running() { flag = false; }
    bool& flag;
  } const guard(running_);
  Run(OnTimer);
}

void ListBox::AddItem(std::string_view line) {
  lines_.emplace_back(line);
  Changed();
}

void ListBox::Clear() {
  lines_.clear();
  Changed();
}

void ListView::Clear() {
  if (listener_ != nullptr) listener_->OnAboutToReset();
  items_.clear();
  current_ = -1;
  if (listener_ != nullptr) listener_->OnReset();
}

void ListView::Header(std::string_view text, float width) {
  header_ = text;
  width_ = width;
  Changed();
}

void ListView::Add(std::vector<ListItem> items) {
  if (listener_ != nullptr) listener_->OnAboutToReset();
  items_.insert(items_.end(), std::make_move_iterator(items.begin()), std::make_move_iterator(items.end()));
  if (listener_ != nullptr) listener_->OnReset();
}

const ListItem& ListView::Item(int row) const {
  if (row < 0 || row >= Count()) throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
  return items_[static_cast<std::size_t>(row)];
}

void ListView::Mark(int row, std::string_view icon, bool checked) {
  static_cast<void>(Item(row));
  ListItem& item = items_[static_cast<std::size_t>(row)];
  if (item.icon == icon && item.checked == checked) return;
  item.icon = icon;
  item.checked = checked;
  if (listener_ != nullptr) listener_->OnItemChanged(row);
}

void ListView::UserSelect(int row) {
  if (!Visible() || !Enabled() || row < 0 || row >= Count()) return;
  UserFocus();
  if (current_ == row) return;
  current_ = row;
  if (listener_ != nullptr) listener_->OnCurrentChanged();
}

void ListView::UserCheck(int row, bool checked) {
  if (!Visible() || !Enabled() || row < 0 || row >= Count()) return;
  UserSelect(row);
  if (Item(row).checked == checked) return;
  Mark(row, Item(row).icon, checked);
  Run(OnItemCheck, row);
}

}  // namespace tavrin
