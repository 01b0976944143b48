#include "online/frmOnline.h"

#include <algorithm>
#include <array>

#include "model/shared/AtExit.h"
#include "model/shared/Messages.h"
#include "model/shared/modMain.h"
#include "model/shared/modText.h"
#include "online/LocalTime.h"
#include "online/OnlineServer.h"
#include "online/QualityText.h"
#include "platform/Regional.h"

namespace tavrin {

namespace {

/// A label with its heading above it.
struct Field {
  int heading;
  int text;  ///< of the heading
  int label;
};

constexpr std::array<Field, 6> kFields{{{0, 4, 3}, {1, 5, 4}, {2, 6, 5}, {6, 151, 9}, {7, 152, 10}, {8, 153, 11}}};

enum LabelIndex : int { kName = 3, kData = 4, kAccess = 5, kValue = 9, kQuality = 10, kTimeStamp = 11 };

constexpr Rect kSize{0, 0, 6600, 3600};

constexpr std::uint16_t ArrayOf(VariantType type) {
  return static_cast<std::uint16_t>(static_cast<std::uint16_t>(type) | kArrayBit);
}

/// Arrays of these types are shown as arrays of doubles. 0x2011, 0x2014 and 0x2015 are not among them.
constexpr std::array kConverted{ArrayOf(VariantType::Int8), ArrayOf(VariantType::UInt16), ArrayOf(VariantType::UInt32),
                                ArrayOf(VariantType::MachineInt), ArrayOf(VariantType::MachineUInt)};

std::string DecimalSeparator() { return modMain::Platform().around.regional.DecimalSeparator(); }

}  // namespace

frmOnline::frmOnline()
    : Form("frmOnline"), Label1(*this, "Label1"), cmdAction(*this, "cmdAction"), opcDC(modMain::Platform().around.opc) {
  Rows rows;
  for (const Field& field : kFields) rows.push_back({&Label1.Load(field.heading), &Label1.Load(field.label)});
  Button& ok = cmdAction.Load(0);
  ok.Role(ButtonRole::Default);
  ok.OnClick = [this] { UserClose(); };
  rows.push_back({&ok});
  Arrangement(std::move(rows));
  Place(kSize);
  opcDC.OnDataChanged = [this](const std::vector<OPCItem*>& changed) { opcDC_OnDataChanged(changed); };
  OnUnload = [this](bool&) { opcDC.ControlDisconnect(); };
}

void frmOnline::Form_Load() {
  try {
    szProgID_ = OnlineServerProgID();
    GUI_Init();
  } catch (...) {
    modMain::Trap("frmOnline.Form_Load : ");
    return;
  }
  try {
    Connect();
  } catch (...) {
    modMain::Platform().desktop.ShowBox(TextAnd(231, szProgID_));
  }
}

void frmOnline::GUI_Init() {
  Caption(ResText(150));
  for (const Field& field : kFields) Label1(field.heading).Caption(ResText(field.text));
  cmdAction(0).Caption(ResText(30));
}

void frmOnline::Connect() {
  opcDC.ServerProgID(szProgID_);
  opcDC.ControlItems().AddItem(szTag());
  opcDC.ControlConnect();
}

std::string frmOnline::szTag() const {
  return modMain::globals.gbDemo ? szTag_ : OnlineItemName(szDeviceName_, szTag_);
}

void frmOnline::szTag(std::string_view value) {
  szTag_ = modMain::globals.gbDemo ? kDemoItem : value;
  Label1(kName).Caption(OnlineItemName(szDeviceName_, szTag_));
}

void frmOnline::szData(std::string_view value) {
  szData_ = value;
  Label1(kData).Caption(szData_);
}

void frmOnline::szRW(std::string_view value) {
  szRW_ = value;
  Label1(kAccess).Caption(szRW_);
}

void frmOnline::opcDC_OnDataChanged(const std::vector<OPCItem*>& changed) {
  // A box that tells an error lets further changes come: they would pile up a box each.
  cameMeanwhile_ = handling_;
  if (handling_) return;
  const AtExit done([this] { handling_ = false; });
  handling_ = true;
  const auto show = [&] {
    for (const OPCItem* const item : changed) ShowItem(*item);
  };
  try {
    show();
  } catch (...) {
    modMain::Trap("frmOnline.opcDC_OnDataChanged : ");
  }
  // Once, and without a word: who fails again and again must leave the user a moment to close the window.
  if (cameMeanwhile_) modMain::IgnoreErrors(show);
}

void frmOnline::ShowItem(const OPCItem& item) {
  if (item.ItemID() != szTag() || IsUnknown(item)) return;
  ShowValue(item);
  Label1(kQuality).Caption(QualityText(item.ItemQuality()));
  Label1(kTimeStamp).Caption(LocalTimeText(item.ItemTimeStamp()));
}

bool frmOnline::IsUnknown(const OPCItem& item) const {
  const bool neverHadOne = item.ItemDataType() == static_cast<std::uint16_t>(VariantType::Empty);
  const bool nothingShown = Label1(kQuality).Caption().empty();
  return neverHadOne && nothingShown && item.ItemQuality() == kBadConfiguration;
}

void frmOnline::ShowValue(const OPCItem& item) {
  const bool converted = std::find(kConverted.begin(), kConverted.end(), item.ItemDataType()) != kConverted.end();
  if (converted) {
    ShowConverted(item.ItemValue());
  } else {
    ShowPlain(item.ItemValue());
  }
}

void frmOnline::ShowConverted(const Variant& value) {
  constexpr std::uint16_t kDoubles = 5;
  const Variant doubles = CNumericArray(value, kDoubles);
  if (doubles.UpperBound() >= 0) Label1(kValue).Caption(ArrayText(doubles, DecimalSeparator()));
}

void frmOnline::ShowPlain(const Variant& value) {
  if (value.IsArray() && value.UpperBound() < 0) return;
  const bool severalElements = value.IsArray() && value.UpperBound() > 0;
  Label1(kValue).Caption(severalElements
                             ? ArrayText(value, DecimalSeparator())
                             : ScalarText(value.ElementType(), value.Elements().front(), DecimalSeparator()));
}

}  // namespace tavrin
