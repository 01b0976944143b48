// Dialogs by their gestures and by keys and clicks, as modal windows of the desktop.
#include <QApplication>
#include <QTest>
#include <QTimer>
#include <functional>

#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/controls/Button.h"
#include "platform/controls/Label.h"
#include "platform/qt/DialogView.h"
#include "platform/qt/QtDesktop.h"

namespace tavrin {
namespace {

using testing::ElementsAre;

/// A dialog with a text, two boxes and two buttons, each of which closes it.
struct DialogRig {
  DialogRig() {
    form.Caption("Options");
    text.Caption("Choose");
    first.Caption("&First");
    second.Caption("&Second");
    second.Enabled(false);
    ok.Caption("&OK");
    ok.Role(ButtonRole::Default);
    cancel.Caption("Cancel");
    cancel.Role(ButtonRole::Cancel);
    ok.OnClick = [this] { Close("ok"); };
    cancel.OnClick = [this] { Close("cancel"); };
    first.OnClick = [this] { events.emplace_back("first"); };
    form.OnUnload = [this](bool&) { events.emplace_back("unload"); };
    form.Arrangement({{&text}, {&first, &second}, {&ok, &cancel}});
  }

  void Close(const char* event) {
    events.emplace_back(event);
    form.Hide();
  }
  [[nodiscard]] std::string Snapshot() const {
    const Control* const focused = form.FocusedControl();
    return fmt::format("{} {} {} {} {}", form.Visible(), first.Checked(), second.Checked(),
                       focused == nullptr ? "nothing" : focused->Name(), fmt::join(events, ","));
  }

  std::vector<std::string> events;
  Form form{"frmTest"};
  Label text{form, "lblText"};
  CheckBox first{form, "chkFirst"};
  CheckBox second{form, "chkSecond"};
  Button ok{form, "cmdAction", 0};
  Button cancel{form, "cmdAction", 1};
};

/// Opens the dialog on the desktop and acts in it as soon as it is there.
std::string Shown(const std::function<void(DialogView& view, DialogRig& rig)>& act) {
  DialogRig rig;
  QtWords words([] { return std::string("en"); });
  QtDesktop desktop(words, [] { return std::string("Title"); });
  QTimer::singleShot(0, [&] {
    auto* const view = dynamic_cast<DialogView*>(QApplication::activeModalWidget());
    ASSERT_NE(view, nullptr);
    ASSERT_TRUE(QTest::qWaitForWindowActive(view));
    act(*view, rig);
    if (rig.form.Visible()) rig.Close("not closed");
  });
  desktop.ShowModal(rig.form);
  return rig.Snapshot();
}

std::string Plain(const std::function<void(DialogRig& rig)>& act) {
  DialogRig rig;
  rig.form.Show();
  rig.first.UserFocus();
  act(rig);
  return rig.Snapshot();
}

TEST(Dialog, SpaceTicksABoxAndEnterPressesTheDefaultButton) {
  const std::string plain = Plain([](DialogRig& rig) {
    rig.first.UserClick();
    rig.ok.UserClick();
  });
  const std::string shown = Shown([](DialogView& view, DialogRig&) {
    QTest::keyClick(view.focusWidget(), Qt::Key_Space);
    QTest::keyClick(view.focusWidget(), Qt::Key_Return);
  });
  EXPECT_EQ(shown, plain);
  EXPECT_EQ(shown, "false true false chkFirst first,ok");
}

TEST(Dialog, EscapePressesTheCancelButton) {
  const std::string plain = Plain([](DialogRig& rig) { rig.cancel.UserClick(); });
  const std::string shown = Shown([](DialogView& view, DialogRig&) { QTest::keyClick(&view, Qt::Key_Escape); });
  EXPECT_EQ(shown, plain);
}

TEST(Dialog, TheCloseBoxUnloadsTheWindow) {
  const std::string plain = Plain([](DialogRig& rig) { rig.form.UserClose(); });
  const std::string shown = Shown([](DialogView& view, DialogRig&) { view.close(); });
  EXPECT_EQ(shown, plain);
  EXPECT_EQ(shown, "false false false chkFirst unload");
}

TEST(Dialog, AWindowThatRefusesToCloseStays) {
  Shown([](DialogView& view, DialogRig& rig) {
    rig.form.OnUnload = [](bool& cancel) { cancel = true; };
    view.close();
    EXPECT_TRUE(view.isVisible());
    EXPECT_TRUE(rig.form.Visible());
  });
}

TEST(Dialog, AClickOnABoxMovesTheKeyboardToIt) {
  Shown([](DialogView& view, DialogRig& rig) {
    rig.second.Enabled(true);
    QWidget* const box = view.Views().WidgetOf(rig.second);
    QTest::mouseClick(box, Qt::LeftButton, Qt::NoModifier, {8, box->height() / 2});
    EXPECT_TRUE(rig.second.Checked());
    EXPECT_TRUE(rig.second.Focused());
  });
}

TEST(Dialog, TheTabKeyWalksInTheOrderOfTheControls) {
  Shown([](DialogView& view, DialogRig& rig) {
    rig.second.Enabled(true);
    std::vector<std::string> order;
    for (int i = 0; i < 4; ++i) {
      order.push_back(rig.form.FocusedControl()->Name() + std::to_string(rig.form.FocusedControl()->Index()));
      QTest::keyClick(view.focusWidget(), Qt::Key_Tab);
    }
    EXPECT_THAT(order, ElementsAre("chkFirst0", "chkSecond0", "cmdAction0", "cmdAction1"));
  });
}

TEST(Dialog, TheProgramMovesTheKeyboard) {
  Shown([](DialogView& view, DialogRig& rig) {
    rig.cancel.SetFocus();
    EXPECT_TRUE(view.Views().WidgetOf(rig.cancel)->hasFocus());
  });
}

TEST(Dialog, LongWordsMakeItLargerAndAreNeverClipped) {
  Shown([](DialogView& view, DialogRig& rig) {
    rig.first.Caption("Donaudampfschifffahrtsgesellschaftskapit\xE4nsm\xFCtzenabzeichen");
    rig.cancel.Caption("Rechtsschutzversicherungsgesellschaften");
    QCoreApplication::processEvents();
    for (const Control* control : rig.form.Controls()) {
      const QWidget& widget = *view.Views().WidgetOf(*control);
      EXPECT_GE(widget.width(), widget.minimumSizeHint().width()) << control->Name();
      EXPECT_LE(widget.geometry().right(), view.width()) << control->Name();
    }
    EXPECT_GE(view.Views().WidgetOf(rig.first)->width(), view.Views().WidgetOf(rig.first)->sizeHint().width());
  });
}

TEST(Dialog, ItsTitleIsTheCaption) {
  Shown([](DialogView& view, DialogRig&) { EXPECT_EQ(view.windowTitle(), QStringLiteral("Options")); });
}

}  // namespace
}  // namespace tavrin
