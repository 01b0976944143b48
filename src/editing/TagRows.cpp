#include "editing/TagRows.h"

#include <array>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "model/cDevice.h"
#include "model/shared/Messages.h"
#include "model/shared/modMain.h"
#include "model/shared/modParser.h"
#include "model/shared/modText.h"
#include "model/tags/cTag.h"
#include "model/tags/cTags.h"
#include "platform/CodePage.h"

namespace tavrin {

namespace {

/// A column and the field of the tag that it shows; columns 1 to 9.
struct TagField {
  std::string_view (*get)(const cTag&);
  void (*set)(cTag&, std::string_view);
  bool upperInNewRow;  ///< the text of a new row is taken in upper case
};

constexpr std::array<TagField, kTagColumns - 1> kFields{{
    {[](const cTag& tag) { return tag.szTag(); }, [](cTag& tag, std::string_view text) { tag.szTag(text); }, false},
    {[](const cTag& tag) { return tag.szData(); }, [](cTag& tag, std::string_view text) { tag.szData(text); }, true},
    {[](const cTag& tag) { return tag.szRW(); }, [](cTag& tag, std::string_view text) { tag.szRW(text); }, true},
    {[](const cTag& tag) { return tag.szHystLB(); }, [](cTag& tag, std::string_view text) { tag.szHystLB(text); },
     true},
    {[](const cTag& tag) { return tag.szHystUB(); }, [](cTag& tag, std::string_view text) { tag.szHystUB(text); },
     true},
    {[](const cTag& tag) { return tag.szLB(); }, [](cTag& tag, std::string_view text) { tag.szLB(text); }, true},
    {[](const cTag& tag) { return tag.szUB(); }, [](cTag& tag, std::string_view text) { tag.szUB(text); }, true},
    {[](const cTag& tag) { return tag.szTest(); }, [](cTag& tag, std::string_view text) { tag.szTest(text); }, true},
    {[](const cTag& tag) { return tag.szComment(); }, [](cTag& tag, std::string_view text) { tag.szComment(text); },
     false},
}};

const TagField& Field(int col) { return kFields[static_cast<std::size_t>(col) - 1]; }

/// Tells what a check says against a text; 0 is no text number. @return true when there was something to tell
bool Tell(std::int32_t textNumber) {
  if (textNumber == 0) return false;
  modMain::Platform().desktop.ShowBox(ResText(textNumber));
  return true;
}

void TellTaken(std::string_view name) { modMain::Platform().desktop.ShowBox(NameProblem(221, name)); }

std::int32_t PlcType(const cDevice& device) {
  constexpr std::array kPlcTypes{
      +[](const cDevice& of) { return of.nMPI_PLCType(); }, +[](const cDevice& of) { return of.nH1_PLCType(); },
      +[](const cDevice& of) { return of.nTCPISO_PLCType(); }, +[](const cDevice& of) { return of.nTCPRW_PLCType(); },
      +[](const cDevice& of) { return of.nTCPIPK_PLCType(); }};
  const auto type = static_cast<std::size_t>(device.nDeviceType());
  return type < kPlcTypes.size() ? kPlcTypes[type](device) : 0;
}

void Empty(Grid& grid, int row, int firstCol, int lastCol) {
  for (int col = firstCol; col <= lastCol; ++col) grid.Text({row, col}, "");
}

/// Where the next tag is typed: after a comment the cursor stands on the last tag, with an empty row below it.
void EndOfEdit(Grid& grid, int editedRow) {
  if (grid.Col() != kTagComment) return;
  if (editedRow == grid.Rows() - 1) grid.AddItem("");
  grid.Select({grid.Rows() - 2, kTagName});
}

// ---- a row with a tag

/// @return false after a refusal that was told
bool TakesName(cTag& tag, const std::string& name, const cTags& tags) {
  constexpr std::size_t kLongest = 32;
  if (name == tag.szTag()) return true;
  if (name.size() > kLongest) return !Tell(225);
  if (!tags.CheckUniqueTag(name)) {
    TellTaken(name);
    return false;
  }
  tag.szTag(name);
  return !tag.bLetError();
}

/// The server is asked for device type 0 whatever the device: a tag that is there already may keep the form of any.
bool AcceptsData(std::string_view text, const cDevice& device) {
  std::string source = UpperCase(modMain::TrimBlanks(text));
  return !Tell(SourceCheckText(ParserIsValidSource(source, 0, PlcType(device))));
}

/// @return false after a refusal that was told
bool TakesText(cTag& tag, int col, const std::string& text, const cDevice& device) {
  if (col == kTagData && !AcceptsData(text, device)) return false;
  Field(col).set(tag, text);
  return !tag.bLetError();
}

bool EditTag(Grid& grid, Cell cell, cDevice& device) {
  cTags& tags = device.Tags();
  cTag* const tag = tags.Tag(grid.Text({cell.row, kTagKey}));
  if (tag == nullptr) return false;
  const std::string text = grid.Text(cell);
  const bool isName = cell.col == kTagName;
  const bool taken =
      isName ? TakesName(*tag, std::string(modMain::TrimBlanks(text)), tags) : TakesText(*tag, cell.col, text, device);
  grid.Text(cell, Field(cell.col).get(*tag));
  if (!isName) EndOfEdit(grid, cell.row);
  return taken;
}

// ---- an open row

using RowTexts = std::array<std::string, kTagColumns>;

RowTexts ReadRow(const Grid& grid, int row) {
  RowTexts texts;
  for (int col = kTagName; col < kTagColumns; ++col) {
    const std::string text = grid.Text({row, col});
    const std::string_view trimmed = modMain::TrimBlanks(text);
    texts[static_cast<std::size_t>(col)] = Field(col).upperInNewRow ? UpperCase(trimmed) : std::string(trimmed);
  }
  return texts;
}

bool AcceptsNewName(std::string& name, const cTags& tags) {
  if (Tell(NameCheckText(ParserIsValidTagName(name)))) return false;
  const bool unique = tags.CheckUniqueTag(name);
  if (!unique) TellTaken(name);
  return unique;
}

/// What the check of an edited cell alone has said.
enum class CellCheck { Passed, Refused, RefusedAtOnce };

/// What the edited cell alone must satisfy; its text is then what the server's check has left of it. A refused cell is
/// emptied; at once means that nothing more is to be done.
CellCheck CheckCell(Grid& grid, Cell cell, RowTexts& texts, cDevice& device) {
  bool stops = false;
  bool refused = false;
  if (cell.col == kTagName) {
    stops = refused = !AcceptsNewName(texts[kTagName], device.Tags());
  } else if (cell.col == kTagData) {
    stops = refused =
        Tell(SourceCheckText(ParserIsValidSource(texts[kTagData], device.nDeviceType(), PlcType(device))));
  } else if (cell.col == kTagAccess) {
    cTag scratch;
    scratch.szRW(texts[kTagAccess]);
    refused = scratch.bLetError();
  }
  if (!refused) return CellCheck::Passed;
  grid.Text(cell, "");
  return stops ? CellCheck::RefusedAtOnce : CellCheck::Refused;
}

/// Gives a new tag the texts of its row; the cells of what it refuses are emptied.
bool Fill(cTag& tag, const RowTexts& texts, Grid& grid, int row) {
  bool accepted = true;
  for (int col = kTagName; col < kTagColumns; ++col) {
    Field(col).set(tag, texts[static_cast<std::size_t>(col)]);
    if (!tag.bLetError()) continue;
    accepted = false;
    grid.Text({row, col}, "");
  }
  return accepted;
}

/// @return the tag in the list, nullptr after a refusal that was told
const cTag* AddTag(Grid& grid, int row, const RowTexts& texts, cTags& tags) {
  auto made = std::make_unique<cTag>();
  if (!Fill(*made, texts, grid, row)) return nullptr;
  const std::string name(made->szTag());
  if (tags.AddItem(std::move(made))) return tags.Tag(name);
  TellTaken(name);
  return nullptr;
}

bool EditOpenRow(Grid& grid, Cell cell, cDevice& device) {
  RowTexts texts = ReadRow(grid, cell.row);
  const CellCheck check = CheckCell(grid, cell, texts, device);
  bool taken = check == CellCheck::Passed;
  if (check == CellCheck::RefusedAtOnce) return false;
  if (!texts[kTagName].empty() && !texts[kTagData].empty() && !texts[kTagAccess].empty()) {
    if (const cTag* const tag = AddTag(grid, cell.row, texts, device.Tags())) {
      grid.Text({cell.row, kTagKey}, tag->szTag());
      for (int col = kTagName; col < kTagColumns; ++col) grid.Text({cell.row, col}, Field(col).get(*tag));
    } else {
      Empty(grid, cell.row, kTagKey, kTagColumns - 1);
      taken = false;
    }
  }
  EndOfEdit(grid, cell.row);
  return taken;
}

}  // namespace

bool AfterTagEdit(Grid& grid, Cell cell) {
  cDevice& device = modMain::CurrentDevice();
  if (cell.col < kTagName || cell.col >= kTagColumns) return true;
  const bool open = grid.Text({cell.row, kTagKey}).empty();
  return open ? EditOpenRow(grid, cell, device) : EditTag(grid, cell, device);
}

void DeleteTagsOfSelection(Grid& grid) {
  cDevice& device = modMain::CurrentDevice();
  if (modMain::QueryDelete(ResText(24))) {
    std::vector<std::string> keys;
    for (int row = grid.LastSelectedRow(); row >= grid.FirstSelectedRow(); --row) {
      std::string key = grid.Text({row, kTagKey});
      if (!key.empty()) keys.push_back(std::move(key));
    }
    device.Tags().Remove(keys);
    device.bDataDirty(true);
  }
  device.Tags().Show(grid, device.nDeviceType());
}

bool TagKeyPasses(int col, int key) { return col != kTagComment || key != ','; }

}  // namespace tavrin
