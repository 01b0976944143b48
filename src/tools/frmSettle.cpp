#include "tools/frmSettle.h"

namespace tavrin {

frmSettle::frmSettle() : Form("frmSettle"), ListView1(*this, "ListView1"), cmdAction(*this, "cmdAction") {}

}  // namespace tavrin
