#include "model/DeviceSection.h"

#include <array>

#include "model/Choices.h"
#include "model/KeyTable.h"
#include "model/NetworkSettings.h"
#include "model/cDevice.h"
#include "model/cOPC.h"
#include "model/shared/Messages.h"
#include "model/shared/modMain.h"
#include "model/tags/cTags.h"

namespace tavrin {

namespace {

using enum NetworkType;
using S = DeviceSettings;

constexpr KeyLimits kNotNegative{};
constexpr KeyLimits kUniqueFile{.uniqueFile = true};
constexpr KeyLimits kPing{.highest = 1, .wholeText = false};

// clang-format off
const auto kKeys = std::to_array<KeyRow<S>>({
    // type     key              form              read member
    {Mpi,    "PLCType",          KeyForm::Fixed,      4, &S::nMPI_PLCType,            {.words = kPlcOnlyS7}},
    {Mpi,    "MPISlaveNo",       KeyForm::Number,     1, &S::nMPI_SlaveNo,            kNotNegative},
    {Mpi,    "Variables",        KeyForm::TagFile,    2, {},                          kUniqueFile},
    {Mpi,    "DynamicTags",      KeyForm::Word,       3, &S::szMPI_DynamicTags,       {.words = kRights}},
    {Mpi,    "Simulation",       KeyForm::Word,       5, &S::szMPI_Simulation,        {.words = kOnOff}},

    {H1,     "LocalTSAP",        KeyForm::Text,       1, &S::szH1_LocalTSAP,          {}},
    {H1,     "RemoteTSAP",       KeyForm::Text,       2, &S::szH1_RemoteTSAP,         {}},
    {H1,     "RemoteMacAddress", KeyForm::Text,       3, &S::szH1_RemoteMACAddress,   {}},
    {H1,     "Active",           KeyForm::WordAsIs,   4, &S::szH1_Active,             {.words = kSides}},
    {H1,     "Variables",        KeyForm::TagFile,    5, {},                          {}},
    {H1,     "DynamicTags",      KeyForm::Word,       6, &S::szH1_DynamicTags,        {.words = kRights}},
    {H1,     "PLCType",          KeyForm::WordNumber, 7, &S::nH1_PLCType,             {.words = kPlcNames}},
    {H1,     "Simulation",       KeyForm::Word,       8, &S::szH1_Simulation,         {.words = kOnOff}},

    {TcpIso, "PLCType",          KeyForm::Fixed,      1, &S::nTCPISO_PLCType,         {.words = kPlcOnlyS7}},
    {TcpIso, "SlotNo",           KeyForm::Number,     2, &S::nTCPISO_SlotNo,          {.highest = 255}},
    {TcpIso, "RemoteIPAddress",  KeyForm::Text,       3, &S::szTCPISO_RemoteIP,       {}},
    {TcpIso, "Variables",        KeyForm::TagFile,    4, {},                          {}},
    {TcpIso, "DynamicTags",      KeyForm::Word,       5, &S::szTCPISO_DynamicTags,    {.words = kRights}},
    {TcpIso, "CyclicTime",       KeyForm::Number,     6, &S::nTCPISO_CyclicTime,      kNotNegative},
    {TcpIso, "Simulation",       KeyForm::Word,       7, &S::szTCPISO_Simulation,     {.words = kOnOff}},
    {TcpIso, "PingEnabled",      KeyForm::Number,     8, &S::nTCPISO_PingEnabled,     kPing},
    {TcpIso, "MaxPDUSize",       KeyForm::Number,     9, &S::nTCPISO_MaxPDUSize,      {.oneOf = kPduSizes, .wholeText = false}},

    {TcpRw,  "LocalPortRead",    KeyForm::Number,     1, &S::nTCPRW_LocalPortRead,    kNotNegative},
    {TcpRw,  "LocalPortWrite",   KeyForm::Number,     2, &S::nTCPRW_LocalPortWrite,   kNotNegative},
    {TcpRw,  "RemoteIPAddress",  KeyForm::Text,       3, &S::szTCPRW_RemoteIP,        {}},
    {TcpRw,  "RemotePortRead",   KeyForm::Number,     4, &S::nTCPRW_RemotePortRead,   kNotNegative},
    {TcpRw,  "RemotePortWrite",  KeyForm::Number,     5, &S::nTCPRW_RemotePortWrite,  kNotNegative},
    {TcpRw,  "Variables",        KeyForm::TagFile,    7, {},                          kUniqueFile},
    {TcpRw,  "DynamicTags",      KeyForm::Word,       6, &S::szTCPRW_DynamicTags,     {.words = kRights}},
    {TcpRw,  "PLCType",          KeyForm::WordNumber, 8, &S::nTCPRW_PLCType,          {.words = kPlcWithoutIec}},
    {TcpRw,  "Simulation",       KeyForm::Word,       9, &S::szTCPRW_Simulation,      {.words = kOnOff}},
    {TcpRw,  "MaxGapSize",       KeyForm::NumberText, 10, &S::nTCPRW_MaxGapSize,      {.highest = 200, .wholeText = false}},
    {TcpRw,  "PingEnabled",      KeyForm::Number,     11, &S::nTCPRW_PingEnabled,     kPing},

    {TcpIpk, "LocalPortRead",    KeyForm::Number,     1, &S::nTCPIPK_LocalPortRead,   kNotNegative},
    {TcpIpk, "LocalPortWrite",   KeyForm::Number,     2, &S::nTCPIPK_LocalPortWrite,  kNotNegative},
    {TcpIpk, "RemoteIPAddress",  KeyForm::Address,    3, &S::szTCPIPK_RemoteIP,       {}},
    {TcpIpk, "RemotePortRead",   KeyForm::Number,     4, &S::nTCPIPK_RemotePortRead,  kNotNegative},
    {TcpIpk, "RemotePortWrite",  KeyForm::Number,     5, &S::nTCPIPK_RemotePortWrite, kNotNegative},
    {TcpIpk, "Variables",        KeyForm::TagFile,    7, {},                          kUniqueFile},
    {TcpIpk, "DynamicTags",      KeyForm::Word,       6, &S::szTCPIPK_DynamicTags,    {.words = kRights}},
    {TcpIpk, "PLCType",          KeyForm::WordNumber, 8, &S::nTCPIPK_PLCType,         {.words = kPlcWithoutIec}},
    {TcpIpk, "Simulation",       KeyForm::Word,       9, &S::szTCPIPK_Simulation,     {.words = kOnOff}},
});
// clang-format on

bool EndsInCsv(std::string_view name) {
  return name.size() >= 4 && EqualIgnoringCase(name.substr(name.size() - 4), ".CSV");
}

/// A doubtful name is told and taken all the same: the user finds the file under the name that he wrote.
void ReadTagFile(KeyReader& reader, const KeyRow<S>& row, cDevice& device) {
  const auto name = reader.ReadText(row.key);
  if (!name) return;
  if (row.limits.uniqueFile && !modMain::OpenProject().CheckFilenameUnique(*name)) {
    reader.Warn(NameProblem(212, *name));
  }
  if (!EndsInCsv(*name)) reader.Warn(TextAnd(219, row.key) + " (" + *name + ")");
  device.szTagFileName(*name);
}

}  // namespace

void ReadDeviceKeys(DeviceSettings& settings, cDevice& device, const std::string& file, bool& bOK) {
  KeyReader reader(WarningKind::Device, settings.szFileName, settings.szDeviceName, file);
  ReadSection<S>(reader, kKeys, settings.nDeviceType, bOK, [&](const KeyRow<S>& row) {
    if (row.form == KeyForm::TagFile) {
      ReadTagFile(reader, row, device);
    } else {
      ReadKey(reader, row, settings);
    }
  });
}

void WriteDeviceKeys(const DeviceSettings& settings, const cTags& tags, const std::string& file) {
  WriteSection<S>(settings.szDeviceName, file, kKeys, settings.nDeviceType, [&](const KeyRow<S>& row) {
    return row.form == KeyForm::TagFile ? tags.szFileName() : KeyText(row, settings);
  });
}

}  // namespace tavrin
