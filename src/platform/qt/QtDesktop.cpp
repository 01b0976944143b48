#include "platform/qt/QtDesktop.h"

#include <QAbstractEventDispatcher>
#include <QAbstractScrollArea>
#include <QApplication>
#include <QCursor>
#include <QDir>
#include <QEvent>
#include <QFileDialog>
#include <QMainWindow>
#include <QThread>
#include <QTimer>
#include <QWidget>
#include <algorithm>
#include <utility>

#include "platform/RuntimeError.h"
#include "platform/controls/Form.h"
#include "platform/controls/MenuEntry.h"
#include "platform/qt/DialogView.h"
#include "platform/qt/MenuView.h"
#include "platform/qt/Text.h"

namespace tavrin {

namespace {

/// Keeps every event from whom it is for.
class Silence : public QObject {
 public:
  bool eventFilter(QObject* /*watched*/, QEvent* /*event*/) override { return true; }
};

/// An action on its way to the thread of the windows.
class PostedAction : public QEvent {
 public:
  explicit PostedAction(std::function<void()> action) : QEvent(User), action_(std::move(action)) {}

  void Run() const { action_(); }

 private:
  std::function<void()> action_;
};

/// Runs the actions that are posted to it.
class Posts : public QObject {
 public:
  bool event(QEvent* event) override {
    const auto* const posted = dynamic_cast<const PostedAction*>(event);
    if (posted == nullptr) return QObject::event(event);
    posted->Run();
    return true;
  }
};

/// The usual pointer, while the user has something to click.
class NormalPointer {
 public:
  NormalPointer(Desktop& desktop, bool busy) : desktop_(desktop), busy_(busy) {
    desktop_.Pointer(MousePointer::Normal);
  }
  NormalPointer(const NormalPointer&) = delete;
  NormalPointer& operator=(const NormalPointer&) = delete;
  ~NormalPointer() { desktop_.Pointer(busy_ ? MousePointer::Hourglass : MousePointer::Normal); }

