#include "platform/headless/HeadlessSurroundings.h"

#include <fmt/format.h>

namespace tavrin {

std::string FixedRegional::ShortDate(const DateTime& date) {
  return fmt::format("{:02}.{:02}.{:04}", date.day, date.month, date.year);
}

std::string FixedRegional::LongTime(const DateTime& time) {
  return fmt::format("{:02}:{:02}:{:02}", time.hour, time.minute, time.second);
}

std::optional<FileRecord> MemoryFileProperties::Find(std::string_view path) {
  const auto found = records.find(path);
  return found == records.end() ? std::nullopt : std::optional(found->second);
}

bool MemoryFileProperties::SetTime(std::string_view path, FileTime which, UtcTime time) {
  const auto found = records.find(path);
  if (found == records.end()) return false;
  FileRecord& record = found->second;
  (which == FileTime::Creation     ? record.creation
   : which == FileTime::LastAccess ? record.lastAccess
                                   : record.modification) = time;
  return true;
}

bool MemoryFileProperties::SetAttributes(std::string_view path, std::uint32_t attributes) {
  const auto found = records.find(path);
  if (found == records.end()) return false;
  found->second.attributes = attributes;
  return true;
}

}  // namespace tavrin
