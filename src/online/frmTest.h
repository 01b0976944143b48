#pragma once

#include "platform/controls/Button.h"
#include "platform/controls/ControlArray.h"
#include "platform/controls/Form.h"

namespace tavrin {

/// The window of the scripted test run of a device, offered to who starts the program with -TEST. The run itself is
/// still to come.
class frmTest : public Form {
 public:
  frmTest();

  ControlArray<Button> cmdAction;  ///< 0 close
};

}  // namespace tavrin
