#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "shell/frmOPC.h"
#include "support/ProjectTest.h"

namespace tavrin {

/// The main window on the desktop without a screen; text of number N reads "#N". Nothing is open at the start. The
/// application directory is "app" below the directory of the test, and there is no Tavrin.INI in it, unless a test
/// makes it.
class ShellTest : public ProjectTest {
 protected:
  ShellTest() {
    modMain::globals.gOPC.reset();
    modMain::globals.gszProjectDir.clear();
  }
  ~ShellTest() override { window.reset(); }

  /// Starts the program with the words of a command line.
  frmOPC& Start(const std::string& commandLine = {}) {
    window = std::make_unique<frmOPC>(commandLine);
    window->Form_Load();
    return *window;
  }
  [[nodiscard]] frmOPC& Window() { return *window; }

  /// Copies a project of samples/ into the directory of the test. @return the full path of its root file
  std::string CopySample(const std::string& name);
  /// Opens the project of CopySample by the command of the program, which answers no to the question for warnings.
  void OpenSample(const std::string& name);

  /// Plays the next uses of frmCreate: a name, the type of a network (none: -1), OK. A dialog that then stays is
  /// cancelled.
  void AnswerCreate(const std::string& name, int type = -1);
  /// By key. @throws std::out_of_range when there is none
  [[nodiscard]] TreeNode& Node(std::string_view key);
  void Click(std::string_view key, MouseButton button = MouseButton::Left);
  /// The whole edit of a cell by the keyboard, from F2 to Enter; the text replaces the one before.
  static void Enter(Grid& grid, Cell cell, std::string_view text);

  std::unique_ptr<frmOPC> window;
};

}  // namespace tavrin
