#include "app/picture/StillMachine.h"

#include <fmt/format.h>

namespace tavrin {

StillRegional::StillRegional(bool german) : german_(german) {}

std::string StillRegional::EnglishDate(const DateTime& date) {
  return fmt::format("{:02}/{:02}/{}", date.day, date.month, date.year);
}

}  // namespace tavrin
