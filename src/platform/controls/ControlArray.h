#pragma once

#include <map>
#include <memory>
#include <string>
#include <utility>

#include "platform/RuntimeError.h"
#include "platform/controls/Control.h"

namespace tavrin {

/// Controls of one name, told apart by a number: mnuFile(3). The numbers may have gaps.
template <class T>
class ControlArray {
 public:
  ControlArray(Form& form, std::string name) : form_(form), name_(std::move(name)) {}

  [[nodiscard]] const std::string& Name() const { return name_; }
  [[nodiscard]] bool Has(int index) const { return items_.contains(index); }
  /// @throws RuntimeError 9 for a number without a control
  [[nodiscard]] T& operator()(int index) const {
    const auto found = items_.find(index);
    if (found == items_.end()) throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
    return *found->second;
  }
  /// Makes a further control. @throws RuntimeError 457 when the number has one
  T& Load(int index) {
    auto& item = items_[index];
    if (item) throw RuntimeError(ErrorNumber::KeyInUse);
    item = std::make_unique<T>(form_, name_, index);
    return *item;
  }

  [[nodiscard]] std::size_t Count() const { return items_.size(); }
  /// Runs `action` with each control in the order of the numbers.
  template <class Action>
  void ForEach(Action&& action) const {
    for (const auto& [index, item] : items_) action(*item);
  }

 private:
  Form& form_;
  std::string name_;
  std::map<int, std::unique_ptr<T>> items_;
};

}  // namespace tavrin
