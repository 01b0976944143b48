#include "model/shared/cWarnings.h"

#include <utility>

#include "model/shared/AtExit.h"
#include "model/shared/modMain.h"
#include "platform/RuntimeError.h"
#include "platform/controls/Grid.h"
#include "platform/controls/Label.h"

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

void cWarnings::Show(Grid& grid, Label& label) const try {
  const AtExit redraw([&] { grid.Redraw(true); });
  grid.Rows(1);
  grid.Redraw(false);
  for (const cWarning& warning : warnings_) {
    std::string line(warning.szType());
    grid.AddItem(line.append(1, '\t').append(warning.szFileName()).append(1, '\t').append(warning.szText()));
  }
  label.Caption("");
  modMain::SetVisible(&grid);
} catch (...) {
  modMain::Trap("cWarnings.Show : ");
}

}  // namespace tavrin
