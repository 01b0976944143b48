#include "platform/posix/PosixRegional.h"

namespace tavrin {

DateTime PosixRegional::Now() { return {}; }
DateTime PosixRegional::ToLocal(UtcTime time) { return Split(time); }
UtcTime PosixRegional::FromLocal(const DateTime& local) { return Join(local); }
std::string PosixRegional::ShortDate(const DateTime&) { return {}; }
std::string PosixRegional::LongTime(const DateTime&) { return {}; }
std::string PosixRegional::DecimalSeparator() { return "."; }
std::string PosixRegional::GroupSeparator() { return ","; }
int PosixRegional::LanguageId() { return 1033; }

}  // namespace tavrin
