#pragma once

#include "platform/controls/Button.h"
#include "platform/controls/ControlArray.h"
#include "platform/controls/Form.h"
#include "platform/controls/Grid.h"

namespace tavrin {

/// Name, date and version of every file of the program and of the OPC system libraries, for support.
class frmFileInfo : public Form {
 public:
  /// Opened modally by its user (Desktop::ShowModal).
  frmFileInfo();

  Grid vsgFileInfo;
  ControlArray<Button> cmdAction;  ///< 0 save, 1 close
};

}  // namespace tavrin
