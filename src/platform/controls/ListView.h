#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/controls/Control.h"

namespace tavrin {

/// A row of a list view.
struct ListItem {
  std::string key;   ///< ties the row to something of the program
  std::string text;  ///< what is shown
  std::string icon;  ///< key of the picture
  bool checked = false;
};

/// What a view needs to follow a list view. Header, visibility and place come by Control::Changed.
class ListViewListener {
 public:
  ListViewListener() = default;
  ListViewListener(const ListViewListener&) = delete;
  ListViewListener& operator=(const ListViewListener&) = delete;
  virtual ~ListViewListener() = default;

  virtual void OnAboutToReset() = 0;
  virtual void OnReset() = 0;
  virtual void OnItemChanged(int row) = 0;
  virtual void OnCurrentChanged() = 0;
};

/// A list of rows with one column, each with a picture and a box that can be ticked.
class ListView : public Control {
 public:
  using Control::Control;

  /// One view at a time; nullptr for none. Must outlive the list or leave before.
  void Listen(ListViewListener* listener) { listener_ = listener; }

  /// Removes all rows.
  void Clear();
  [[nodiscard]] const std::string& HeaderText() const { return header_; }
  /// Twips. A list that is sized with its window has a column that fills it, whatever the width.
  [[nodiscard]] float HeaderWidth() const { return width_; }
  void Header(std::string_view text, float width);
  /// Adds rows at the end.
  void Add(std::vector<ListItem> items);
  [[nodiscard]] int Count() const { return static_cast<int>(items_.size()); }
  [[nodiscard]] const std::vector<ListItem>& Items() const { return items_; }
  /// Rows are counted from 0. @throws RuntimeError 9 for a row that does not exist
  [[nodiscard]] const ListItem& Item(int row) const;
  /// Picture and tick by program; OnItemCheck does not run. @throws RuntimeError 9
  void Mark(int row, std::string_view icon, bool checked);
  /// The row with the keyboard, -1 for none.
  [[nodiscard]] int Current() const { return current_; }

  // ---- gestures; without effect while the list is hidden or disabled, and on a row that does not exist
  /// Goes to a row.
  void UserSelect(int row);
  /// Ticks the box of a row or takes the tick away, with OnItemCheck when that changes it; the row is then current.
  void UserCheck(int row, bool checked);

  std::function<void(int row)> OnItemCheck;

 private:
  ListViewListener* listener_ = nullptr;
  std::string header_;
  float width_ = 0;
  std::vector<ListItem> items_;
  int current_ = -1;
};

}  // namespace tavrin
