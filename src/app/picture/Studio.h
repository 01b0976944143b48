#pragma once

#include <QPixmap>
#include <QSize>
#include <QTemporaryDir>
#include <QWidget>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "app/Machine.h"
#include "app/picture/ShowServers.h"
#include "app/picture/StillMachine.h"
#include "platform/headless/HeadlessDesktop.h"
#include "platform/headless/HeadlessSurroundings.h"
#include "platform/headless/MemorySettings.h"
#include "platform/qt/FormView.h"
#include "platform/qt/QtWords.h"
#include "shell/frmOPC.h"

namespace tavrin {

/// A copy of the installation that holds nothing but what belongs to it, so that pictures are the same wherever they
/// are taken. It is the working directory as long as it lives.
class StudioFiles {
 public:
  /// @throws RuntimeError 75 when it cannot be made
  StudioFiles();
  [[nodiscard]] std::string Directory() const;

 private:
  QTemporaryDir directory_;
};

/// The program, started afresh to have one picture taken: a user that is scripted, a server that is always there, a
/// clock that stands.
class Studio {
 public:
  /// @param file the picture to write @param words of the command line, UTF-8 as all texts here
  Studio(const StudioFiles& files, std::string language, std::string file, const std::string& words);
  Studio(const Studio&) = delete;
  Studio& operator=(const Studio&) = delete;

  [[nodiscard]] frmOPC& Window() { return *window_; }
  [[nodiscard]] FormView& View() { return *view_; }
  [[nodiscard]] HeadlessDesktop& Desktop() { return desktop_; }

  /// Opens the sample and selects a node of its tree, e.g. "#1#3".
  void OpenSample(std::string_view node);
  void Open(std::string_view project);
  void Select(std::string_view node);

  /// Runs a command that opens a dialog, has it prepared, takes its picture and closes it.
  /// @param size pixels; none: as it opens
  void ShootDialog(const std::function<void()>& command, const std::function<void(Form&)>& prepare = {},
                   QSize size = {});
  /// Makes the main window lower, for a picture with little in it.
  void Lower();
  /// Takes the picture of the main window.
  void ShootWindow();
  /// Takes a picture of a window with the title that a desktop would give it; one without a title has none.
  void Shoot(QWidget& widget, const QString& title);
  /// The same of what has been painted. @throws RuntimeError 75 when it cannot be written
  void Frame(const QPixmap& content, const QString& title);
  [[nodiscard]] bool Done() const { return done_; }

 private:
  void ChooseSettings();

  std::string language_;
  std::string file_;
  bool done_ = false;
  HeadlessDesktop desktop_;
  MemorySettings settings_;
  HeadlessSurroundings around_;
  StillRegional regional_;
  ShowServers servers_{desktop_};
  std::unique_ptr<Machine> machine_;
  std::unique_ptr<StillFiles> still_;
  std::unique_ptr<StillProperties> properties_;
  std::unique_ptr<Surroundings> surroundings_;
  std::unique_ptr<Services> services_;
  QtWords words_;
  std::unique_ptr<frmOPC> window_;
  std::unique_ptr<FormView> view_;
};

}  // namespace tavrin
