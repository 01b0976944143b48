#pragma once

#include <QLineEdit>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QStringList>
#include <functional>
#include <string>
#include <string_view>

class QKeyEvent;
class QRect;
class QWidget;

namespace tavrin {

/// True when the keyboard only visits another window, a menu or a list and will come back: such a leave ends no edit
/// and moves the keyboard of no control.
[[nodiscard]] bool IsVisit(Qt::FocusReason reason);

/// The field that lies over an item of a view while its text is edited: a line of text, or a list with one. It decides
/// nothing. What is typed passes through the rules of the control, and the control opens and closes it.
class InPlaceEditor : public QObject {
 public:
  /// The way to the control. Texts are in the code page.
  struct Rules {
    /// What of typed or pasted characters may come in.
    std::function<std::string(std::string_view typed)> filter;
    /// The whole text after a change by the user.
    std::function<void(std::string_view text)> changed;
    /// A key comes before the field takes it. @return true when it means something to the control
    std::function<bool(QKeyEvent& key)> key;
    /// The keyboard has gone elsewhere for good.
    std::function<void()> left;
  };

  /// @param area part of `view` on which the field lies
  InPlaceEditor(QWidget& view, QWidget& area, Rules rules);

  [[nodiscard]] bool IsOpen() const { return field_ != nullptr; }
  /// The line of text, nullptr while the editor is closed.
  [[nodiscard]] QLineEdit* Line() const { return line_; }
  /// Opens the field with the keyboard in it. @param selectAll else the cursor stands behind the text
  void Open(const QString& text, const QStringList& choices, bool selectAll);
  void Show(const QString& text);
  /// Lays the field over a rectangle of the area; an empty one hides it.
  void Place(const QRect& place);
  /// Takes the field away; a keyboard that was in it goes to the view.
  void Close();
  void TakeKeyboard();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  [[nodiscard]] bool IsLeft(Qt::FocusReason reason) const;
  void MakeLine();
  void MakeList(const QStringList& choices, const QString& text);
  void Choose(const QString& choice);
  void Typed(const QString& text);

  QWidget& view_;
  QWidget& area_;
  Rules rules_;
  QPointer<QWidget> field_;
  QPointer<QLineEdit> line_;
  /// The text that the control knows.
  QString told_;
  bool changing_ = false;
};

}  // namespace tavrin
