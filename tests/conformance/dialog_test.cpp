// Dialogs by their gestures and by keys and clicks, as modal windows of the desktop.
#include <QApplication>
#include <QLayout>
#include <QScreen>
#include <QTest>
#include <QTimer>
#include <cstdlib>
#include <functional>
#include <initializer_list>

#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/controls/Button.h"
#include "platform/controls/Grid.h"
#include "platform/controls/Label.h"
#include "platform/controls/ListBox.h"
#include "platform/controls/ListView.h"
#include "platform/controls/Picture.h"
#include "platform/controls/TextBox.h"
#include "platform/qt/DialogView.h"
#include "platform/qt/QtDesktop.h"

namespace tavrin {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

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

// ---- windows with a large control

/// A window with a grid, a list of lines, a list with boxes and its legend, a field and buttons of which none is the
/// default one.
struct LargeRig {
  LargeRig() {
    form.Caption("Report");
    form.Place({0, 0, 7500, 6000});
    grid.Shape(3, 2, 1, 0);
    grid.Editable(true);
    picture.Image("NOK");
    legend.Caption("Datei geh\xF6rt nicht zum aktuellen Projekt");
    save.Caption("Save");
    close.Caption("Close");
    close.Role(ButtonRole::Cancel);
    save.OnClick = [this] { events.emplace_back("save"); };
    close.OnClick = [this] { form.UserClose(); };
    form.OnResize = [this] { events.emplace_back("resize"); };
    form.OnUnload = [this](bool&) { events.emplace_back("unload"); };
    form.Arrangement({{&name, &field}, {&grid}, {&picture, &legend}, {&save, &close}});
    name.Caption("Name");
  }

  std::vector<std::string> events;
  Form form{"frmLarge"};
  Label name{form, "lblName"};
  TextBox field{form, "txtName"};
  Grid grid{form, "vsgTest"};
  Picture picture{form, "Picture1", PictureKind::Image};
  Label legend{form, "Label1"};
  Button save{form, "cmdAction", 0};
  Button close{form, "cmdAction", 1};
};

void ShowLarge(LargeRig& rig, const std::function<void(DialogView& view)>& act) {
  QtWords words([] { return std::string("en"); });
  QtDesktop desktop(words, [] { return std::string("Title"); });
  QTimer::singleShot(0, [&] {
    auto* const view = dynamic_cast<DialogView*>(QApplication::activeModalWidget());
    ASSERT_NE(view, nullptr);
    ASSERT_TRUE(QTest::qWaitForWindowActive(view));
    act(*view);
    rig.form.Hide();
  });
  desktop.ShowModal(rig.form);
}

TEST(LargeDialog, BeginsWithTheSizeOfItsPlace) {
  LargeRig rig;
  ShowLarge(rig, [&](const DialogView& view) { EXPECT_EQ(view.size(), QSize(500, 400)); });
  EXPECT_EQ(rig.form.Place(), (Rect{0, 0, 7500, 6000}));
}

TEST(LargeDialog, IsNeverSmallerThanWhatIsInIt) {
  LargeRig rig;
  rig.form.Place({0, 0, 15, 15});
  ShowLarge(rig, [&](const DialogView& view) {
    EXPECT_GE(view.width(), view.layout()->minimumSize().width());
    EXPECT_GE(view.height(), view.layout()->minimumSize().height());
    EXPECT_EQ(rig.form.Place().width, static_cast<float>(view.width()) * 15) << "the window knows its real size";
  });
}

TEST(LargeDialog, IsNotLargerThanTheScreen) {
  LargeRig rig;
  rig.form.Place({0, 0, 150'000, 150'000});
  ShowLarge(rig, [&](const DialogView& view) {
    const QSize screen = view.screen()->availableSize();
    EXPECT_LE(view.width(), screen.width());
    EXPECT_LE(view.height(), screen.height());
  });
}

TEST(LargeDialog, WithoutAPlaceIsAsLargeAsItNeedsToBe) {
  LargeRig rig;
  rig.form.Place({});
  ShowLarge(rig, [&](const DialogView& view) {
    EXPECT_GE(view.height(), view.layout()->minimumSize().height());
    EXPECT_LT(view.width(), view.screen()->availableSize().width());
  });
}

TEST(LargeDialog, TheRoomThatIsLeftGoesToTheLargeControl) {
  LargeRig rig;
  ShowLarge(rig, [&](DialogView& view) {
    const auto heightOf = [&](const Control& control) { return view.Views().WidgetOf(control)->height(); };
    const int grid = heightOf(rig.grid);
    const int field = heightOf(rig.field);
    const int legend = heightOf(rig.legend);
    view.resize(view.width() + 100, view.height() + 200);
    QCoreApplication::processEvents();
    EXPECT_EQ(heightOf(rig.grid), grid + 200);
    EXPECT_EQ(heightOf(rig.field), field);
    EXPECT_EQ(heightOf(rig.legend), legend);
    EXPECT_EQ(view.Views().WidgetOf(rig.grid)->width(), view.width() - 2 * view.layout()->contentsMargins().left());
  });
}

TEST(LargeDialog, TheUserSizesItAndTheWindowIsTold) {
  LargeRig rig;
  ShowLarge(rig, [&](DialogView& view) {
    rig.events.clear();
    view.resize(600, 480);
    QCoreApplication::processEvents();
    EXPECT_THAT(rig.events, ElementsAre("resize"));
    EXPECT_EQ(rig.form.Place(), (Rect{0, 0, 9000, 7200}));
    rig.form.Place({0, 0, 8250, 6300});
    EXPECT_EQ(view.size(), QSize(550, 420)) << "the program sizes it";
  });
}

TEST(LargeDialog, ASizeThatIsNoWholeNumberOfPixelsStaysAsItIs) {
  LargeRig rig;
  rig.form.Place({0, 0, 7507, 6004});
  ShowLarge(rig, [](const DialogView&) {});
  EXPECT_EQ(rig.form.Place(), (Rect{0, 0, 7507, 6004}));
}

TEST(LargeDialog, CanBeMaximised) {
  LargeRig rig;
  ShowLarge(rig, [&](DialogView& view) {
    EXPECT_TRUE(view.windowFlags().testFlag(Qt::WindowMaximizeButtonHint));
    view.showMaximized();
    EXPECT_TRUE(QTest::qWaitFor([&] { return rig.form.State() == WindowState::Maximised; }));
  });
  Shown([](DialogView& view, DialogRig&) {
    EXPECT_FALSE(view.windowFlags().testFlag(Qt::WindowMaximizeButtonHint)) << "there would be nothing to see more of";
  });
}

TEST(LargeDialog, EnterPressesNoButtonThatWasNotChosen) {
  LargeRig rig;
  ShowLarge(rig, [&](DialogView& view) {
    rig.field.SetFocus();
    rig.events.clear();
    QTest::keyClick(view.focusWidget(), Qt::Key_Return);
    EXPECT_THAT(rig.events, IsEmpty());
    EXPECT_TRUE(rig.form.Visible());
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) {
      rig.save.SetFocus();
      QTest::keyClick(view.focusWidget(), key);
    }
    EXPECT_THAT(rig.events, ElementsAre("save", "save", "save"));
  });
}

