#pragma once

#include <cstddef>
#include <iterator>
#include <memory>
#include <vector>

namespace tavrin {

/// Walks a vector of owned objects as references.
template <class T>
class OwnedIterator {
 public:
  using iterator_category = std::forward_iterator_tag;
  using value_type = T;
  using difference_type = std::ptrdiff_t;
  using pointer = T*;
  using reference = T&;
  using Base = typename std::vector<std::unique_ptr<T>>::const_iterator;

  OwnedIterator() = default;
  explicit OwnedIterator(Base base) : base_(base) {}
  T& operator*() const { return **base_; }
  T* operator->() const { return base_->get(); }
  OwnedIterator& operator++() {
    ++base_;
    return *this;
  }
  OwnedIterator operator++(int) {
    OwnedIterator old = *this;
    ++base_;
    return old;
  }
  friend bool operator==(const OwnedIterator&, const OwnedIterator&) = default;

 private:
  Base base_{};
};

}  // namespace tavrin
