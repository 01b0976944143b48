#include "model/ProjectLoad.h"

#include <memory>

#include "model/cOPC.h"
#include "model/shared/cWarnings.h"
#include "model/shared/modMain.h"

namespace tavrin {

bool LoadProject(const std::string& szFile) {
  auto& globals = modMain::globals;
  const std::size_t nameStart = szFile.rfind(kPathSeparator) + 1;  // 0 without a separator
  globals.gReadWarnings = std::make_unique<cWarnings>();
  globals.gszProjectDir = szFile.substr(0, nameStart);
  globals.gOPC = std::make_unique<cOPC>();
  globals.gOPC->szFileName(szFile.substr(nameStart));
  bool bOK = true;
  globals.gOPC->Refresh(bOK);
  return bOK;
}

}  // namespace tavrin
