#pragma once

#include <string>
#include <string_view>

#include "platform/controls/Control.h"

namespace tavrin {

/// A text that the user reads. A long one is broken into lines and can be read in full.
class Label : public Control {
 public:
  using Control::Control;

  [[nodiscard]] const std::string& Caption() const { return caption_; }
  void Caption(std::string_view value) { Assign(caption_, std::string(value)); }

 private:
  std::string caption_;
};

}  // namespace tavrin
