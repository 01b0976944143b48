#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace tavrin {

class HeadlessDesktop;

/// A row of a sheet as a reader of the manual wants to see it. Texts are in the code page.
struct SheetLine {
  std::string property;
  int label = 0;         ///< number of the text in column 0
  bool fixed = false;    ///< cannot be edited
  bool address = false;  ///< the setting is checked as an IP address
  std::string allowed;   ///< choices, or the range as a refusal tells it; empty when everything is taken
  std::string first;     ///< what a new object begins with
};

/// The sheets with what they allow. Nobody has written that down: values that no setting takes are given to each row of
/// a new object, and what the user would be told is taken. Need modMain::globals.services; the open project is lost.
/// @param desktop the one of the services
[[nodiscard]] std::vector<SheetLine> ProjectLines(HeadlessDesktop& desktop);
[[nodiscard]] std::vector<SheetLine> NetworkLines(std::int32_t type, HeadlessDesktop& desktop);
[[nodiscard]] std::vector<SheetLine> DeviceLines(std::int32_t type, HeadlessDesktop& desktop);

}  // namespace tavrin
