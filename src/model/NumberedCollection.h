#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "model/shared/OwnedIterator.h"
#include "model/shared/modMain.h"
#include "platform/NumberText.h"
#include "platform/RuntimeError.h"

namespace tavrin {

/// The labels under which a collection's errors are reported.
struct CollectionLabels {
  std::string_view addItem;
  std::string_view generateNewKey;
};

/// Ordered collection of objects that get a number when they are added. The number is unique in the collection, never
/// stored on disk, and with "#" before it the object's key ("#1"). A number freed at the top is given again.
template <class T>
class NumberedCollection {
 public:
  explicit NumberedCollection(CollectionLabels labels) : labels_(labels) {}
  NumberedCollection(const NumberedCollection&) = delete;
  NumberedCollection& operator=(const NumberedCollection&) = delete;

  /// @param position counted from 1 @return nullptr for an unknown position
  [[nodiscard]] T* At(std::int32_t position) const { return Get(IndexOf(position)); }
  /// @param key "#" and the object's number @return nullptr for an unknown key
  [[nodiscard]] T* At(std::string_view key) const { return Get(IndexOf(key)); }

  [[nodiscard]] std::int32_t Count() const { return static_cast<std::int32_t>(items_.size()); }

  /// Removes and destroys an object by position or key. @throws RuntimeError 9 or 5 for an unknown one
  void Remove(std::int32_t position) { Erase(IndexOf(position), ErrorNumber::SubscriptOutOfRange); }
  void Remove(std::string_view key) { Erase(IndexOf(key), ErrorNumber::InvalidCall); }

  /// Gives the object its number and takes it over. A failure goes to the error trap, and the object is gone.
  void AddItem(std::unique_ptr<T> item) try {
    item->nID(GenerateNewKey());
    const std::string key = Key(item->nID());
    if (IndexOf(std::string_view(key)) != kNowhere) throw RuntimeError(ErrorNumber::KeyInUse);
    items_.reserve(items_.size() + 1);  // so that nothing can fail between the two
    keys_.push_back(key);
    items_.push_back(std::move(item));
  } catch (...) {
    modMain::Trap(labels_.addItem);
  }

  /// Loads each object in order; their results concern nobody, their warnings reach the user.
  void Refresh() {
    for (T& item : *this) {
      bool bOK = true;
      item.Refresh(bOK);
    }
  }

  [[nodiscard]] OwnedIterator<T> begin() const { return OwnedIterator<T>(items_.begin()); }
  [[nodiscard]] OwnedIterator<T> end() const { return OwnedIterator<T>(items_.end()); }

 private:
  static constexpr std::size_t kNowhere = std::numeric_limits<std::size_t>::max();

  static std::string Key(std::int32_t number) { return "#" + std::to_string(number); }

  [[nodiscard]] T* Get(std::size_t index) const { return index == kNowhere ? nullptr : items_[index].get(); }

  [[nodiscard]] std::size_t IndexOf(std::int32_t position) const {
    return position >= 1 && position <= Count() ? static_cast<std::size_t>(position) - 1 : kNowhere;
  }
  [[nodiscard]] std::size_t IndexOf(std::string_view key) const {
    for (std::size_t i = 0; i < keys_.size(); ++i) {
      if (keys_[i] == key) return i;
    }
    return kNowhere;
  }

  void Erase(std::size_t index, ErrorNumber whenUnknown) {
    if (index == kNowhere) throw RuntimeError(whenUnknown);
    keys_.erase(keys_.begin() + static_cast<std::ptrdiff_t>(index));
    items_.erase(items_.begin() + static_cast<std::ptrdiff_t>(index));
  }

  /// The highest number in the collection plus 1; 1 for an empty one.
  [[nodiscard]] std::int32_t GenerateNewKey() const {
    std::int32_t next = 1;
    try {
      for (const auto& item : items_) next = std::max(next, NextNumber(item->nID()));
    } catch (...) {
      modMain::Trap(labels_.generateNewKey);
    }
    return next;
  }

  CollectionLabels labels_;
  std::vector<std::string> keys_;  // of items_, position by position; a later change of nID does not change a key
  std::vector<std::unique_ptr<T>> items_;
};

}  // namespace tavrin
