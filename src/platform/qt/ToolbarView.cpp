#include "platform/qt/ToolbarView.h"

#include <QHBoxLayout>

#include "platform/controls/MenuEntry.h"
#include "platform/qt/Icons.h"
#include "platform/qt/Text.h"
#include "platform/qt/ViewCommon.h"

namespace tavrin {

namespace {

constexpr float kIconSize = 240;  // twips
constexpr float kGap = 120;

void Show(QToolButton& view, const ToolButton& button) {
  ShowCommon(view, button);
  view.setIcon(IconOf(button.Image()));
  const std::string& name = button.SpokenName().empty() ? button.ToolTip() : button.SpokenName();
  view.setAccessibleName(ToQt(WithoutMnemonic(name)));
}

}  // namespace

ToolbarView::ToolbarView(Toolbar& toolbar, QWidget* parent) : QWidget(parent) {
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(0);
  int next = 1;
  toolbar.Buttons.ForEach([&](ToolButton& button) {
    if (button.Index() > next) row->addSpacing(ToPixels(*this, kGap));
    next = button.Index() + 1;
    row->addWidget(MakeButton(button));
  });
  row->addStretch();
  connections_.push_back(toolbar.Changed.Connect([this, &toolbar] { Follow(toolbar); }));
  Follow(toolbar);
}

void ToolbarView::Follow(const Toolbar& toolbar) { ShowCommon(*this, toolbar); }

QToolButton* ToolbarView::MakeButton(ToolButton& button) {
  auto* view = new QToolButton(this);
  view->setAutoRaise(true);
  view->setFocusPolicy(Qt::NoFocus);
  const int size = ToPixels(*this, kIconSize);
  view->setIconSize({size, size});
  QObject::connect(view, &QToolButton::clicked, this, [&button] { button.UserClick(); });
  connections_.push_back(button.Changed.Connect([view, &button] { Show(*view, button); }));
  Show(*view, button);
  buttons_.emplace_back(button.Index(), view);
  return view;
}

QToolButton* ToolbarView::Button(int index) const {
  for (const auto& [number, button] : buttons_) {
    if (number == index) return button;
  }
  return nullptr;
}

}  // namespace tavrin
