#pragma once

#include <array>
#include <string_view>

namespace tavrin {

/// How the firm behind a brand is reached, in the code page of the texts.
struct Contact {
  std::array<std::string_view, 4> address;  ///< firm, street, town, country
  std::array<std::string_view, 4> ways;     ///< telephone, fax, mail, web
};

/// What differs between the brands of the program; fixed when it is built (CMake option OEM_BRAND).
struct Brand {
  std::string_view name;                 ///< "ZELKAR" or "QORVANE"
  std::string_view settingsApplication;  ///< application name in the settings store
  std::string_view serviceKey;           ///< of the server, below HKEY_LOCAL_MACHINE
  std::string_view progId;               ///< of the server, for OPC clients
  Contact contact;                       ///< lines of the about box
};

/// The brand of this program. Any OEM_BRAND but "QORVANE" is ZELKAR.
[[nodiscard]] const Brand& OemBrand();
[[nodiscard]] bool IsQorvane();

}  // namespace tavrin
