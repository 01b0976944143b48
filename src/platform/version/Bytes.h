#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/Files.h"

namespace tavrin {

/// Numbers of a record, lowest byte first. The record must be long enough: who reads from a file uses ReadExactly.
[[nodiscard]] inline std::uint16_t WordAt(std::string_view record, std::size_t at) {
  const auto byte = [&](std::size_t index) { return static_cast<unsigned>(static_cast<unsigned char>(record[index])); };
  return static_cast<std::uint16_t>(byte(at) | (byte(at + 1) << 8));
}
[[nodiscard]] inline std::uint32_t DoubleWordAt(std::string_view record, std::size_t at) {
  return WordAt(record, at) | (std::uint32_t{WordAt(record, at + 2)} << 16);
}

/// Nothing when the file ends before that.
[[nodiscard]] inline std::optional<std::string> ReadExactly(InputFile& file, std::uint64_t offset, std::size_t count) {
  std::string bytes = file.Read(offset, count);
  if (bytes.size() < count) return std::nullopt;
  return bytes;
}

/// A piece of a file.
struct FileRange {
  std::uint64_t offset = 0;
  std::uint64_t size = 0;
};

}  // namespace tavrin
