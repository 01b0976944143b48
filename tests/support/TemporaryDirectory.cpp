#include "support/TemporaryDirectory.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace tavrin {

TemporaryDirectory::TemporaryDirectory() {
  std::string pattern = (std::filesystem::temp_directory_path() / "tavrin-XXXXXX").string();
  if (mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("no temporary directory: " + pattern);
  path_ = pattern + "/";
}

TemporaryDirectory::~TemporaryDirectory() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

void TemporaryDirectory::Write(std::string_view name, std::string_view bytes) const {
  std::ofstream file(path_ + std::string(name), std::ios::binary);
  file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  if (!file) throw std::runtime_error("cannot write " + std::string(name));
}

std::string TemporaryDirectory::Read(std::string_view name) const {
  std::ifstream file(path_ + std::string(name), std::ios::binary);
  if (!file) throw std::runtime_error("no file " + std::string(name));
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

bool TemporaryDirectory::Has(std::string_view name) const {
  std::error_code ignored;
  return std::filesystem::exists(path_ + std::string(name), ignored);
}

}  // namespace tavrin
