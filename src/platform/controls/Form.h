#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/controls/Control.h"

namespace tavrin {

class Button;
class MenuEntry;

/// States of a window; only the normal one has a place of its own.
enum class WindowState { Normal, Minimised, Maximised };

/// A window: its caption, its place on the screen, and the controls that register with it. Which controls it has and
/// what they do is the matter of the class that derives from it.
class Form {
 public:
  explicit Form(std::string name);
  Form(const Form&) = delete;
  Form& operator=(const Form&) = delete;
  virtual ~Form();

  [[nodiscard]] const std::string& Name() const { return name_; }
  [[nodiscard]] const std::string& Caption() const { return caption_; }
  void Caption(std::string_view value);

  /// Present outer place of the window. The height includes the title and the menu bar, which are taken
  /// as kTitleHeight whatever they really are.
  [[nodiscard]] const Rect& Place() const { return place_; }
  /// A change of the size of a shown window runs OnResize, as does showing it: it may have changed meanwhile.
  void Place(const Rect& value);
  static constexpr float kTitleHeight = 570;
  /// Below this size the user cannot pull the window.
  [[nodiscard]] float MinimumWidth() const { return minimumWidth_; }
  [[nodiscard]] float MinimumHeight() const { return minimumHeight_; }
  void MinimumSize(float width, float height);

  [[nodiscard]] WindowState State() const { return state_; }
  [[nodiscard]] bool Visible() const { return visible_; }
  void Show();
  /// Closes without asking: no handler runs. A modal window so comes to its end.
  void Hide();

  /// The arrangement of a dialog: rows of controls that are drawn by layouts; nullptr leaves a place empty. A window
  /// without rows has its controls at their places.
  using Rows = std::vector<std::vector<Control*>>;
  [[nodiscard]] const Rows& Arrangement() const { return arrangement_; }
  void Arrangement(Rows rows) { arrangement_ = std::move(rows); }

  /// The entries of the menu bar from left to right.
  [[nodiscard]] const std::vector<MenuEntry*>& MenuBar() const { return menuBar_; }
  void MenuBar(std::vector<MenuEntry*> entries) { menuBar_ = std::move(entries); }

  /// All controls in the order in which they were made, which is the order of the Tab key.
  [[nodiscard]] const std::vector<Control*>& Controls() const { return controls_; }
  /// @return nullptr for an unknown control
  [[nodiscard]] Control* Find(std::string_view name, int index = 0) const;

  /// The control that has the keyboard, nullptr when none has.
  [[nodiscard]] Control* FocusedControl() const { return focused_; }
  /// Ends an edit that is open anywhere in the window. Every gesture that begins a command calls it first, so that
  /// no command ever works with the value before the edit.
  void EndPendingEdits();

  /// The user, or the system for him, moves or sizes the window; in every state.
  void UserPlace(const Rect& place);
  void UserState(WindowState state);
  /// The close box: runs OnUnload and hides the window unless the handler cancels.
  void UserClose();
  /// A file is dropped on the window.
  void UserDropFile(std::string_view path);

  std::function<void()> OnResize;
  std::function<void(bool& cancel)> OnUnload;
  std::function<void(const std::string& path)> OnDropFile;

  /// Caption, place, state or visibility has changed; controls have come or gone.
  Signal<> Changed;
  /// The focused control has changed by program.
  Signal<> FocusChanged;

 private:
  friend class Control;
  void Register(Control& control);
  void Forget(Control& control);
  void Focus(Control& control);
  void LoseFocus();

  std::string name_;
  std::string caption_;
  Rect place_;
  float minimumWidth_ = 0;
  float minimumHeight_ = 0;
  WindowState state_ = WindowState::Normal;
  bool visible_ = false;
  Rows arrangement_;
  std::vector<MenuEntry*> menuBar_;
  std::vector<Control*> controls_;
  Control* focused_ = nullptr;
};

}  // namespace tavrin
