#pragma once

#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

#include "platform/qt/DialogView.h"

namespace tavrin {

/// A window of the tools on the screen.
template <class Window>
struct ShownWindow {
  ShownWindow() {
    form.Show();
    view.show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&view));
  }

  /// The button of a caption; nullptr when there is none.
  [[nodiscard]] QPushButton* ButtonOf(const char* caption) const {
    for (QPushButton* button : view.template findChildren<QPushButton*>()) {
      if (button->text() == QLatin1String(caption)) return button;
    }
    return nullptr;
  }
  /// Presses the button of a caption.
  void Press(const char* caption) const {
    QPushButton* const button = ButtonOf(caption);
    ASSERT_NE(button, nullptr) << caption;
    QTest::mouseClick(button, Qt::LeftButton);
  }
  template <class Kind>
  [[nodiscard]] Kind& Widget() {
    return *view.template findChild<Kind*>();
  }

  Window form;
  DialogView view{form, nullptr};
};

}  // namespace tavrin
