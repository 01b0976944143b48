#include "model/shared/modMain.h"

#include <algorithm>
#include <array>
#include <optional>

#include <fmt/format.h>

#include "model/cDevice.h"
#include "model/cNetwork.h"
#include "model/cOPC.h"
#include "model/shared/ErrorInFlight.h"
#include "model/shared/RightPane.h"
#include "model/shared/cWarnings.h"
#include "model/shared/modText.h"
#include "platform/NumberText.h"
#include "platform/RuntimeError.h"

namespace tavrin::modMain {

State globals;

State::State() = default;
State::State(State&&) noexcept = default;
State& State::operator=(State&&) noexcept = default;
State::~State() = default;

namespace {

cWarnings& MadeOnFirstUse(std::unique_ptr<cWarnings>& list) {
  if (!list) list = std::make_unique<cWarnings>();
  return *list;
}

std::string_view CutBefore(std::string_view text, char mark) { return text.substr(0, text.find(mark)); }

/// The numbers of an address's pieces; nothing unless there are exactly four pieces.
std::optional<std::array<double, 4>> AddressPieces(std::string_view address) {
  std::array<double, 4> numbers{};
  for (std::size_t i = 0; i < numbers.size(); ++i) {
    const std::size_t point = address.find('.');
    if ((point == std::string_view::npos) != (i + 1 == numbers.size())) return std::nullopt;
    numbers[i] = NumericPrefix(address.substr(0, point));
    address.remove_prefix(point == std::string_view::npos ? address.size() : point + 1);
  }
  return numbers;
}

}  // namespace

const Services& Platform() {
  if (globals.services == nullptr) throw RuntimeError(ErrorNumber::NoObject);
  return *globals.services;
}

cOPC& OpenProject() {
  if (!globals.gOPC) throw RuntimeError(ErrorNumber::NoObject);
  return *globals.gOPC;
}

std::string RootFileName() { return globals.gOPC ? globals.gOPC->szFileName() : std::string{}; }

cNetwork& CurrentNetwork() {
  cNetwork* network = OpenProject().Networks().Network(globals.gnCurrentNetwork);
  if (network == nullptr) throw RuntimeError(ErrorNumber::NoObject);
  return *network;
}

cDevice& CurrentDevice() {
  cDevice* device = CurrentNetwork().Devices().Device(globals.gnCurrentDevice);
  if (device == nullptr) throw RuntimeError(ErrorNumber::NoObject);
  return *device;
}

RightPane& Pane() {
  if (globals.pane == nullptr) throw RuntimeError(ErrorNumber::NoObject);
  return *globals.pane;
}

void SetVisible(const Grid* grid) {
  RightPane& pane = Pane();
  const std::string name = grid == nullptr ? std::string{} : grid->Name();
  const auto sheets = pane.Sheets();
  const bool deviceSheet = std::any_of(sheets.begin() + RightPane::kFirstDeviceSheet, sheets.end(),
                                       [&](const Grid* sheet) { return sheet->Name() == name; });
  const bool warnings = pane.vsgWarnings.Name() == name;
  for (Grid* sheet : sheets) sheet->Visible(sheet->Name() == name);
  pane.vsgTags.Visible(deviceSheet);
  pane.lblTags.Visible(deviceSheet);
  pane.vsgWarnings.Visible(warnings);
  pane.lblWarnings.Visible(warnings);
}

cWarnings& ReadWarnings() { return MadeOnFirstUse(globals.gReadWarnings); }
cWarnings& WriteWarnings() { return MadeOnFirstUse(globals.gWriteWarnings); }

std::string_view TrimBlanks(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::string ParseINISetting(std::string_view raw) {
  // A semicolon starts a comment anywhere in a value, and a tab ends it as well: a value can hold neither.
  return std::string(TrimBlanks(CutBefore(CutBefore(CutBefore(raw, ';'), '\0'), '\t')));
}

std::string PadRight(std::string_view text, std::int32_t width) {
  std::string padded(text);
  if (width > 0 && static_cast<std::size_t>(width) > padded.size()) padded.resize(static_cast<std::size_t>(width), ' ');
  return padded;
}

bool CheckIPAddressSyntax(std::string_view address, bool bAllowZero) {
  const auto pieces = AddressPieces(address);
  if (!pieces) return false;
  bool allZero = true;
  bool inRange = true;
  for (const double piece : *pieces) {
    allZero = allZero && piece == 0;
    inRange = inRange && piece >= 0 && piece <= 255;
  }
  return allZero ? bAllowZero : inRange;
}

bool CheckIPAddressRange(std::string_view address, std::string& szMessage) {
  szMessage.clear();
  const auto pieces = AddressPieces(address);
  if (!pieces) return true;  // not an address: refused by CheckIPAddressSyntax before it comes here
  const double first = (*pieces)[0];
  if (first == 224 || first == 255) szMessage = ResText(238) + " : ";
  if (*pieces == std::array<double, 4>{127, 0, 0, 1}) szMessage = ResText(239) + " : ";
  return szMessage.empty();
}

bool QueryDelete(std::string_view prompt) { return !globals.gbQueryOnDelete || Platform().desktop.AskYesNo(prompt); }

void Trap(std::string_view label) {
  const ErrorNumber number = NumberOfErrorInFlight();
  ++globals.nTrappedErrors;
  IgnoreErrors([&] {
    Platform().desktop.ShowBox(
        fmt::format("{} {} {} {}{}", ResText(199), static_cast<int>(number), ResText(200), label, Describe(number)));
  });
}

}  // namespace tavrin::modMain
