#include "editing/RandomUser.h"

#include <map>

#include "editing/ProjectState.h"
#include "editing/RandomHelp.h"
#include "model/cNetwork.h"

namespace tavrin {

namespace {

/// Rows whose cell keeps what was refused.
bool KeepsTyped(std::string_view sheet, int row) {
  return (sheet == "vsgMPIDVC" && row == 2) || (sheet == "vsgTCPISODVC" && row == 3) ||
         (sheet == "vsgTCPRWDVC" && row == 5);
}

}  // namespace

RandomUser::RandomUser() {
  const auto sheets = pane.Sheets();
  for (std::size_t i = 0; i < sheets.size(); ++i) {
    editing_.at(i) = std::make_unique<SheetEditing>(*sheets.at(i), static_cast<int>(i));
  }
  grid.OnKeyPress = [this](int& key) {
    key = 0;
    grid.MoveNext();
  };
  for (int type = 0; type < kNetworkTypes; ++type) {
    const std::string number = std::to_string(type);
    cNetwork& network = AddNetwork(static_cast<NetworkType>(type), "Net" + number);
    AddDevice(network, "Dev" + number);
    directory.Write("Dev" + number + ".csv", "A;MB1;RW\r\nB;MB2;RO;CMT=note\r\n");
    Tags().Refresh(type, 1);
  }
  static_cast<void>(Save());
  LoadProjectAgain();
}

// ---- the steps

void RandomUser::Step() {
  const int kind = Dice(100);
  if (kind < 35) {
    EditSheet();
  } else if (kind < 80) {
    EditTag();
  } else if (kind < 88) {
    SelectNode();
  } else if (kind < 91) {
    DeleteTags();
  } else if (kind < 95) {
    SortTags();
  } else if (kind < 98) {
    SaveProject();
  } else {
    LoadProjectAgain();
  }
}

void RandomUser::SelectNode() {
  form.EndPendingEdits();
  const int type = Dice(kNetworkTypes);
  const int kind = Dice(4);  // devices most of the time
  modMain::globals.gnCurrentNetwork = kind == 0 ? 0 : type + 1;
  modMain::globals.gnCurrentDevice = kind >= 2 ? 1 : 0;
  sheet_ = kind == 0 ? 0 : type + (kind == 1 ? RightPane::kFirstNetworkSheet : RightPane::kFirstDeviceSheet);
  ShowNode();
}

void RandomUser::ShowNode() {
  oddRows_.clear();
  if (OnDevice()) {
    modMain::CurrentDevice().Show(Sheet());
  } else if (modMain::globals.gnCurrentNetwork != 0) {
    modMain::CurrentNetwork().Show(Sheet());
  } else {
    Project().Show(Sheet());
  }
}

void RandomUser::EditSheet() {
  Grid& sheet = Sheet();
  const int row = 1 + Dice(sheet.Rows() - 1);
  sheet.UserSelect({row, 1});
  if (Chance(50)) sheet.UserBeginEdit();
  const std::string text = OneOf(kRandomValues);
  if (sheet.OpenEdit() != nullptr && !sheet.OpenEdit()->choices.empty() && Chance(60)) {
    const auto choices = sheet.OpenEdit()->choices;
    sheet.UserEditText(choices.at(static_cast<std::size_t>(Dice(static_cast<int>(choices.size())))));
  } else {
    if (sheet.OpenEdit() != nullptr && Chance(70)) sheet.UserEditText("");
    sheet.UserType(text);
  }
  if (sheet.OpenEdit() == nullptr) return;
  const bool entered = EndEdit(sheet);
  JudgeEdit(entered, row);
}

std::string RandomUser::TagText(int col) {
  if (col == kTagName) {
    const std::string name = OneOf(std::array<std::string_view, 4>{"N", "n", " pump_", "\xE4"});
    return Chance(3) ? std::string(33, 'x') : Chance(3) ? "" : name + std::to_string(Dice(25));
  }
  if (col == kTagData) return OneOf(kRandomAddresses);
  return col == kTagAccess ? OneOf(kRandomAccess) : OneOf(kRandomTexts);
}

void RandomUser::EditTag() {
  if (!OnDevice()) return SelectNode();
  const int row = Chance(50) ? grid.Rows() - 1 : 1 + Dice(grid.Rows() - 1);
  const int col = Chance(70) ? 1 + Dice(3) : 1 + Dice(kTagColumns - 1);
  grid.UserSelect({row, col});
  if (Chance(50)) grid.UserBeginEdit();
  if (grid.OpenEdit() != nullptr && Chance(80)) grid.UserEditText("");
  grid.UserType(TagText(col));
  if (grid.OpenEdit() == nullptr) return;
  const bool entered = EndEdit(grid);
  JudgeEdit(entered, 0);
}

bool RandomUser::EndEdit(Grid& shown) {
  ++played.edits;
  switch (Dice(8)) {
    case 0: shown.UserKey(Key::Escape); return ++played.cancelled, false;
    case 1: shown.UserCancelEdit(); return ++played.cancelled, false;
    case 2: shown.UserKey(Key::Enter); return true;
    case 3: shown.UserTab(Chance(30)); return true;
    case 4: shown.UserPress(MouseButton::Left, {1, 1}); return true;
    case 5: form.EndPendingEdits(); return true;
    default: shown.UserEndEdit(); return true;
  }
}

void RandomUser::JudgeEdit(bool entered, int sheetRow) {
  const auto boxes = Boxes();
  const auto after = StateOf(Project());
  if (!entered) {
    EXPECT_EQ(after, before_);
    EXPECT_TRUE(boxes.empty());
    return;
  }
  setterMayHaveRun_ = true;
  const auto [refused, reported] = JudgeBoxes(boxes, before_, after);
  if (refused) ++played.refused;
  if (sheetRow == 0) {
    if (reported) Show();  // the row keeps what was typed
  } else if (!boxes.empty() && (reported || KeepsTyped(Sheet().Name(), sheetRow))) {
    oddRows_.insert(sheetRow);
  } else {
    oddRows_.erase(sheetRow);
  }
}

void RandomUser::DeleteTags() {
  if (!OnDevice()) return SelectNode();
  ++played.deletions;
  const int first = 1 + Dice(grid.Rows() - 1);
  const int last = 1 + Dice(grid.Rows() - 1);
  modMain::globals.gbQueryOnDelete = Chance(70);
  const bool yes = Chance(60) || !modMain::globals.gbQueryOnDelete;
  if (modMain::globals.gbQueryOnDelete) desktop.AnswerNext(yes);
  grid.UserSelect({first, 1}, {last, 1});
  grid.UserKey(Key::Delete);
  if (yes) {
    EXPECT_TRUE(modMain::CurrentDevice().bDataDirty());
    setterMayHaveRun_ = true;
  } else {
    EXPECT_EQ(StateOf(Project()), before_);
  }
}

void RandomUser::SortTags() {
  if (!OnDevice()) return SelectNode();
  ++played.sorts;
  const int last = grid.Rows() - 1;
  if (grid.Text({last, kTagKey}).empty()) grid.RemoveItem(last);
  if (grid.Rows() > 1) {
    grid.UserSelect({1, 1 + Dice(9)}, {1, 1 + Dice(9)});
    grid.SortAscending();
  }
  grid.AddItem("");
  EXPECT_EQ(StateOf(Project()), before_);
}

void RandomUser::SaveProject() {
  ++played.saves;
  form.EndPendingEdits();
  const bool clean = !Project().bOpcProjectDirty() && savedSinceLoad_;
  const auto written = clean ? FilesIn(directory) : std::map<std::string, std::string>{};
  EXPECT_TRUE(Save());
  if (clean) {
    ++played.savedClean;
    EXPECT_EQ(FilesIn(directory), written);
  }
  EXPECT_FALSE(Project().bOpcProjectDirty());
  savedSinceLoad_ = true;
  MarkClean();
}

void RandomUser::LoadProjectAgain() {
  ++played.loads;
  static_cast<void>(Load());
  EXPECT_FALSE(Project().bOpcProjectDirty());
  savedSinceLoad_ = false;
  modMain::globals.gnCurrentNetwork = modMain::globals.gnCurrentDevice = 0;
  MarkClean();
  SelectNode();
}

void RandomUser::MarkClean() {
  before_ = clean_ = StateOf(Project());
  setterMayHaveRun_ = false;
}

// ---- the invariants

void RandomUser::ExpectInvariants() {
  static_cast<void>(Boxes());
  ExpectSheet();
  if (OnDevice()) ExpectTags();
  ExpectNumbers();
  ExpectDirtyMark();
}

Grid& RandomUser::Sheet() { return *pane.Sheets().at(static_cast<std::size_t>(sheet_)); }

void RandomUser::ExpectSheet() {
  EXPECT_TRUE(Sheet().Visible());
  EXPECT_EQ(Sheet().OpenEdit(), nullptr);
  auto shown = Column(Sheet(), 1);
  auto fresh = FreshSheet();
  ASSERT_EQ(shown.size(), fresh.size());
  for (const int row : oddRows_)
    shown.at(static_cast<std::size_t>(row) - 1) = fresh.at(static_cast<std::size_t>(row) - 1);
  EXPECT_EQ(shown, fresh) << Sheet().Name();
}

/// Each row with a key is a tag, with its present texts, and each tag has one such row.
void RandomUser::ExpectTags() {
  EXPECT_EQ(grid.OpenEdit(), nullptr);
  EXPECT_EQ(TagsShown(grid), TagsHeld(Tags()));
}

void RandomUser::ExpectNumbers() {
  std::set<std::int32_t> networks;
  for (const cNetwork& network : Project().Networks()) {
    EXPECT_TRUE(networks.insert(network.nID()).second);
    std::set<std::int32_t> devices;
    for (const cDevice& device : network.Devices()) EXPECT_TRUE(devices.insert(device.nID()).second);
  }
}

void RandomUser::ExpectDirtyMark() {
  const bool dirty = Project().bOpcProjectDirty();
  before_ = StateOf(Project());
  EXPECT_TRUE(dirty || before_ == clean_);
  EXPECT_TRUE(!dirty || setterMayHaveRun_);
}

}  // namespace tavrin
