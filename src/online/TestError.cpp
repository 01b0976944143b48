#include "online/TestError.h"

#include <new>

#include <fmt/format.h>

#include "model/shared/modMain.h"
#include "platform/RuntimeError.h"

namespace tavrin {

namespace {

ErrorNumber NumberInFlight() {
  try {
    throw;
  } catch (const RuntimeError& error) {
    return error.Number();
  } catch (const std::bad_alloc&) {
    return ErrorNumber::OutOfMemory;
  } catch (...) {
    return ErrorNumber::InternalError;
  }
}

}  // namespace

void TellTestError(std::string_view routine, std::string_view more) {
  const ErrorNumber number = NumberInFlight();
  ++modMain::globals.nTrappedErrors;
  modMain::Platform().desktop.ShowBox(
      fmt::format("Fehler {} in Prozedur {} : {}{}", static_cast<int>(number), routine, Describe(number), more));
}

}  // namespace tavrin
