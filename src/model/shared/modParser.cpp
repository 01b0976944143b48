#include "model/shared/modParser.h"

#include "model/shared/modMain.h"

namespace tavrin {

std::int32_t ParserIsValidTagName(std::string& szName) { return modMain::Platform().syntax.CheckTagName(szName); }

std::int32_t ParserIsValidNodeName(std::string& szName) { return modMain::Platform().syntax.CheckNodeName(szName); }

std::int32_t ParserIsValidSource(std::string& szSource, std::int32_t nDeviceType, std::int32_t nPLCType) {
  return modMain::Platform().syntax.CheckSource(szSource, nDeviceType, nPLCType);
}

}  // namespace tavrin
