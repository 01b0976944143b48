#pragma once

#include <algorithm>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace tavrin {

/// Keeps a listener of a Signal alive; letting it go ends the listening.
using Connection = std::shared_ptr<const void>;

/// Tells any number of listeners that something has happened. A listener may come and go while it is told.
template <class... Args>
class Signal {
 public:
  using Listener = std::function<void(Args...)>;

  Signal() = default;
  Signal(const Signal&) = delete;
  Signal& operator=(const Signal&) = delete;

  [[nodiscard]] Connection Connect(Listener listener) {
    std::erase_if(listeners_, [](const auto& known) { return known.expired(); });
    auto held = std::make_shared<const Listener>(std::move(listener));
    listeners_.push_back(held);
    return held;
  }

  void operator()(Args... args) const {
    const auto told = listeners_;
    for (const auto& known : told) {
      if (const auto listener = known.lock()) (*listener)(args...);
    }
  }

 private:
  std::vector<std::weak_ptr<const Listener>> listeners_;
};

}  // namespace tavrin
