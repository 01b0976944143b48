#include "platform/posix/PosixPrograms.h"

#include "platform/RuntimeError.h"

namespace tavrin {

void PosixPrograms::Start(Administration, WindowStyle) { throw RuntimeError(ErrorNumber::FileNotFound); }
void PosixPrograms::ShowText(std::string_view, WindowStyle) { throw RuntimeError(ErrorNumber::FileNotFound); }
bool PosixPrograms::OpenDocument(std::string_view, int) { return false; }

}  // namespace tavrin
