#include "platform/qt/KeyNames.h"

#include <Qt>
#include <algorithm>
#include <array>
#include <utility>

namespace tavrin {

std::optional<Key> KeyOf(int toolkitKey) {
  static constexpr std::array<std::pair<int, Key>, 5> kKeys{{{Qt::Key_Return, Key::Enter},
                                                             {Qt::Key_Enter, Key::Enter},
                                                             {Qt::Key_Escape, Key::Escape},
                                                             {Qt::Key_Delete, Key::Delete},
                                                             {Qt::Key_F2, Key::F2}}};
  const auto found =
      std::find_if(kKeys.begin(), kKeys.end(), [&](const auto& known) { return known.first == toolkitKey; });
  return found == kKeys.end() ? std::nullopt : std::optional(found->second);
}

}  // namespace tavrin