 private:
  Desktop& desktop_;
  bool busy_;
};

/// The text of a box, and the whole of it where that would not fit on the screen.
struct BoxText {
  QString shown;
  QString details;
};

/// Makes a word that is longer than any line breakable.
QString WithBreaks(QString text) {
  constexpr int kLongestWord = 60;
  int run = 0;
  for (qsizetype i = 0; i < text.size(); ++i) {
    run = text[i].isLetterOrNumber() || text[i].isPunct() ? run + 1 : 0;
    if (run < kLongestWord) continue;
    text.insert(++i, QChar(0x200B));  // a space of no width
    run = 0;
  }
  return text;
}

BoxText Fit(QString text) {
  constexpr qsizetype kMostCharacters = 800;
  constexpr qsizetype kMostLines = 14;
  text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
  if (text.size() <= kMostCharacters && text.count(QLatin1Char('\n')) < kMostLines) return {text, QString()};
  const QString start = text.section(QLatin1Char('\n'), 0, kMostLines - 1).left(kMostCharacters);
  return {start + QStringLiteral(" \u2026"), text};
}

/// The window that a box stands above. Between two boxes none is active for a moment: then the large one.
QWidget* ActiveWindow() {
  if (QWidget* const modal = QApplication::activeModalWidget()) return modal;
  if (QWidget* const active = QApplication::activeWindow()) return active;
  for (QWidget* const window : QApplication::topLevelWidgets()) {
    if (window->isVisible() && qobject_cast<QMainWindow*>(window) != nullptr) return window;
  }
  return nullptr;
}

/// Where a menu opens: at the pointer, or at the current item when it was asked for by the keyboard.
QPoint PopupPlace() {
  QWidget* const focused = QApplication::focusWidget();
  if (QGuiApplication::mouseButtons() != Qt::NoButton || focused == nullptr) return QCursor::pos();
  const QRect item = focused->inputMethodQuery(Qt::ImCursorRectangle).toRect();
  const auto* const scrolled = qobject_cast<const QAbstractScrollArea*>(focused);
  const QWidget* const surface = scrolled == nullptr ? focused : scrolled->viewport();
  return surface->mapToGlobal(item.bottomLeft());
}

std::string ToPath(const QString& chosen) {
  auto path = FromQt(QDir::toNativeSeparators(chosen));
  if (!path) throw RuntimeError(ErrorNumber::PathNotFound);
  return *path;
}

/// What the user chose; empty when he gave up.
QString Choose(QFileDialog& dialog) {
  return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}

}  // namespace

QtDesktop::QtDesktop(QtWords& words, std::function<std::string()> title)
    : words_(words), title_(std::move(title)), posts_(std::make_unique<Posts>()) {}

QtDesktop::~QtDesktop() = default;

int QtDesktop::Show(QMessageBox::Icon icon, QMessageBox::StandardButtons buttons, std::string_view text) {
  if (Ended()) return QMessageBox::NoButton;
  words_.Match();
  const NormalPointer pointer(*this, busy_);
  const BoxText fitting = Fit(ToQt(text));
  QMessageBox box(icon, ToQt(title_()), QString(), buttons, ActiveWindow());
  box.setTextFormat(Qt::PlainText);
  box.setTextInteractionFlags(Qt::TextSelectableByMouse);
  box.setText(WithBreaks(fitting.shown));
  box.setDetailedText(fitting.details);
  if (buttons.testFlag(QMessageBox::No)) box.setEscapeButton(QMessageBox::No);
  return box.exec();
}

void QtDesktop::ShowBox(std::string_view text) { Show(QMessageBox::Information, QMessageBox::Ok, text); }

bool QtDesktop::AskYesNo(std::string_view text) {
  return Show(QMessageBox::Question, QMessageBox::Yes | QMessageBox::No, text) == QMessageBox::Yes;
}

void QtDesktop::ShowModal(Form& form) {
  if (Ended()) return;
  words_.Match();
  const NormalPointer pointer(*this, busy_);
  DialogView view(form, ActiveWindow());
  form.Show();
  if (form.Visible()) view.exec();
}

void QtDesktop::PopupMenu(MenuEntry& menu) {
  if (Ended()) return;
  const NormalPointer pointer(*this, busy_);
  MenuView view(menu, words_, ActiveWindow());
  view.exec(PopupPlace());
}

std::optional<std::string> QtDesktop::AskOpenFile(const OpenFileRequest& request) {
  if (Ended()) return std::nullopt;
  words_.Match();
  const NormalPointer pointer(*this, busy_);
  const QString directory = ToQt(request.directory);
  QFileDialog dialog(ActiveWindow(), QString(), QDir(directory).exists() ? directory : QDir::homePath(),
                     NameFilter(request.filter));
  dialog.setAcceptMode(QFileDialog::AcceptOpen);
  dialog.setFileMode(QFileDialog::AnyFile);
  dialog.selectFile(ToQt(request.fileName));
  const QString file = Choose(dialog);
  return file.isEmpty() ? std::nullopt : std::optional(ToPath(file));
}

std::string QtDesktop::AskFolder(std::string_view title) {
  if (Ended()) return {};
  words_.Match();
  const NormalPointer pointer(*this, busy_);
  QFileDialog dialog(ActiveWindow(), ToQt(title));
  dialog.setFileMode(QFileDialog::Directory);
  dialog.setOption(QFileDialog::ShowDirsOnly);
  return ToPath(Choose(dialog));
}

void QtDesktop::DoEvents() { QCoreApplication::processEvents(); }

void QtDesktop::Sleep(int milliseconds) { QThread::msleep(static_cast<unsigned long>(std::max(milliseconds, 0))); }

void QtDesktop::Post(std::function<void()> action) {
  QCoreApplication::postEvent(posts_.get(), new PostedAction(std::move(action)));
}

bool QtDesktop::WaitUntil(const std::function<bool()>& done, int milliseconds) {
  // The timer is the deadline itself: one that rang before it would leave nothing to end the wait for events.
  QTimer deadline;
  deadline.setSingleShot(true);
  deadline.setTimerType(Qt::PreciseTimer);
  deadline.start(std::max(milliseconds, 0));
  while (!done() && deadline.isActive() && !Ended()) {
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents | QEventLoop::WaitForMoreEvents);
  }
  // What was held back would otherwise come with the next thing that the user does.
  QAbstractEventDispatcher::instance()->wakeUp();
  return done();
}

void QtDesktop::Pointer(MousePointer pointer) {
  const bool busy = pointer == MousePointer::Hourglass;
  if (busy == busy_) return;
  busy_ = busy;
  if (busy) {
    QApplication::setOverrideCursor(Qt::WaitCursor);
  } else {
    QApplication::restoreOverrideCursor();
  }
}

void QtDesktop::EndProcess() {
  if (Ended()) return;
  silence_ = std::make_unique<Silence>();
  QCoreApplication::instance()->installEventFilter(silence_.get());
  QCoreApplication::exit(0);
}

QString NameFilter(std::string_view filter) {
  const std::size_t bar = std::min(filter.find('|'), filter.size());
  std::string_view description = filter.substr(0, bar);
  if (description.starts_with('(') && description.ends_with(')')) {
    description = description.substr(1, description.size() - 2);
  }
  const std::string_view pattern = bar == filter.size() ? "*" : filter.substr(bar + 1);
  if (description.ends_with(pattern)) description.remove_suffix(pattern.size());  // it would stand there twice
  return ToQt(description).trimmed() + QStringLiteral(" (") +
         ToQt(pattern).replace(QLatin1Char(';'), QLatin1Char(' ')) + QLatin1Char(')');
}

}  // namespace tavrin
