#include "platform/controls/ListView.h"

#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/RuntimeError.h"
#include "platform/controls/Button.h"
#include "platform/controls/Form.h"

namespace tavrin {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Writes down what a list tells its view.
class ListRecord : public ListViewListener {
 public:
  void OnAboutToReset() override { told.emplace_back("about to reset"); }
  void OnReset() override { told.emplace_back("reset"); }
  void OnItemChanged(int row) override { told.push_back("item " + std::to_string(row)); }
  void OnCurrentChanged() override { told.emplace_back("current"); }

  std::vector<std::string> told;
};

class ListViewTest : public testing::Test {
 protected:
  ListViewTest() {
    list.Add({{"A", "a.txt", "OK", false}, {"B", "b.txt", "OK", true}, {"C", "c.txt", "NOK", true}});
    list.Listen(&record);
    list.OnItemCheck = [this](int row) { checks.push_back(row); };
  }
  ~ListViewTest() override { list.Listen(nullptr); }
  [[nodiscard]] std::vector<bool> Marks() const {
    std::vector<bool> marks;
    for (const ListItem& item : list.Items()) marks.push_back(item.checked);
    return marks;
  }

  Form form{"frmTest"};
  ListView list{form, "ListView1"};
  Button other{form, "cmdOther"};
  ListRecord record;
  std::vector<int> checks;
};

TEST_F(ListViewTest, HoldsRowsWithKeyTextPictureAndMark) {
  ASSERT_EQ(list.Count(), 3);
  EXPECT_EQ(list.Item(2).key, "C");
  EXPECT_EQ(list.Item(2).text, "c.txt");
  EXPECT_EQ(list.Item(2).icon, "NOK");
  EXPECT_TRUE(list.Item(2).checked);
  EXPECT_EQ(list.Current(), -1);
}

TEST_F(ListViewTest, ARowThatDoesNotExistIsAnError) {
  EXPECT_THROW(static_cast<void>(list.Item(3)), RuntimeError);
  EXPECT_THROW(static_cast<void>(list.Item(-1)), RuntimeError);
  EXPECT_THROW(list.Mark(3, "OK", false), RuntimeError);
}

TEST_F(ListViewTest, RowsAreAddedAtTheEndAndRemovedTogether) {
  list.Add({{"D", "d.txt", "OK", false}});
  EXPECT_EQ(list.Item(3).key, "D");
  list.UserSelect(1);
  list.Clear();
  EXPECT_EQ(list.Count(), 0);
  EXPECT_EQ(list.Current(), -1) << "the row is gone";
  EXPECT_THAT(record.told, ElementsAre("about to reset", "reset", "current", "about to reset", "reset"));
}

TEST_F(ListViewTest, TheCurrentRowStaysWhenRowsAreAdded) {
  list.UserSelect(1);
  list.Add({{"D", "d.txt", "OK", false}});
  EXPECT_EQ(list.Current(), 1);
}

TEST_F(ListViewTest, TheProgramMarksWithoutRunningTheRule) {
  list.Mark(0, "NOK", true);
  EXPECT_EQ(list.Item(0).icon, "NOK");
  EXPECT_THAT(Marks(), ElementsAre(true, true, true));
  EXPECT_THAT(checks, IsEmpty());
  EXPECT_THAT(record.told, ElementsAre("item 0"));
}

TEST_F(ListViewTest, AnEqualMarkTellsNobody) {
  list.Mark(1, "OK", true);
  EXPECT_THAT(record.told, IsEmpty());
}

TEST_F(ListViewTest, TheUserTicksARowAndTheRuleSeesTheNewMark) {
  list.OnItemCheck = [this](int row) {
    checks.push_back(row);
    EXPECT_TRUE(list.Item(row).checked);
  };
  list.UserCheck(0, true);
  EXPECT_THAT(Marks(), ElementsAre(true, true, true));
  EXPECT_THAT(checks, ElementsAre(0));
  EXPECT_EQ(list.Current(), 0);
  EXPECT_TRUE(list.Focused());
}

TEST_F(ListViewTest, ATickThatIsThereAlreadyRunsNoRuleButGoesToTheRow) {
  list.UserCheck(1, true);
  EXPECT_THAT(checks, IsEmpty());
  EXPECT_EQ(list.Current(), 1);
}

TEST_F(ListViewTest, TheRuleMayFillTheListAnew) {
  list.OnItemCheck = [this](int) {
    list.Clear();
    list.Add({{"X", "x.txt", "OK", false}});
  };
  list.UserCheck(2, false);
  ASSERT_EQ(list.Count(), 1);
  EXPECT_EQ(list.Item(0).key, "X");
  EXPECT_EQ(list.Current(), -1);
}

TEST_F(ListViewTest, GoingToARowTakesTheKeyboardFirst) {
  other.UserFocus();
  std::vector<std::string> events;
  other.OnLostFocus = [&] { events.push_back("lost at " + std::to_string(list.Current())); };
  list.OnGotFocus = [&] { events.push_back("got at " + std::to_string(list.Current())); };
  list.UserSelect(2);
  EXPECT_THAT(events, ElementsAre("lost at -1", "got at -1"));
  EXPECT_EQ(list.Current(), 2);
}

TEST_F(ListViewTest, GesturesOnAHiddenOrDisabledListOrANonexistentRowHaveNoEffect) {
  const auto everyGesture = [this] {
    list.UserSelect(1);
    list.UserCheck(0, true);
  };
  list.Visible(false);
  everyGesture();
  list.Visible(true);
  list.Enabled(false);
  everyGesture();
  list.Enabled(true);
  list.UserSelect(3);
  list.UserSelect(-1);
  list.UserCheck(3, true);
  list.UserCheck(-1, true);
  EXPECT_EQ(list.Current(), -1);
  EXPECT_THAT(Marks(), ElementsAre(false, true, true));
  EXPECT_THAT(checks, IsEmpty());
  EXPECT_FALSE(list.Focused());
}

TEST_F(ListViewTest, TheHeaderIsToldAsAProperty) {
  int changes = 0;
  const Connection changed = list.Changed.Connect([&] { ++changes; });
  list.Header("Files in /plant", 3000);
  EXPECT_EQ(list.HeaderText(), "Files in /plant");
  EXPECT_EQ(list.HeaderWidth(), 3000);
  EXPECT_EQ(changes, 1);
}

}  // namespace
}  // namespace tavrin
