// Any file: reading its version resource ends, touches little of the file, and every text that comes out lies in it.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <utility>

#include "platform/version/VersionBlock.h"
#include "platform/version/VersionResource.h"

namespace {

constexpr int kEnglish = 0x409;
/// Headers, sections, three directories and a resource, each at its largest.
constexpr std::size_t kMostBytes = 8'000'000;
constexpr int kMostReads = 32;

void Require(bool condition) {
  if (!condition) std::abort();
}

class CountedFile : public tavrin::InputFile {
 public:
  explicit CountedFile(std::string bytes) : bytes_(std::move(bytes)) {}

  [[nodiscard]] std::uint64_t Size() const override { return bytes_.size(); }
  [[nodiscard]] std::string Read(std::uint64_t offset, std::size_t count) override {
    Require(++reads_ <= kMostReads);
    Require((asked_ += count) <= kMostBytes);
    return offset < bytes_.size() ? bytes_.substr(static_cast<std::size_t>(offset), count) : std::string{};
  }

 private:
  std::string bytes_;
  int reads_ = 0;
  std::size_t asked_ = 0;
};

void AskEverything(const std::string& resource) {
  const tavrin::VersionBlock block(resource);
  for (const std::string_view path :
       {"\\", "\\VarFileInfo\\Translation", "\\StringFileInfo\\040904E4\\CompanyName",
        "\\StringFileInfo\\040904E4\\FileVersion", "\\StringFileInfo\\040704E4\\ProductName"}) {
    const auto value = block.Query(path);
    Require(!value || value->size() <= resource.size());
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  std::string input(size, '\0');
  std::transform(bytes, bytes + size, input.begin(), [](std::uint8_t byte) { return static_cast<char>(byte); });
  CountedFile file(input);
  const auto resource = tavrin::ReadVersionResource(file, kEnglish);
  if (resource) {
    Require(input.find(*resource) != input.npos);
    AskEverything(*resource);
  }
  AskEverything(input.substr(0, 65536));
  return 0;
}
