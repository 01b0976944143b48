#include "model/sheets/ProjectSheet.h"

#include <array>

#include "model/cOPC.h"

namespace tavrin {

namespace {

using S = Shown<cOPC>;
using E = Edited<cOPC>;

constexpr auto kRows = std::to_array<SheetRow<cOPC>>({
    {"szFileName", 100, S::Text<&cOPC::szFileName>, E::ClosedText<&cOPC::szFileName>()},
    {"nLogFileSize", 103, S::Text<&cOPC::nLogFileSize>, E::Number<&cOPC::nLogFileSize>(KeyClass::Digits)},
    {"nCaseSensitive", 290, S::Text<&cOPC::nCaseSensitive>, E::Number<&cOPC::nCaseSensitive>(KeyClass::Flag)},
    {"szUsedSeparator", 291, S::Text<&cOPC::szUsedSeparator>, E::Text<&cOPC::szUsedSeparator>(KeyClass::Separator)},
    {"nSaveTagsUppercase", 294, S::Text<&cOPC::nSaveTagsUppercase>,
     E::Number<&cOPC::nSaveTagsUppercase>(KeyClass::Flag)},
});

}  // namespace

std::span<const SheetRow<cOPC>> ProjectSheet() { return kRows; }

}  // namespace tavrin
