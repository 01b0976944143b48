#pragma once

#include <string>
#include <string_view>

namespace tavrin {

/// A text that very many objects have alike, such as the file name of all tags of a file: one pointer wide. The texts
/// are kept for the life of the process, so this is for a few different ones only.
class SharedName {
 public:
  SharedName() = default;
  explicit SharedName(std::string_view text);

  [[nodiscard]] const std::string& Text() const;

 private:
  const std::string* text_ = nullptr;  // nullptr: empty
};

}  // namespace tavrin
