#pragma once

#include <array>

#include "platform/controls/Grid.h"
#include "platform/controls/Label.h"

namespace tavrin {

/// The grids and labels that share the right side of the main window; modMain::SetVisible decides which are on show.
struct RightPane {
  explicit RightPane(Form& form);

  Grid vsgOPC;
  Grid vsgMPINW;
  Grid vsgH1NW;
  Grid vsgTCPISONW;
  Grid vsgTCPRWNW;
  Grid vsgTCPIPKNW;
  Grid vsgMPIDVC;
  Grid vsgH1DVC;
  Grid vsgTCPISODVC;
  Grid vsgTCPRWDVC;
  Grid vsgTCPIPKDVC;
  Label lblTags;  ///< the text of the current cell of vsgTags
  Grid vsgTags;
  Grid vsgWarnings;
  Label lblWarnings;  ///< the text of the current cell of vsgWarnings

  /// The property sheets: of the project, then by type those of the networks, then those of the devices.
  [[nodiscard]] std::array<Grid*, 11> Sheets();
  static constexpr int kFirstNetworkSheet = 1;
  static constexpr int kFirstDeviceSheet = 6;
  /// All grids: the sheets, vsgTags, vsgWarnings.
  [[nodiscard]] std::array<Grid*, 13> Grids();
};

}  // namespace tavrin
