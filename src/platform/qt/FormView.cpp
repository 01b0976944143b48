#include "platform/qt/FormView.h"

#include <QCloseEvent>
#include <QDropEvent>
#include <QGuiApplication>
#include <QMenuBar>
#include <QMimeData>
#include <QScreen>
#include <QShortcut>
#include <QUrl>
#include <algorithm>

#include "platform/qt/MenuView.h"
#include "platform/qt/Text.h"
#include "platform/qt/ViewCommon.h"

namespace tavrin {

namespace {

/// The one file that is dragged, when the program can name it.
std::optional<std::string> DraggedFile(const QMimeData& data) {
  const QList<QUrl> urls = data.urls();
  if (urls.size() != 1 || !urls.front().isLocalFile()) return std::nullopt;
  return FromQt(urls.front().toLocalFile());
}

/// "[*]" in a title stands for the mark of a changed document, unless it is doubled.
QString Title(const std::string& caption) {
  return ToQt(caption).replace(QStringLiteral("[*]"), QStringLiteral("[*][*]"));
}

}  // namespace

FormView::FormView(Form& form, QtWords& words) : form_(form), words_(words), content_(new QWidget(this)) {
  setCentralWidget(content_);
  content_->installEventFilter(this);
  setAcceptDrops(true);
  Delay(afterDrop_, [this] { form_.UserDropFile(droppedFile_); });
  Delay(afterNewControls_, [this] { SyncControls(); });
  menuBar()->setNativeMenuBar(false);
  views_ = std::make_unique<ControlViews>(form, *content_, ControlViews::Places::OfControls);
  AddPaneKey(Qt::Key_F6, false);
  AddPaneKey(QKeyCombination(Qt::ShiftModifier, Qt::Key_F6).toCombined(), true);
  connections_.push_back(form.Changed.Connect([this] { Follow(); }));
  SyncControls();
  views_->ShowFocus();  // a window that is drawn late has a control with the keyboard already
  Follow();
}

FormView::~FormView() = default;

void FormView::Delay(QTimer& timer, std::function<void()> action) {
  timer.setSingleShot(true);
  QObject::connect(&timer, &QTimer::timeout, this, std::move(action));
}

void FormView::AddPaneKey(int key, bool backwards) {
  auto* const shortcut = new QShortcut(QKeySequence(key), this);
  QObject::connect(shortcut, &QShortcut::activated, this, [this, backwards] { views_->WalkPanes(backwards); });
}

void FormView::Follow() {
  setWindowTitle(Title(form_.Caption()));
  SyncMenuBar();
  if (knownControls_ != form_.Controls().size()) {
    knownControls_ = form_.Controls().size();
    // A control announces itself before it is complete.
    afterNewControls_.start(0);
  }
  const float pixel = ToTwips(*this, 1);  // of less than that, the window must not be smaller
  setMinimumSize(WholeSize(form_.MinimumWidth() + pixel / 2, form_.MinimumHeight() + pixel / 2));
  ShowPlace();
  if (form_.Visible() == isVisible()) return;
  setVisible(form_.Visible());
  if (form_.Visible()) TellPlace();
}

void FormView::SyncControls() {
  knownControls_ = form_.Controls().size();
  views_->Sync();
  SyncShortcuts();
}

void FormView::SyncMenuBar() {
  const auto& wanted = form_.MenuBar();
  const bool same = std::equal(menus_.begin(), menus_.end(), wanted.begin(), wanted.end(),
                               [](const MenuView* view, const MenuEntry* entry) { return &view->Entry() == entry; });
  if (same) return;
  for (MenuView* menu : menus_) menu->deleteLater();
  menus_.clear();
  for (MenuEntry* entry : wanted) {
    menus_.push_back(new MenuView(*entry, words_, menuBar()));
    menuBar()->addMenu(menus_.back());
  }
}

void FormView::SyncShortcuts() {
  for (Control* control : form_.Controls()) {
    auto* const entry = dynamic_cast<MenuEntry*>(control);
    if (entry == nullptr || entry->Shortcut().empty() || shortcuts_.contains(entry)) continue;
    auto* const shortcut = new QShortcut(QKeySequence(ToQt(entry->Shortcut())), this);
    QObject::connect(shortcut, &QShortcut::activated, this, [entry] { entry->UserShortcut(); });
    shortcuts_[entry] = shortcut;
  }
}

int FormView::ContentHeight(float height) const { return ToPixels(*this, std::max(0.0F, height - Form::kTitleHeight)); }

QSize FormView::WholeSize(float width, float height) const {
  menuBar()->ensurePolished();
  const int pixels = ToPixels(*this, width);
  return {pixels, ContentHeight(height) + menuBar()->heightForWidth(pixels)};
}

// Left and top of the frame, width and height of the content.
QRect FormView::WantedPlace() const {
  const Rect& place = form_.Place();
  return {ToPixels(*this, place.left), ToPixels(*this, place.top), ToPixels(*this, place.width),
          ContentHeight(place.height)};
}

void FormView::ShowPlace() {
  if (StateOf(windowState()) != WindowState::Normal) return;
  const QRect wanted = WantedPlace();
  const QPoint corner = isVisible() ? wanted.topLeft() : IntoSight(wanted);
  if (!isVisible() || corner != pos()) move(corner);
  if (!isVisible() || wanted.size() != content_->size()) {
    resize(WholeSize(form_.Place().width, form_.Place().height));
  }
}

QPoint FormView::IntoSight(const QRect& wanted) const {
  constexpr QSize kGrip(100, 30);  // what must be seen of the title to move the window
  const QRect title(wanted.topLeft(), QSize(wanted.width(), kGrip.height()));
  for (const QScreen* screen : QGuiApplication::screens()) {
    const QRect seen = title.intersected(screen->availableGeometry());
    if (seen.width() >= kGrip.width() && seen.height() >= kGrip.height()) return wanted.topLeft();
  }
  const QRect room = QGuiApplication::primaryScreen()->availableGeometry();
  return {std::clamp(wanted.x(), room.left(), std::max(room.left(), room.right() - wanted.width())),
          std::clamp(wanted.y(), room.top(), std::max(room.top(), room.bottom() - wanted.height()))};
}

void FormView::TellPlace() {
  if (!isVisible() || isMinimized()) return;
  const QRect known = WantedPlace();
  const QRect shown(pos(), content_->size());
  if (shown == known) return;
  Rect place = form_.Place();
  if (shown.x() != known.x()) place.left = ToTwips(*this, shown.x());
  if (shown.y() != known.y()) place.top = ToTwips(*this, shown.y());
  if (shown.width() != known.width()) place.width = ToTwips(*this, shown.width());
  if (shown.height() != known.height()) place.height = ToTwips(*this, shown.height()) + Form::kTitleHeight;
  form_.UserPlace(place);
}

bool FormView::eventFilter(QObject* watched, QEvent* event) {
  if (watched == content_ && event->type() == QEvent::Resize) TellPlace();
  return QMainWindow::eventFilter(watched, event);
}

void FormView::moveEvent(QMoveEvent* event) {
  QMainWindow::moveEvent(event);
  TellPlace();
}

void FormView::changeEvent(QEvent* event) {
  QMainWindow::changeEvent(event);
  if (event->type() == QEvent::WindowStateChange) form_.UserState(StateOf(windowState()));
}

void FormView::closeEvent(QCloseEvent* event) {
  event->ignore();
  form_.UserClose();
}

void FormView::dragEnterEvent(QDragEnterEvent* event) {
  if (DraggedFile(*event->mimeData())) event->acceptProposedAction();
}

void FormView::dropEvent(QDropEvent* event) {
  droppedFile_ = DraggedFile(*event->mimeData()).value_or(std::string());
  if (droppedFile_.empty()) return;
  event->acceptProposedAction();
  // The program that the file comes from waits for the end of the drop.
  afterDrop_.start(0);
}

}  // namespace tavrin