TEST(LargeDialog, EscapeClosesItFromWithinTheLargeControl) {
  LargeRig rig;
  ShowLarge(rig, [&](DialogView& view) {
    rig.grid.SetFocus();
    rig.events.clear();
    QTest::keyClick(view.focusWidget(), Qt::Key_Escape);
    EXPECT_FALSE(rig.form.Visible());
    EXPECT_THAT(rig.events, ElementsAre("unload"));
  });
}

TEST(LargeDialog, AGridInItIsEditedAndClosingEndsTheEdit) {
  LargeRig rig;
  ShowLarge(rig, [&](DialogView& view) {
    rig.grid.SetFocus();
    rig.grid.UserSelect({1, 0});
    QTest::keyClick(view.focusWidget(), Qt::Key_F2);
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("x"));
    ASSERT_NE(rig.grid.OpenEdit(), nullptr);
    view.close();
    EXPECT_EQ(rig.grid.Text({1, 0}), "x");
    EXPECT_FALSE(view.isVisible());
  });
}

TEST(LargeDialog, APictureStandsBesideItsLegendInItsOwnSize) {
  LargeRig rig;
  ShowLarge(rig, [&](DialogView& view) {
    const QWidget& picture = *view.Views().WidgetOf(rig.picture);
    const QWidget& legend = *view.Views().WidgetOf(rig.legend);
    EXPECT_EQ(picture.size(), QSize(16, 16));
    EXPECT_LT(picture.geometry().right(), legend.geometry().left());
    EXPECT_LE(std::abs(picture.geometry().center().y() - legend.geometry().center().y()), 2);
    rig.picture.Place({0, 0, 480, 360});
    QCoreApplication::processEvents();
    EXPECT_EQ(picture.size(), QSize(32, 24));
  });
}

TEST(LargeDialog, AShortLabelIsNotBrokenWhileThereIsRoom) {
  LargeRig rig;
  rig.name.Caption("Anzahl Testdurchl\xE4ufe in diesem Lauf");
  ShowLarge(rig, [&](DialogView& view) {
    const QWidget& label = *view.Views().WidgetOf(rig.name);
    EXPECT_GE(label.width(),
              label.fontMetrics().horizontalAdvance(QStringLiteral("Anzahl Testdurchläufe in diesem Lauf")));
  });
}

TEST(LargeDialog, AButtonBesideAFieldKeepsItsSize) {
  Form form("frmLarge");
  TextBox field(form, "txtName");
  Button start(form, "cmdStart");
  ListBox lines(form, "List1");
  form.Arrangement({{&field, &start}, {&lines}});
  form.Place({0, 0, 15'000, 6000});
  DialogView view(form, nullptr);
  form.Show();
  view.show();
  const QWidget& button = *view.Views().WidgetOf(start);
  EXPECT_EQ(button.width(), button.sizeHint().width());
}

TEST(LargeDialog, LinesAndRowsWithBoxesTakeTheRoomTheSame) {
  Form form("frmLarge");
  ListView rows(form, "ListView1");
  ListBox lines(form, "List1");
  Button close(form, "cmdAction");
  for (Control* const large : std::initializer_list<Control*>{&rows, &lines}) {
    form.Arrangement({{large}, {&close}});
    form.Place({0, 0, 6000, 6000});
    DialogView view(form, nullptr);
    form.Show();
    view.show();
    const int height = view.Views().WidgetOf(*large)->height();
    EXPECT_GT(height, 300);
    view.resize(400, 500);
    QCoreApplication::processEvents();
    EXPECT_EQ(view.Views().WidgetOf(*large)->height(), height + 100) << large->Name();
    form.Hide();
  }
}

}  // namespace
}  // namespace tavrin
