#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "online/opc/OPCDataControl.h"
#include "platform/controls/Button.h"
#include "platform/controls/ControlArray.h"
#include "platform/controls/Form.h"
#include "platform/controls/Label.h"

namespace tavrin {

/// The monitor of one tag: its live value, quality and time stamp from the server that runs the saved project. Reads
/// only. Made anew for each use: the properties are set (szDeviceName first), then Form_Load connects.
class frmOnline : public Form {
 public:
  /// Opened modally by its user (Desktop::ShowModal).
  frmOnline();

  ControlArray<Label> Label1;      ///< 0 to 2 and 6 to 8 headings, 3 device/tag, 4 data, 5 access, 9 value,
                                   ///< 10 quality, 11 time stamp
  ControlArray<Button> cmdAction;  ///< 0 OK
  OPCDataControl opcDC;

  /// Words the window and connects. A server that cannot be had is told by a box; the window can be shown all the same.
  void Form_Load();
  void opcDC_OnDataChanged(const std::vector<OPCItem*>& changed);

  [[nodiscard]] const std::string& szDeviceName() const { return szDeviceName_; }
  /// Keeps the name only: what the window shows of it is composed when the tag is set.
  void szDeviceName(std::string_view value) { szDeviceName_ = value; }
  /// The name of the item at the server: device, "/" and tag. With -DEMO the item of the demonstration server alone.
  [[nodiscard]] std::string szTag() const;
  /// With -DEMO the item of the demonstration server takes the place of what is given.
  void szTag(std::string_view value);
  [[nodiscard]] const std::string& szData() const { return szData_; }
  void szData(std::string_view value);
  [[nodiscard]] const std::string& szRW() const { return szRW_; }
  void szRW(std::string_view value);

 private:
  void GUI_Init();
  void Connect();
  void ShowItem(const OPCItem& item);
  /// The server does not have the item, as after a change of its name that was not loaded into the server: the window
  /// then stays empty. One that it has had is shown with what has become of it.
  [[nodiscard]] bool IsUnknown(const OPCItem& item) const;
  void ShowValue(const OPCItem& item);
  void ShowConverted(const Variant& value);
  void ShowPlain(const Variant& value);

  std::string szProgID_;
  std::string szDeviceName_;
  std::string szTag_;
  std::string szData_;
  std::string szRW_;
  bool handling_ = false;  // a change is being shown, maybe by a box that is open
  bool cameMeanwhile_ = false;
};

}  // namespace tavrin
