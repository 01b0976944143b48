#include "tools/frmFileInfo.h"

namespace tavrin {

frmFileInfo::frmFileInfo() : Form("frmFileInfo"), vsgFileInfo(*this, "vsgFileInfo"), cmdAction(*this, "cmdAction") {}

}  // namespace tavrin
