#include "model/shared/ErrorInFlight.h"

#include <new>

namespace tavrin {

ErrorNumber NumberOfErrorInFlight() {
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

}  // namespace tavrin
