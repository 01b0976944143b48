#include "shell/RandomWindowUser.h"

#include <array>
#include <memory>
#include <tuple>

#include "editing/ProjectState.h"
#include "editing/RandomHelp.h"
#include "editing/SheetRows.h"
#include "editing/TagRows.h"

namespace tavrin {

void RandomWindowUser::MakePlant() {
  modMain::globals.gOPC = std::make_unique<cOPC>();
  modMain::globals.gszProjectDir = directory.Path();
  Project().szFileName("ZOPCSRV.ini");
  for (int type = 0; type < kNetworkTypes; ++type) {
    const std::string number = std::to_string(type);
    cNetwork& network = AddNetwork(static_cast<NetworkType>(type), "Net" + number);
    AddDevice(network, "Dev" + number);
  }
  ASSERT_TRUE(Save());
  for (int type = 0; type < kNetworkTypes; ++type) {
    directory.Write("Dev" + std::to_string(type) + ".csv", "A;MB1;RW\r\nB;MB2;RO;CMT=note\r\nC;MB3;RW\r\n");
  }
  plant_ = FilesIn(directory);
}

// ---- the steps

void RandomWindowUser::Step() {
  modMain::globals.gbQueryOnDelete = Chance(60);
  modMain::globals.gbQueryOnSave = Chance(60);
  struct Kind {
    int weight;
    const char* name;
    void (RandomWindowUser::*play)();
  };
  static constexpr std::array kKinds{
      Kind{24, "sheets", &RandomWindowUser::EditSheet}, Kind{31, "tags", &RandomWindowUser::EditTag},
      Kind{12, "clicks", &RandomWindowUser::ClickNode}, Kind{4, "deletions", &RandomWindowUser::DeleteTags},
      Kind{5, "sorts", &RandomWindowUser::SortTags},    Kind{10, "structure", &RandomWindowUser::ChangeStructure},
      Kind{5, "renames", &RandomWindowUser::Rename},    Kind{4, "saves", &RandomWindowUser::SaveProject},
      Kind{3, "loads", &RandomWindowUser::LoadAgain},   Kind{2, "languages", &RandomWindowUser::ChangeLanguage}};
  int rest = Dice(100);
  for (const Kind& kind : kKinds) {
    rest -= kind.weight;
    if (rest >= 0) continue;
    SCOPED_TRACE(kind.name);
    ++played[kind.name];
    const int nodes = Window().tvwMain.Count();
    (this->*kind.play)();
    const int now = Window().tvwMain.Count();
    if (kind.play != &RandomWindowUser::LoadAgain && now != nodes) ++played[now > nodes ? "added" : "removed"];
    break;
  }
  Window().mnuMain(2).UserOpen();  // what is still open ends as it does when a user turns to a menu
}

std::string RandomWindowUser::NewName() {
  if (Chance(10)) return OneOf(std::array<std::string_view, 3>{"", "  ", "dev0"});
  if (Chance(10)) return Chance(50) ? "Net1" : Selected().Text();
  return "n." + std::to_string(++names_);
}

void RandomWindowUser::PlayDialog(frmCreate& dialog) {
  dialog.txtName.UserText(NewName());
  if (Chance(90)) dialog.rbType(std::array{0, 2, 3, 4}.at(static_cast<std::size_t>(Dice(4)))).UserClick();
  if (Chance(90)) dialog.cmdAction(0).UserClick();
  setterMayHaveRun_ = setterMayHaveRun_ || !dialog.Visible();
  if (dialog.Visible()) dialog.UserClose();
}

void RandomWindowUser::ClickNode() {
  Tree& tree = Window().tvwMain;
  TreeNode& node = *tree.Node(1 + Dice(tree.Count()));
  const bool right = Chance(15);
  oddRows_.clear();
  setterMayHaveRun_ = setterMayHaveRun_ || right;
  if (Chance(20)) return tree.UserSelect(node);
  tree.UserPress(right ? MouseButton::Right : MouseButton::Left, &node);
}

void RandomWindowUser::EditSheet() {
  Grid& sheet = Sheet();
  if (!sheet.Visible()) return ClickNode();
  const int row = 1 + Dice(sheet.Rows() - 1);
  sheet.UserPress(MouseButton::Left, {row, 1});
  if (Chance(30)) sheet.UserDblClick({row, 1});
  if (Chance(30)) sheet.UserKey(Key::F2);
  if (sheet.OpenEdit() != nullptr && Chance(70)) sheet.UserEditText("");
  const RowCase& known = ExpectedRows(SheetNumber())[static_cast<std::size_t>(row) - 1];
  sheet.UserType(Chance(50) ? OneOf(kRandomValues) : std::string(Chance(60) ? known.typed : known.refused));
  if (sheet.OpenEdit() == nullptr) return;
  const int edited = sheet.OpenEdit()->cell.row;  // a row that cannot be reached leaves the user where he was
  const bool entered = EndEdit(sheet);
  JudgeEdit(entered, edited);
}

std::string RandomWindowUser::TagText(int col) {
  if (col == kTagName) return Chance(5) ? std::string(33, 'x') : Chance(10) ? "A" : "T" + std::to_string(++names_);
  if (col == kTagData) return OneOf(kRandomAddresses);
  return col == kTagAccess ? OneOf(kRandomAccess) : OneOf(kRandomTexts);
}

void RandomWindowUser::EditTag() {
  Grid& grid = Tags();
  if (!OnDevice() || !grid.Visible()) return ClickNode();
  const int row = Chance(50) ? grid.Rows() - 1 : 1 + Dice(grid.Rows() - 1);
  const int col = Chance(70) ? 1 + Dice(3) : 1 + Dice(kTagColumns - 1);
  if (Chance(60)) grid.UserPress(MouseButton::Left, {row, col});
  if (grid.Row() == 0) grid.UserSelect({row, col});
  const int edited = grid.Col();
  if (Chance(50)) grid.UserKey(Key::F2);
  if (grid.OpenEdit() != nullptr && Chance(80)) grid.UserEditText("");
  grid.UserType(TagText(edited));
  if (grid.OpenEdit() == nullptr) return;
  const bool entered = EndEdit(grid);
  JudgeEdit(entered, 0);
}

bool RandomWindowUser::EndEdit(Grid& grid) {
  ++played["edits"];
  switch (Dice(8)) {
    case 0: grid.UserKey(Key::Escape); return ++played["cancelled"], false;
    case 1: grid.UserTab(Chance(30)); return true;
    case 2: grid.UserPress(MouseButton::Left, {1, 1}); return true;
    case 3: Window().mnuMain(1).UserOpen(); return true;
    case 4: Sheet().UserFocus(); return Window().EndPendingEdits(), true;
    default: grid.UserKey(Key::Enter); return true;
  }
}

void RandomWindowUser::JudgeEdit(bool entered, int sheetRow) {
  const auto boxes = TakeBoxes();
  const auto after = StateOf(Project());
  if (!entered) {
    EXPECT_EQ(after, before_);
    EXPECT_TRUE(boxes.empty());
    return;
  }
  setterMayHaveRun_ = true;
  const auto [refused, reported] = JudgeBoxes(boxes, before_, after);
  if (refused) ++played["refused"];
  if (sheetRow == 0) {
    if (reported) Click(Selected().Key());  // the cell keeps what was typed
    if (reported) oddRows_.clear();
    return;
  }
  const bool keeps = ExpectedRows(SheetNumber())[static_cast<std::size_t>(sheetRow) - 1].keepsTyped;
  oddRows_.erase(sheetRow);
  if (!boxes.empty() && (reported || keeps)) oddRows_.insert(sheetRow);
}

void RandomWindowUser::DeleteTags() {
  Grid& grid = Tags();
  if (!OnDevice() || !grid.Visible()) return ClickNode();
  grid.UserSelect({1 + Dice(grid.Rows() - 1), 1}, {1 + Dice(grid.Rows() - 1), 1});
  const bool byKey = Chance(70);
  ToolButton& button = Window().Toolbar1.Buttons(kToolDelete);
  if (!byKey && !button.Enabled()) return;
  EXPECT_TRUE(byKey || button.Tag() == kDeleteTags);
  const bool query = modMain::globals.gbQueryOnDelete;
  if (byKey) grid.UserKey(Key::Delete);
  if (!byKey) button.UserClick();
  EXPECT_FALSE(button.Enabled());
  if (!query || dialogs_.yes) {
    EXPECT_TRUE(modMain::CurrentDevice().bDataDirty());
    setterMayHaveRun_ = true;
  } else {
    EXPECT_EQ(StateOf(Project()), before_);
  }
}

void RandomWindowUser::SortTags() {
  Grid& grid = Tags();
  if (!OnDevice() || !grid.Visible()) return ClickNode();
  if (Chance(50)) grid.UserSelect({1, 1 + Dice(9)});
  const Cell heading{0, 1 + Dice(9)};
  grid.UserPress(MouseButton::Left, heading);
  grid.UserDblClick(heading);
  EXPECT_TRUE(grid.Redraw());
  EXPECT_EQ(StateOf(Project()), before_);
}

void RandomWindowUser::ChangeStructure() {
  const std::int32_t networks = Project().Networks().Count();
  const bool keep = networks < 4 && !OnDevice() && Chance(80);
  const std::size_t asked = dialogs_.asked.size();
  const int nodes = Window().tvwMain.Count();
  switch (Dice(keep ? 2 : 4)) {
    case 0:
      Click("#1");
      oddRows_.clear();
      return Window().mnuEdit(1).UserShortcut();
    case 1:
      if (networks != 0) Click("#1#" + std::to_string(Network(1 + Dice(networks)).nID()));
      oddRows_.clear();
      return Window().mnuEdit(3).UserClick();
    case 2:
      Window().tvwMain.UserFocus();
      Window().tvwMain.UserKey(Key::Delete);
      break;
    default: Window().Toolbar1.Buttons(kToolDelete).UserClick(); break;
  }
  if (dialogs_.asked.size() > asked && !dialogs_.yes) {
    EXPECT_EQ(StateOf(Project()), before_);
    return;
  }
  setterMayHaveRun_ = true;
  if (Window().tvwMain.Count() < nodes) oddRows_.clear();  // the root's sheet has been filled
}

void RandomWindowUser::Rename() {
  Tree& tree = Window().tvwMain;
  if (Chance(50)) ClickNode();
  const std::string old = Selected().Text();
  if (Chance(50)) tree.UserKey(Key::F2);
  if (!tree.LabelEdit()) Window().mnuEdit(5).UserShortcut();
  if (!tree.LabelEdit()) return;
  const std::string name = Chance(10) ? std::string(33, 'x') : NewName();
  tree.UserLabelText(name);
  static_cast<void>(TakeBoxes());
  const auto atStart = StateOf(Project());
  if (Chance(20)) {
    tree.UserKey(Key::Escape);
    EXPECT_EQ(StateOf(Project()), atStart);
    return;
  }
  tree.UserKey(Key::Enter);
  const bool refused = !TakeBoxes().empty();
  EXPECT_EQ(Selected().Text(), refused ? old : name);
  EXPECT_EQ(StateOf(Project()) == atStart, refused);
  setterMayHaveRun_ = setterMayHaveRun_ || !refused;
  if (refused) return;
  ++played["renamed"];
  oddRows_.clear();
}

void RandomWindowUser::SaveProject() {
  const bool clean = !Project().bOpcProjectDirty() && savedSinceLoad_;
  const auto written = clean ? FilesIn(directory) : std::map<std::string, std::string>{};
  const bool query = modMain::globals.gbQueryOnSave;
  Window().mnuFile(3).UserShortcut();
  EXPECT_EQ(StateOf(Project()), before_);
  if (query && dialogs_.asked.back() == "#21" && !dialogs_.yes) return;
  if (clean) {
    ++played["saved clean"];
    EXPECT_EQ(FilesIn(directory), written);
  }
  EXPECT_FALSE(Project().bOpcProjectDirty());
  savedSinceLoad_ = true;
  MarkClean();
  if (Chance(40)) SaveProject();
}

void RandomWindowUser::LoadAgain() {
  // Another project, as far as the user is concerned: not even the first one's changes go into it.
  const bool anew = Chance(40) || Project().Networks().Count() == 0;
  if (anew) {
    Project().bDataDirty(false);
    dialogs_.alwaysNo = modMain::globals.gbQueryOnSave = true;
    for (const auto& [name, bytes] : plant_) directory.Write(name, bytes);
  }
  dialogs_.AnswerNextPath(directory.Path() + "ZOPCSRV.ini");
  Window().mnuFile(2).UserClick();
  dialogs_.alwaysNo = false;
  EXPECT_FALSE(Project().bOpcProjectDirty());
  savedSinceLoad_ = false;
  oddRows_.clear();
  MarkClean();
}

void RandomWindowUser::MarkClean() {
  before_ = clean_ = StateOf(Project());
  setterMayHaveRun_ = false;
}

// ---- the invariants

void RandomWindowUser::ExpectInvariants() {
  for (const std::string& box : TakeBoxes()) EXPECT_TRUE(MayBeTold(box)) << box;
  ExpectTree();
  ExpectSheet();
  if (OnDevice() && Tags().Visible()) ExpectTags();
  ExpectDirtyMark();
}

using NodeLine = std::tuple<std::string, std::string, int>;

/// Each object has its node under its key, which no other has, and the selected node is the selected object.
void RandomWindowUser::ExpectTree() {
  std::vector<NodeLine> expected{{"#1", "#10", 0}};
  for (const cNetwork& network : Project().Networks()) {
    const std::string key = "#1#" + std::to_string(network.nID());
    expected.emplace_back(key, network.szNetworkName(), network.nNetworkType() + 1);
    for (const cDevice& device : network.Devices()) {
      expected.emplace_back(key + "#" + std::to_string(device.nID()), device.szDeviceName(),
                            network.nNetworkType() + 6);
    }
  }
  std::vector<NodeLine> shown;
  std::vector<const TreeNode*> open{Window().tvwMain.Node(1)};
  while (!open.empty()) {
    const TreeNode& node = *open.back();
    open.pop_back();
    shown.emplace_back(node.Key(), node.Text(), node.Tag());
    for (auto child = node.Children().rbegin(); child != node.Children().rend(); ++child) open.push_back(child->get());
  }
  EXPECT_EQ(shown, expected);
  std::set<std::string> keys;
  for (const NodeLine& line : expected) EXPECT_TRUE(keys.insert(std::get<0>(line)).second) << std::get<0>(line);
  EXPECT_EQ(modMain::globals.gnCurrentNetwork, ProjectTree::GetNWIndexFromKey(Selected().Key()));
  EXPECT_EQ(modMain::globals.gnCurrentDevice, ProjectTree::GetDVCIndexFromKey(Selected().Key()));
}

void RandomWindowUser::ExpectSheet() {
  for (const Grid* grid : Window().Sheets()) {
    EXPECT_EQ(grid->Visible(), grid == &Sheet() && !Window().vsgWarnings.Visible()) << grid->Name();
    EXPECT_EQ(grid->OpenEdit(), nullptr) << grid->Name();
  }
  if (!Sheet().Visible()) return;
  const auto fresh = FreshSheet();
  ASSERT_EQ(Sheet().Rows() - 1, static_cast<int>(fresh.size()));
  for (int row = 1; row < Sheet().Rows(); ++row) {
    if (oddRows_.contains(row)) continue;
    EXPECT_EQ(Sheet().Text({row, 1}), fresh[static_cast<std::size_t>(row) - 1]) << Sheet().Name() << ' ' << row;
  }
}

/// Each row with a key is a tag, with its present texts, and each tag has one such row.
void RandomWindowUser::ExpectTags() {
  const Grid& grid = Tags();
  EXPECT_EQ(grid.OpenEdit(), nullptr);
  EXPECT_EQ(TagsShown(grid), TagsHeld(modMain::CurrentDevice().Tags()));
  const bool onTag = grid.Row() >= 1 && grid.Row() < grid.Rows() - 1;
  EXPECT_EQ(Window().lblTags.Caption(), onTag ? grid.Text(grid.Current()) : "");
}

/// The program asks to save exactly when there is something to save.
void RandomWindowUser::ExpectDirtyMark() {
  before_ = StateOf(Project());
  modMain::globals.gbQueryOnSave = dialogs_.alwaysNo = true;
  const std::size_t asked = dialogs_.asked.size();
  std::int32_t nResult = -1;
  Window().commands.OPCProjectSaveToDisk(false, nResult);
  dialogs_.alwaysNo = false;
  const bool dirty = dialogs_.asked.size() > asked;
  EXPECT_EQ(nResult, kNothingToDo);
  EXPECT_EQ(dirty, Project().bOpcProjectDirty());
  EXPECT_TRUE(dirty || before_ == clean_);
  EXPECT_TRUE(!dirty || setterMayHaveRun_);
}

}  // namespace tavrin
