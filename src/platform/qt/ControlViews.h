#pragma once

#include <QObject>
#include <QWidget>
#include <unordered_map>
#include <vector>

#include "platform/controls/Form.h"

namespace tavrin {

/// The widgets of the controls of a window: makes one for each control by its class, keeps it at the control's place,
/// and keeps the keyboard's owner the same on both sides. Controls outlive their views.
class ControlViews {
 public:
  /// Where the widgets are: at the places of their controls, or wherever a layout puts them.
  enum class Places { OfControls, OfLayouts };

  /// @param parent of the widgets, outlives this
  ControlViews(Form& form, QWidget& parent, Places places);

  /// Makes the widgets of the controls that have none yet. Menu entries and tool buttons are drawn by others.
  void Sync();
  /// nullptr for a control without a widget of its own.
  [[nodiscard]] QWidget* WidgetOf(const Control& control) const;
  /// Gives the keyboard to the next or previous of the large controls, the tables and trees, that are in sight.
  void WalkPanes(bool backwards);
  /// Gives the keyboard to the widget of the control that has it in the window.
  void ShowFocus();

 private:
  void Add(Control& control);
  void Follow(const Control& control);
  void TellFocus(QWidget* focused);
  [[nodiscard]] std::vector<QWidget*> Panes() const;

  Form& form_;
  QWidget& parent_;
  Places places_;
  std::unordered_map<const Control*, QWidget*> views_;
  std::vector<Connection> connections_;
  QObject context_;
};

}  // namespace tavrin
