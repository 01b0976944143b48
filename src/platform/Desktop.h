#pragma once

#include <string_view>

namespace tavrin {

/// How the program talks to its user. Texts are in the code page (platform/CodePage.h).
class Desktop {
 public:
  Desktop() = default;
  Desktop(const Desktop&) = delete;
  Desktop& operator=(const Desktop&) = delete;
  virtual ~Desktop() = default;

  /// Shows a box with an OK button and returns when the user has closed it.
  virtual void ShowBox(std::string_view text) = 0;

  /// Shows a box with Yes and No; true only for Yes.
  [[nodiscard]] virtual bool AskYesNo(std::string_view text) = 0;
};

}  // namespace tavrin
