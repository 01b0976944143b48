#include "model/sheets/SheetLabels.h"

#include <span>

#include "model/NetworkSettings.h"
#include "model/shared/RightPane.h"
#include "model/sheets/DeviceSheets.h"
#include "model/sheets/NetworkSheets.h"
#include "model/sheets/ProjectSheet.h"
#include "platform/RuntimeError.h"

namespace tavrin {

namespace {

template <class Owner>
std::vector<int> LabelsOf(std::span<const SheetRow<Owner>> rows) {
  std::vector<int> labels;
  for (const SheetRow<Owner>& row : rows) labels.push_back(row.label);
  return labels;
}

}  // namespace

std::vector<int> SheetLabels(int sheet) {
  if (sheet < 0 || sheet >= RightPane::kFirstDeviceSheet + kNetworkTypes) {
    throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
  }
  if (sheet >= RightPane::kFirstDeviceSheet) return LabelsOf(DeviceSheet(sheet - RightPane::kFirstDeviceSheet));
  if (sheet >= RightPane::kFirstNetworkSheet) return LabelsOf(NetworkSheet(sheet - RightPane::kFirstNetworkSheet));
  return LabelsOf(ProjectSheet());
}

}  // namespace tavrin
