#pragma once

#include <string>

#include <nlohmann/json.hpp>

#include "app/TavrinctlRun.h"

namespace tavrin {

/// Directories of the sample projects, with a trailing separator, and the root file of each project.
extern const std::string kPlant;
extern const std::string kFaulty;
inline const std::string kRoot = "ZOPCSRV.ini";

/// What `tavrinctl show` prints of the project in a directory, messages as numbers, fields in their order.
[[nodiscard]] nlohmann::ordered_json Show(const std::string& directory);

/// The first item of a list whose field has the value; fails the test when there is none.
[[nodiscard]] const nlohmann::ordered_json& Find(const nlohmann::ordered_json& list, const std::string& field,
                                                 const std::string& value);

/// What the program has told, with the project's directory as DIR/.
[[nodiscard]] std::string Told(const ProgramRun& run, const std::string& directory);

/// What it is to tell, from tests/data/expected.
[[nodiscard]] std::string Expected(const std::string& name);

}  // namespace tavrin
