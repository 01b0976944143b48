#pragma once

#include <QMessageBox>
#include <QObject>
#include <functional>
#include <memory>
#include <string>

#include "platform/Desktop.h"
#include "platform/qt/QtWords.h"

namespace tavrin {

/// The desktop on a screen.
class QtDesktop : public Desktop {
 public:
  /// @param words outlives the desktop @param title of the boxes, asked for each one
  QtDesktop(QtWords& words, std::function<std::string()> title);
  ~QtDesktop() override;

  void ShowBox(std::string_view text) override;
  [[nodiscard]] bool AskYesNo(std::string_view text) override;
  void ShowModal(Form& form) override;
  void PopupMenu(MenuEntry& menu) override;
  /// @throws RuntimeError 76 for a path with characters that the code page does not have
  [[nodiscard]] std::optional<std::string> AskOpenFile(const OpenFileRequest& request) override;
  /// @throws RuntimeError 76 as AskOpenFile
  [[nodiscard]] std::string AskFolder(std::string_view title) override;
  void DoEvents() override;
  void Sleep(int milliseconds) override;
  void Post(std::function<void()> action) override;
  bool WaitUntil(const std::function<bool()>& done, int milliseconds) override;
  void Pointer(MousePointer pointer) override;
  void EndProcess() override;

  /// The program has asked for its end. It may have done so before the first event loop was entered.
  [[nodiscard]] bool Ended() const { return silence_ != nullptr; }

 private:
  int Show(QMessageBox::Icon icon, QMessageBox::StandardButtons buttons, std::string_view text);

  QtWords& words_;
  std::function<std::string()> title_;
  bool busy_ = false;
  std::unique_ptr<QObject> posts_;    // actions that are still posted when it goes never run
  std::unique_ptr<QObject> silence_;  // takes all events once the program has ended
};

/// The filter of a file dialog in the form that the toolkit wants: "(Project)|A.ini" becomes "Project (A.ini)".
[[nodiscard]] QString NameFilter(std::string_view filter);

}  // namespace tavrin
