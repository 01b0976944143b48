#pragma once

#include "platform/controls/Button.h"
#include "platform/controls/ControlArray.h"
#include "platform/controls/Form.h"
#include "platform/controls/Label.h"
#include "platform/controls/ListView.h"

namespace tavrin {

/// Lists every file of the project directory, tells which of them belong to the open project, and deletes what the user
/// has marked of the rest.
class frmSettle : public Form {
 public:
  /// Opened modally by its user (Desktop::ShowModal).
  frmSettle();

  ListView ListView1;
  ControlArray<Button> cmdAction;  ///< 0 close, 1 delete
};

}  // namespace tavrin
