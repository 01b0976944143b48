#pragma once

#include <string>

#include "platform/controls/Button.h"
#include "platform/controls/ControlArray.h"
#include "platform/controls/Form.h"
#include "platform/controls/ListBox.h"

namespace tavrin {

/// The restart of the OPC server: it reads its project when it starts, so what was saved reaches it that way.
class frmReconfig : public Form {
 public:
  /// Opened modally by its user (Desktop::ShowModal).
  frmReconfig();

  ListBox List1;                   ///< what has been done, of all runs of this window
  ControlArray<Button> cmdAction;  ///< 0 restart, 1 close

  /// Words the window and gives the keyboard to the restart; the constructor has done so.
  void Form_Load();
  void cmdAction_Click(int index);

 private:
  void GUI_Init();
  /// Stops the service and starts it again, a line each for what is done and what came of it.
  void Restart();
  /// Adds a line and lets it be seen before the next call blocks.
  void ShowStep(std::string_view line);

  bool running_ = false;
};

}  // namespace tavrin
