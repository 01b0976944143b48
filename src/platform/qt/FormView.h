#pragma once

#include <QMainWindow>
#include <QTimer>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "platform/controls/Form.h"
#include "platform/qt/ControlViews.h"
#include "platform/qt/QtWords.h"

class QShortcut;

namespace tavrin {

class MenuView;

/// Draws a window whose controls have places: title, menu bar, and below it the controls. Shows and hides itself as the
/// window says, and tells the window what the user does with it.
class FormView : public QMainWindow {
 public:
  /// @param form and words outlive the view
  FormView(Form& form, QtWords& words);
  ~FormView() override;

  [[nodiscard]] ControlViews& Views() { return *views_; }
  /// The menus of the bar, in the order of the window.
  [[nodiscard]] const std::vector<MenuView*>& Menus() const { return menus_; }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void moveEvent(QMoveEvent* event) override;
  void changeEvent(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  void Follow();
  void SyncControls();
  void SyncMenuBar();
  void SyncShortcuts();
  void ShowPlace();
  /// Tells the window its place on the screen where that differs, so that a place that is no whole number of pixels
  /// stays.
  void TellPlace();
  [[nodiscard]] QRect WantedPlace() const;
  [[nodiscard]] int ContentHeight(float height) const;
  /// Size in pixels of the whole window without its frame.
  [[nodiscard]] QSize WholeSize(float width, float height) const;
  [[nodiscard]] QPoint IntoSight(const QRect& wanted) const;
  /// Has the action run when the timer, once started, has run down.
  void Delay(QTimer& timer, std::function<void()> action);
  void AddPaneKey(int key, bool backwards);

  Form& form_;
  QtWords& words_;
  QWidget* content_;
  std::unique_ptr<ControlViews> views_;
  std::vector<MenuView*> menus_;
  std::map<const Control*, QShortcut*> shortcuts_;
  std::size_t knownControls_ = 0;
  QTimer afterNewControls_;
  std::string droppedFile_;
  QTimer afterDrop_;
  std::vector<Connection> connections_;
};

}  // namespace tavrin
