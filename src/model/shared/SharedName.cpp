#include "model/shared/SharedName.h"

#include <functional>
#include <set>

namespace tavrin {

SharedName::SharedName(std::string_view text) {
  static std::set<std::string, std::less<>> kept;
  static const std::string* last = nullptr;  // the same name is mostly asked for many times in a row
  if (text.empty()) return;
  if (last == nullptr || *last != text) {
    auto found = kept.find(text);
    if (found == kept.end()) found = kept.emplace(text).first;
    last = &*found;
  }
  text_ = last;
}

const std::string& SharedName::Text() const {
  static const std::string kEmpty;
  return text_ == nullptr ? kEmpty : *text_;
}

}  // namespace tavrin
