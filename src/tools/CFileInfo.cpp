#include "tools/CFileInfo.h"

namespace tavrin {

void CFileInfo::FullPathName(std::string_view path) {
  fullPathName_ = path;
  Refresh();
}
void CFileInfo::Refresh() {}
std::string CFileInfo::FormatFileDate(const DateTime&) { return {}; }
std::string CFileInfo::FormatFileSize(std::int32_t) { return {}; }

}  // namespace tavrin
