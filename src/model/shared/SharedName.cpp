#include "model/shared/SharedName.h"

#include <functional>
#include <set>

namespace tavrin {

SharedName::SharedName(std::string_view text) {
  static std::set<std::string, std::less<>> kept;
  if (text.empty()) return;
  auto found = kept.find(text);
  if (found == kept.end()) found = kept.emplace(text).first;
  text_ = &*found;
}

const std::string& SharedName::Text() const {
  static const std::string kEmpty;
  return text_ == nullptr ? kEmpty : *text_;
}

}  // namespace tavrin
