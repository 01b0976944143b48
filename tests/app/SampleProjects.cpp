#include "app/SampleProjects.h"

#include <algorithm>

#include <gtest/gtest.h>

namespace tavrin {

using nlohmann::ordered_json;

const std::string kPlant = InSourceTree("samples/plant/");
const std::string kFaulty = InSourceTree("samples/faulty/");

ordered_json Show(const std::string& directory) {
  return ordered_json::parse(CallTavrinctl({"--language=numbers", "show", directory + kRoot}).out);
}

const ordered_json& Find(const ordered_json& list, const std::string& field, const std::string& value) {
  static const ordered_json kNothing = ordered_json::object();
  const auto found = std::find_if(list.begin(), list.end(), [&](const auto& item) { return item.at(field) == value; });
  EXPECT_NE(found, list.end()) << "no " << field << " " << value;
  return found == list.end() ? kNothing : *found;
}

std::string Told(const ProgramRun& run, const std::string& directory) {
  std::string told = run.out + run.err;
  for (std::size_t at = told.find(directory); at != std::string::npos; at = told.find(directory)) {
    told.replace(at, directory.size(), "DIR/");
  }
  return told;
}

std::string Expected(const std::string& name) { return BytesOf(InSourceTree("tests/data/expected/" + name + ".txt")); }

}  // namespace tavrin
