#pragma once

#include "platform/controls/Button.h"
#include "platform/controls/ControlArray.h"
#include "platform/controls/Form.h"

namespace tavrin {

/// The scripted test run of a device; offered to who starts the program with -TEST.
class frmTest : public Form {
 public:
  frmTest();

  ControlArray<Button> cmdAction;  ///< 0 close
};

}  // namespace tavrin
