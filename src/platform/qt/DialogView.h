#pragma once

#include <QDialog>

#include "platform/controls/Form.h"
#include "platform/qt/ControlViews.h"

class QGridLayout;

namespace tavrin {

/// Draws a window that has rows of controls, by layouts: the columns of neighbouring rows stand below each other, a
/// control that is alone takes its whole row, a row of buttons stands on the right. A list, grid or tree takes the room
/// that the others leave, and a window with one can be maximised. The size of the window's place is that of the
/// content, as far as the content fits in it; without one the window is as large as it needs to be.
class DialogView : public QDialog {
 public:
  /// @param form outlives the view
  DialogView(Form& form, QWidget* parent);

  [[nodiscard]] ControlViews& Views() { return views_; }

  /// Escape: presses the cancel button, or closes the window when there is none.
  void reject() override;

 protected:
  void closeEvent(QCloseEvent* event) override;
  void changeEvent(QEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void Follow();
  void ShowSize();
  /// Tells the window its size on the screen where that differs, so that a size that is no whole number of pixels
  /// stays.
  void TellSize();
  [[nodiscard]] QSize WantedSize() const;
  /// Gives the room that is left to a cell of the layout.
  void TakeRoom(QGridLayout& grid, int row, int column);
  void AddRow(QGridLayout& grid, const std::vector<Control*>& controls, int columns);

  Form& form_;
  ControlViews views_;
  Connection changed_;
};

}  // namespace tavrin
