#include "platform/version/VersionResource.h"

#include <algorithm>

#include "platform/version/Bytes.h"
#include "platform/version/NeImage.h"
#include "platform/version/PeImage.h"

namespace tavrin {
namespace {

constexpr std::size_t kDosHeaderSize = 64;
constexpr std::size_t kNewHeaderField = 60;
/// A version resource tells its length in 16 bits; what comes behind is padding.
constexpr std::uint64_t kLargest = 65536;
/// The two lengths at its start and a name, be it empty.
constexpr std::size_t kSmallest = 8;

std::optional<FileRange> FindVersion(InputFile& file, int language) {
  const auto dos = ReadExactly(file, 0, kDosHeaderSize);
  if (!dos || !dos->starts_with("MZ")) return std::nullopt;
  const std::uint64_t header = DoubleWordAt(*dos, kNewHeaderField);
  const std::string signature = file.Read(header, 4);
  if (signature == std::string_view("PE\0\0", 4)) return FindVersionInPe(file, header, language);
  if (signature.starts_with("NE")) return FindVersionInNe(file, header);
  return std::nullopt;
}

}  // namespace

std::optional<std::string> ReadVersionResource(InputFile& file, int language) {
  const std::optional<FileRange> range = FindVersion(file, language);
  const std::uint64_t size = file.Size();
  if (!range || range->offset > size) return std::nullopt;
  // Directories tell rounded sizes, which can lead out of the file. What must be there is what the resource itself
  // tells.
  const std::uint64_t there = size - range->offset;
  auto bytes = ReadExactly(file, range->offset, static_cast<std::size_t>(std::min({range->size, there, kLargest})));
  if (!bytes || bytes->size() < kSmallest) return std::nullopt;
  if (WordAt(*bytes, 0) > there) return std::nullopt;
  return bytes;
}

}  // namespace tavrin
