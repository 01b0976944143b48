#include "tools/CFileVersionInfo.h"

namespace tavrin {

void CFileVersionInfo::FullPathName(std::string_view path) {
  fullPathName_ = path;
  Refresh();
}
void CFileVersionInfo::Refresh() {}

}  // namespace tavrin
