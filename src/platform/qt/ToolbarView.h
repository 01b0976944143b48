#pragma once

#include <QToolButton>
#include <QWidget>
#include <vector>

#include "platform/controls/Toolbar.h"

namespace tavrin {

/// Draws a tool bar as a row of flat picture buttons, which never take the keyboard.
class ToolbarView : public QWidget {
 public:
  ToolbarView(Toolbar& toolbar, QWidget* parent);

  /// The widget of the button with the number; nullptr for none.
  [[nodiscard]] QToolButton* Button(int index) const;

 private:
  void Follow(const Toolbar& toolbar);
  QToolButton* MakeButton(ToolButton& button);

  std::vector<std::pair<int, QToolButton*>> buttons_;
  std::vector<Connection> connections_;
};

}  // namespace tavrin
