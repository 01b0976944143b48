#include "support/ShellTest.h"

#include <filesystem>
#include <stdexcept>

#include "shell/frmCreate.h"

namespace tavrin {

std::string ShellTest::CopySample(const std::string& name) {
  std::filesystem::copy(std::string(TAVRIN_SOURCE_DIR "/samples/") + name, directory.Path(),
                        std::filesystem::copy_options::recursive | std::filesystem::copy_options::overwrite_existing);
  return directory.Path() + "ZOPCSRV.ini";
}

void ShellTest::OpenSample(const std::string& name) {
  const std::string file = CopySample(name);
  if (name == "faulty") desktop.AnswerNext(false);  // the other samples have no warnings to ask for
  window->commands.OPCProjectLoadFromDisk(file);
}

void ShellTest::AnswerCreate(const std::string& name, int type) {
  desktop.OnModal = [name, type](Form& form) {
    auto& dialog = dynamic_cast<frmCreate&>(form);
    dialog.txtName.UserText(name);
    if (type >= 0) dialog.rbType(type).UserClick();
    dialog.cmdAction(0).UserClick();
    if (dialog.Visible()) dialog.cmdAction(1).UserClick();
  };
}

TreeNode& ShellTest::Node(std::string_view key) {
  TreeNode* const node = window->tvwMain.Node(key);
  if (node == nullptr) throw std::out_of_range("no node " + std::string(key));
  return *node;
}

void ShellTest::Click(std::string_view key, MouseButton button) { window->tvwMain.UserPress(button, &Node(key)); }

void ShellTest::Enter(Grid& grid, Cell cell, std::string_view text) {
  grid.UserPress(MouseButton::Left, cell);
  grid.UserKey(Key::F2);
  grid.UserEditText("");
  grid.UserType(text);
  grid.UserKey(Key::Enter);
}

}  // namespace tavrin
