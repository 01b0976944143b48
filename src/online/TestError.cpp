#include "online/TestError.h"

#include <fmt/format.h>

#include "model/shared/ErrorInFlight.h"
#include "model/shared/modMain.h"
#include "platform/RuntimeError.h"

namespace tavrin {

void TellTestError(std::string_view routine, std::string_view more) {
  const ErrorNumber number = NumberOfErrorInFlight();
  ++modMain::globals.nTrappedErrors;
  modMain::Platform().desktop.ShowBox(
      fmt::format("Fehler {} in Prozedur {} : {}{}", static_cast<int>(number), routine, Describe(number), more));
}

}  // namespace tavrin
