#include "editing/RandomHelp.h"

#include <algorithm>
#include <filesystem>
#include <span>

#include <gtest/gtest.h>

#include "editing/ProjectState.h"
#include "editing/TagRows.h"
#include "model/cDevice.h"
#include "model/cNetwork.h"
#include "model/cOPC.h"
#include "model/shared/modMain.h"
#include "model/sheets/DeviceSheets.h"
#include "model/sheets/NetworkSheets.h"
#include "model/sheets/ProjectSheet.h"

namespace tavrin {

namespace {

template <class Owner>
std::vector<std::string> ReadRows(std::span<const SheetRow<Owner>> rows, const Owner& owner) {
  std::vector<std::string> values;
  for (const SheetRow<Owner>& row : rows) values.push_back(row.read(owner));
  return values;
}

bool IsReport(const std::string& box) { return box.compare(0, 5, "#199 ") == 0; }

}  // namespace

bool MayBeTold(const std::string& box) {
  constexpr std::array<std::string_view, 3> kKnown{
      "#199 6 #200 frmOPC.vsg", "#199 13 #200 frmOPC.vsgTCPISODVC_AfterEdit : ", "#199 5 #200 cTags.Get_Tag : "};
  return !IsReport(box) || std::any_of(kKnown.begin(), kKnown.end(), [&](std::string_view start) {
    return box.compare(0, start.size(), start) == 0;
  });
}

EditOutcome JudgeBoxes(const std::vector<std::string>& boxes, const std::vector<std::string>& projectBefore,
                       const std::vector<std::string>& projectAfter) {
  EditOutcome outcome;
  const bool stored = std::find(boxes.begin(), boxes.end(), "#236") != boxes.end();
  outcome.refused = !boxes.empty() && !stored;
  if (outcome.refused) {
    EXPECT_EQ(projectAfter, projectBefore) << boxes.front();
  }
  for (const std::string& box : boxes) EXPECT_TRUE(MayBeTold(box)) << box;
  outcome.reported = std::any_of(boxes.begin(), boxes.end(), IsReport);
  return outcome;
}

std::vector<std::string> FreshSheet() {
  if (modMain::globals.gnCurrentDevice != 0) {
    const cDevice& device = modMain::CurrentDevice();
    return ReadRows(DeviceSheet(device.nDeviceType()), device);
  }
  if (modMain::globals.gnCurrentNetwork == 0) return ReadRows(ProjectSheet(), modMain::OpenProject());
  const cNetwork& network = modMain::CurrentNetwork();
  return ReadRows(NetworkSheet(network.nNetworkType()), network);
}

std::multiset<std::string> TagsShown(const Grid& grid) {
  std::multiset<std::string> rows;
  for (int row = 1; row < grid.Rows(); ++row) {
    if (grid.Text({row, kTagKey}).empty()) continue;
    std::string line = grid.Text({row, kTagName});
    for (int col = kTagData; col < kTagColumns; ++col) line += "|" + grid.Text({row, col});
    rows.insert(line);
  }
  return rows;
}

std::multiset<std::string> TagsHeld(const cTags& tags) {
  std::multiset<std::string> held;
  for (const cTag& tag : tags) held.insert(TextsOf(tag));
  return held;
}

std::map<std::string, std::string> FilesIn(const TemporaryDirectory& directory) {
  std::map<std::string, std::string> files;
  for (const auto& entry : std::filesystem::directory_iterator(directory.Path())) {
    if (!entry.is_regular_file()) continue;
    const std::string name = entry.path().filename().string();
    files[name] = directory.Read(name);
  }
  return files;
}

}  // namespace tavrin
