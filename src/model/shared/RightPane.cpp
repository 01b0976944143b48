#include "model/shared/RightPane.h"

#include <algorithm>

namespace tavrin {

RightPane::RightPane(Form& form)
    : vsgOPC(form, "vsgOPC"),
      vsgMPINW(form, "vsgMPINW"),
      vsgH1NW(form, "vsgH1NW"),
      vsgTCPISONW(form, "vsgTCPISONW"),
      vsgTCPRWNW(form, "vsgTCPRWNW"),
      vsgTCPIPKNW(form, "vsgTCPIPKNW"),
      vsgMPIDVC(form, "vsgMPIDVC"),
      vsgH1DVC(form, "vsgH1DVC"),
      vsgTCPISODVC(form, "vsgTCPISODVC"),
      vsgTCPRWDVC(form, "vsgTCPRWDVC"),
      vsgTCPIPKDVC(form, "vsgTCPIPKDVC"),
      lblTags(form, "lblTags"),
      vsgTags(form, "vsgTags"),
      vsgWarnings(form, "vsgWarnings"),
      lblWarnings(form, "lblWarnings") {}

std::array<Grid*, 11> RightPane::Sheets() {
  return {&vsgOPC,    &vsgMPINW, &vsgH1NW,      &vsgTCPISONW, &vsgTCPRWNW,  &vsgTCPIPKNW,
          &vsgMPIDVC, &vsgH1DVC, &vsgTCPISODVC, &vsgTCPRWDVC, &vsgTCPIPKDVC};
}

std::array<Grid*, 13> RightPane::Grids() {
  std::array<Grid*, 13> grids{};
  const auto sheets = Sheets();
  std::copy(sheets.begin(), sheets.end(), grids.begin());
  grids[sheets.size()] = &vsgTags;
  grids[sheets.size() + 1] = &vsgWarnings;
  return grids;
}

}  // namespace tavrin
