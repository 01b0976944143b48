#include "model/shared/cWarnings.h"

#include <utility>

#include "model/shared/modMain.h"
#include "platform/RuntimeError.h"

namespace tavrin {

std::size_t cWarnings::Position(std::int32_t index) const {
  if (index < 1 || index > Count()) throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
  return static_cast<std::size_t>(index) - 1;
}

cWarning& cWarnings::Warning(std::int32_t index) { return warnings_[Position(index)]; }

void cWarnings::Add(cWarning warning) {
  if (Count() < kMost) warnings_.push_back(std::move(warning));
}

void cWarnings::AddWarning(WarningKind kind, std::string_view szFileName, std::string szText) try {
  cWarning warning;
  warning.nType(static_cast<std::int32_t>(kind));
  warning.szFileName(szFileName);
  warning.szText(std::move(szText));
  Add(std::move(warning));
} catch (...) {
  modMain::Trap("cWarnings.AddWarning : ");
}

void cWarnings::Remove(std::int32_t index) {
  warnings_.erase(warnings_.begin() + static_cast<std::ptrdiff_t>(Position(index)));
}

}  // namespace tavrin
