#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

namespace tavrin {

/// The values among which a setting is chosen: the same for the files, the setters and the lists of the sheets.

/// Types of networks and devices (NetworkType).
inline constexpr std::array<std::int32_t, 5> kTypeNumbers{0, 1, 2, 3, 4};
inline constexpr std::array<std::int32_t, 4> kBaudrates{19200, 38400, 57600, 115200};
/// Highest address of an MPI bus.
inline constexpr std::array<std::int32_t, 4> kMaxMpiNumbers{15, 31, 63, 126};
/// Bytes of a protocol data unit.
inline constexpr std::array<std::int32_t, 3> kPduSizes{240, 480, 960};
/// Rights of dynamic tags.
inline constexpr std::array<std::string_view, 3> kRights{"RO", "RW", "OFF"};
inline constexpr std::array<std::string_view, 2> kOnOff{"ON", "OFF"};
/// Side that opens an H1 connection.
inline constexpr std::array<std::string_view, 2> kSides{"remote", "local"};

/// Names of the PLC types 1, 2 and 3.
inline constexpr std::array<std::string_view, 3> kPlcNames{"S7", "S5", "ZELKAR IEC1131"};
/// MPI and ISO devices are always S7.
inline constexpr std::span<const std::string_view> kPlcOnlyS7 = std::span(kPlcNames).first<1>();
/// Read/Write and IPK devices are S7 or S5.
inline constexpr std::span<const std::string_view> kPlcWithoutIec = std::span(kPlcNames).first<2>();

}  // namespace tavrin
