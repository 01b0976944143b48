#include "online/QualityText.h"

#include <algorithm>
#include <array>

namespace tavrin {

namespace {

struct QualityRow {
  std::uint16_t quality;
  std::string_view text;
};

constexpr std::array kQualities{
    QualityRow{0x00, "bad (non-specific)"},
    QualityRow{0x04, "bad (configuration error)"},
    QualityRow{0x08, "bad (not connected)"},
    QualityRow{0x0C, "bad (device failure)"},
    QualityRow{0x10, "bad (sensor failure)"},
    QualityRow{0x14, "bad (last known value)"},
    QualityRow{0x18, "bad (comm failure)"},
    QualityRow{0x1C, "bad (out of service)"},
    QualityRow{0x40, "uncertain (non-specific)"},
    QualityRow{0x44, "uncertain (last usable value)"},
    QualityRow{0x50, "uncertain (sensor not accurate)"},
    QualityRow{0x54, "uncertain (engineering units)"},
    QualityRow{0x58, "uncertain (sub-normal)"},
    QualityRow{0xC0, "good (non-specific)"},
    QualityRow{0xD8, "good (local override)"},
};

}  // namespace

std::string_view QualityText(std::uint16_t quality) {
  const auto row = std::find_if(kQualities.begin(), kQualities.end(),
                                [quality](const QualityRow& entry) { return entry.quality == quality; });
  return row == kQualities.end() ? "unknown" : row->text;
}

}  // namespace tavrin
