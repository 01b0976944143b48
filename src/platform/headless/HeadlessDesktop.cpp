#include "platform/headless/HeadlessDesktop.h"

#include <utility>

namespace tavrin {

void HeadlessDesktop::ShowBox(std::string_view text) {
  if (boxes_.size() < kMost) boxes_.emplace_back(text);
}

bool HeadlessDesktop::AskYesNo(std::string_view text) {
  questions_.emplace_back(text);
  if (answers_.empty()) {
    unexpected_.emplace_back(text);
    return false;
  }
  const bool yes = answers_.front();
  answers_.pop_front();
  return yes;
}

std::vector<std::string> HeadlessDesktop::TakeBoxes() { return std::exchange(boxes_, {}); }

}  // namespace tavrin
