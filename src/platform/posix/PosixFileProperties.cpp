#include "platform/posix/PosixFileProperties.h"

namespace tavrin {

std::optional<FileRecord> PosixFileProperties::Find(std::string_view) { return std::nullopt; }
bool PosixFileProperties::SetTime(std::string_view, FileTime, UtcTime) { return false; }
bool PosixFileProperties::SetAttributes(std::string_view, std::uint32_t) { return false; }
std::string PosixFileProperties::ShortPath(std::string_view) { return {}; }
std::string PosixFileProperties::TypeName(std::string_view) { return {}; }

}  // namespace tavrin
