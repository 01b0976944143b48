#pragma once

#include <QDialog>

#include "platform/controls/Form.h"
#include "platform/qt/ControlViews.h"

class QGridLayout;

namespace tavrin {

/// Draws a window that has rows of controls, by layouts: the columns of neighbouring rows stand below each other, a
/// control that is alone takes its whole row, a row of buttons stands on the right.
class DialogView : public QDialog {
 public:
  /// @param form outlives the view
  DialogView(Form& form, QWidget* parent);

  [[nodiscard]] ControlViews& Views() { return views_; }

  /// Escape: presses the cancel button, or closes the window when there is none.
  void reject() override;

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void Follow();
  void AddRow(QGridLayout& grid, const std::vector<Control*>& controls, int columns);

  Form& form_;
  ControlViews views_;
  Connection changed_;
};

}  // namespace tavrin
