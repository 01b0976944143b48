#include "platform/qt/ControlViews.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QLineEdit>
#include <algorithm>
#include <array>

#include "platform/qt/ButtonView.h"
#include "platform/qt/FieldView.h"
#include "platform/qt/GridView.h"
#include "platform/qt/LabelView.h"
#include "platform/qt/ListBoxView.h"
#include "platform/qt/ListViewView.h"
#include "platform/qt/PictureView.h"
#include "platform/qt/TimerView.h"
#include "platform/qt/ToolbarView.h"
#include "platform/qt/TreeView.h"
#include "platform/qt/ViewCommon.h"

namespace tavrin {

namespace {

using Maker = QWidget* (*)(Control&, QWidget*);

template <class C, class View>
QWidget* Make(Control& control, QWidget* parent) {
  auto* const wanted = dynamic_cast<C*>(&control);
  return wanted == nullptr ? nullptr : new View(*wanted, parent);
}

constexpr std::array<Maker, 10> kMakers{Make<TextBox, TextBoxView>,   Make<RadioButton, RadioButtonView>,
                                        Make<Grid, GridView>,         Make<Tree, TreeView>,
                                        Make<Picture, PictureView>,   Make<Toolbar, ToolbarView>,
                                        Make<Button, ButtonView>,     Make<CheckBox, CheckBoxView>,
                                        Make<ListView, ListViewView>, Make<ListBox, ListBoxView>};

QWidget* MakeView(Control& control, QWidget* parent, ControlViews::Places places) {
  const bool atPlace = places == ControlViews::Places::OfControls;
  if (auto* view = (atPlace ? Make<Label, LabelView> : Make<Label, TextLabel>)(control, parent)) return view;
  for (const Maker maker : kMakers) {
    if (auto* view = maker(control, parent)) return view;
  }
  return nullptr;
}

}  // namespace

ControlViews::ControlViews(Form& form, QWidget& parent, Places places) : form_(form), parent_(parent), places_(places) {
  connections_.push_back(form.FocusChanged.Connect([this] { ShowFocus(); }));
  QObject::connect(qApp, &QApplication::focusChanged, &context_,
                   [this](const QWidget* /*before*/, QWidget* now) { TellFocus(now); });
  Sync();
}

void ControlViews::Sync() {
  // By position: a view may run handlers that make further controls.
  for (std::size_t i = 0; i < form_.Controls().size(); ++i) {
    Control& control = *form_.Controls()[i];
    if (!views_.contains(&control)) Add(control);
  }
}

void ControlViews::Add(Control& control) {
  views_.emplace(&control, nullptr);
  // Before the view's own: a widget that is about to be hidden gives the keyboard up first.
  connections_.push_back(control.Changed.Connect([this, &control] { Follow(control); }));
  if (auto* const timer = dynamic_cast<Timer*>(&control)) new TimerView(*timer, &parent_);
  QWidget* const view = MakeView(control, &parent_, places_);
  if (view == nullptr) return;
  views_[&control] = view;
  Follow(control);
  view->setVisible(control.Visible());
}

QWidget* ControlViews::WidgetOf(const Control& control) const {
  const auto found = views_.find(&control);
  return found == views_.end() ? nullptr : found->second;
}

void ControlViews::Follow(const Control& control) {
  QWidget* const view = WidgetOf(control);
  if (view == nullptr) return;
  QWidget* const focused = parent_.window()->focusWidget();
  // The toolkit would hand the keyboard on to a neighbour, which the program has not asked for.
  if (!control.Visible() && focused != nullptr && (focused == view || view->isAncestorOf(focused))) {
    focused->clearFocus();
  }
  if (places_ == Places::OfControls) view->setGeometry(ToPixels(parent_, control.Place()));
}

void ControlViews::TellFocus(QWidget* focused) {
  if (focused == nullptr || !parent_.isAncestorOf(focused)) return;
  // By position: the handlers may make further controls.
  for (std::size_t i = 0; i < form_.Controls().size(); ++i) {
    Control& control = *form_.Controls()[i];
    const QWidget* const view = WidgetOf(control);
    if (view != nullptr && (view == focused || view->isAncestorOf(focused))) return control.UserFocus();
  }
}

void ControlViews::ShowFocus() {
  const Control* const control = form_.FocusedControl();
  QWidget* const view = control == nullptr ? nullptr : WidgetOf(*control);
  if (view != nullptr && !view->hasFocus()) view->setFocus(Qt::OtherFocusReason);
}

std::vector<QWidget*> ControlViews::Panes() const {
  std::vector<QWidget*> panes;
  for (const auto& [control, view] : views_) {
    if (qobject_cast<QAbstractItemView*>(view) != nullptr && view->isVisible() && view->isEnabled()) {
      panes.push_back(view);
    }
  }
  std::sort(panes.begin(), panes.end(), [](const QWidget* left, const QWidget* right) {
    return std::pair(left->x(), left->y()) < std::pair(right->x(), right->y());
  });
  return panes;
}

void ControlViews::WalkPanes(bool backwards) {
  const std::vector<QWidget*> panes = Panes();
  if (panes.empty()) return;
  const QWidget* const focused = parent_.window()->focusWidget();
  const auto current = std::find_if(panes.begin(), panes.end(), [focused](const QWidget* pane) {
    return pane == focused || (focused != nullptr && pane->isAncestorOf(focused));
  });
  const std::size_t count = panes.size();
  const auto at = static_cast<std::size_t>(current - panes.begin());
  const std::size_t next = at == count ? (backwards ? count - 1 : 0) : (at + (backwards ? count - 1 : 1)) % count;
  panes[next]->setFocus(backwards ? Qt::BacktabFocusReason : Qt::TabFocusReason);
}

}  // namespace tavrin
