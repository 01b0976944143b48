#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/controls/Control.h"

namespace tavrin {

/// A few lines of text to read; the last one is brought into sight when it comes.
class ListBox : public Control {
 public:
  using Control::Control;

  [[nodiscard]] const std::vector<std::string>& Lines() const { return lines_; }
  void AddItem(std::string_view line);
  void Clear();

 private:
  std::vector<std::string> lines_;
};

}  // namespace tavrin
