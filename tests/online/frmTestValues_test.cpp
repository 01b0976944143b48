// What the test run writes to the items, and what it makes of what comes back.
#include "online/TestRun.h"

namespace tavrin {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

class frmTestValues : public TestRun {
 protected:
  /// Up to the wait for good quality.
  void OpenUpToWait() {
    Open();
    TickTo(1);
    static_cast<void>(server.TakeLog());
  }
  /// Adds a tag with a set value that is an array.
  void AddCurve(const std::string& setValue) { AddTag(Device(1, 1), "Curve", setValue); }
  static Variant Words(std::vector<std::uint64_t> numbers) {
    std::vector<Scalar> elements;
    for (const std::uint64_t number : numbers) elements.emplace_back(number);
    return Variant::Array(VariantType::UInt16, std::move(elements));
  }
  /// Everything good, the curve with this value, and then the update. @return what was written
  std::vector<std::string> UpdateWith(Variant curve) {
    OpenUpToWait();
    AllGood();
    server.Push("Press/Curve", std::move(curve));
    Tick();
    return server.TakeLog();
  }
};

// ---- set values

TEST_F(frmTestValues, AnArrayIsWrittenElementByElementInTheTypeOfItsItem) {
  AddCurve("4|5|6");
  EXPECT_THAT(UpdateWith(Words({1, 2, 3})), Contains("write Press/Curve 0x2012=(4 | 5 | 6)"));
}

TEST_F(frmTestValues, AWrongNumberOfPiecesLeavesTheArrayAndSendsIt) {
  AddCurve("4|5");
  EXPECT_THAT(UpdateWith(Words({1, 2, 3})), Contains("write Press/Curve 0x2012=(1 | 2 | 3)"));
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(frmTestValues, AnEmptyArrayStaysEmpty) {
  AddCurve("4|5");
  EXPECT_THAT(UpdateWith(Words({})), Contains("write Press/Curve 0x2012=()"));
}

TEST_F(frmTestValues, AReservedNameKeepsItsValueWhateverItsSetValueIs) {
  Tag("RESULT").szTest("9");
  Tag("RESULTARRAY").szTest("1|2");
  OpenUpToWait();
  AllGood();
  Tick();
  EXPECT_THAT(server.TakeLog(),
              testing::IsSupersetOf({"write Press/RESULT 0x0003=1", "write Press/RESULTARRAY 0x0003=1"}));
}

TEST_F(frmTestValues, TheFirstErrorIsToldAndEndsTheWritingButNotTheCycle) {
  AddCurve("4|five");
  AddTag(Device(1, 1), "Behind", "1");
  const std::vector<std::string> written = UpdateWith(Words({1, 2}));
  EXPECT_THAT(Boxes(), ElementsAre("Fehler 13 in Prozedur TagsUpdate : Type mismatch Tag: CurveWert: 4|five"));
  EXPECT_THAT(written, Contains("write Press/Idle 0x0003=1"));
  EXPECT_THAT(written, Not(Contains(testing::HasSubstr("Behind"))));
  EXPECT_EQ(window->cycle.Step(), 4);
  EXPECT_EQ(window->lblLastCommand.Caption(), "Update");
  EXPECT_EQ(Steps().back(), "Update");
}

TEST_F(frmTestValues, ARefusedWriteIsToldWithItsTag) {
  server.readOnly = {"Press/RESULT"};
  OpenUpToWait();
  AllGood();
  Tick();
  EXPECT_THAT(Boxes(),
              ElementsAre("Fehler 5 in Prozedur TagsUpdate : Invalid procedure call or argument Tag: RESULTWert: "));
  EXPECT_THAT(server.TakeLog(), ElementsAre("write Press/COMMAND 0x0003=1", "write Press/RESULT 0x0003=1"));
  EXPECT_EQ(window->cycle.Step(), 4);
}

TEST_F(frmTestValues, ThatTheServerRefusesAReadOnlyTagIsExpected) {
  Tag("RESULT").szRW("RO");
  server.readOnly = {"Press/RESULT"};
  OpenUpToWait();
  AllGood();
  Tick();
  EXPECT_THAT(Boxes(), IsEmpty());
  EXPECT_THAT(server.TakeLog(), testing::IsSupersetOf({"write Press/RESULT 0x0003=1", "write Press/Idle 0x0003=1"}));
}

TEST_F(frmTestValues, AScalarInPlaceOfAnArrayIsAnError) {
  AddCurve("4|5");
  UpdateWith(Number(1));
  EXPECT_THAT(Boxes(), ElementsAre("Fehler 13 in Prozedur TagsUpdate : Type mismatch Tag: CurveWert: 4|5"));
}

// ---- values received

TEST_F(frmTestValues, EveryChangeFillsTheGridWithAllTags) {
  Open();
  TickTo(3);
  server.Push("Press/Level", {VariantType::Double, 2.5}, 0x40);
  EXPECT_THAT(Rows(), ElementsAre("COMMAND\tCOMMAND\t\t\t0", "RESULT\tRESULT\t\t\t0", "RESULTARRAY\tRESULTARRAY\t\t\t0",
                                  "Level\tLevel\t5\t2,5\t64", "Idle\tIdle\t\t\t0"));
  server.Push("Press/Idle", Words({7, 8}));
  EXPECT_EQ(Rows().size(), 5U);
  EXPECT_EQ(Rows().back(), "Idle\tIdle\t\t(7 | 8)\t192");
  EXPECT_EQ(window->vsgTest.Text({1, 5}), "") << "nothing compares the values";
  EXPECT_TRUE(window->vsgTest.Redraw());
  EXPECT_EQ(Tag("Level").szTest2(), "2,5");
  EXPECT_EQ(Tag("Level").nQuality(), 0x40);
}

TEST_F(frmTestValues, AnEmptyArrayTakesTheTextOfTheItemBefore) {
  Open();
  TickTo(3);
  server.Push({{"Press/Level", {Number(3), kGood, {}}}, {"Press/Idle", {Words({}), kGood, {}}}});
  EXPECT_EQ(Tag("Idle").szTest2(), "3");
  server.Push("Press/Idle", Words({}));
  EXPECT_EQ(Tag("Idle").szTest2(), "") << "the first item has none before it";
}

TEST_F(frmTestValues, AOneElementArrayStandsInBrackets) {
  Open();
  TickTo(3);
  server.Push("Press/Idle", Variant::Array(VariantType::Int16, {std::int64_t{4}}));
  EXPECT_EQ(Tag("Idle").szTest2(), "(4)");
}

TEST_F(frmTestValues, WhatHasNoTextKeepsTheTextBeforeAndTellsNothing) {
  Open();
  TickTo(3);
  server.Push({{"Press/Level", {Number(3), kGood, {}}}, {"Press/Idle", {{VariantType::Null, Scalar{}}, 8, {}}}});
  EXPECT_EQ(Tag("Idle").szTest2(), "3");
  EXPECT_EQ(Tag("Idle").nQuality(), 8);
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(frmTestValues, ItemsThatAreNoTagOfTheDeviceArePassedOver) {
  Open();
  for (const char* name : {"Level", "Press/Unknown", "Press/Level/More"}) window->opcDC.ControlItems().AddItem(name);
  server.Push("Level", Number(1));
  server.Push("Press/Unknown", Number(2));
  EXPECT_EQ(Tag("Level").szTest2(), "");
  server.Push("Press/Level/More", Number(3));
  EXPECT_EQ(Tag("Level").szTest2(), "3") << "the second piece names the tag";
  EXPECT_THAT(Boxes(), IsEmpty());
}

// ---- results of the partner

TEST_F(frmTestValues, EveryChangeBetweenCheckAndReturnAddsAResult) {
  OpenUpToWait();
  AllGood();
  TickTo(4);
  server.Push("Press/RESULTARRAY", Words({1}));
  EXPECT_EQ(Steps().back(), "Update") << "before the check nothing is a result";
  TickTo(2);
  server.Push("Press/RESULTARRAY", Words({1, 0}));
  server.Push("Press/Level", Number(5));
  ASSERT_GE(Protocol().size(), 2U);
  const std::vector<std::string> lines = Protocol();
  for (const std::string& line : {lines.end()[-1], lines.end()[-2]}) {
    EXPECT_THAT(line, testing::EndsWith("/Press          /RESULTARRAY /(1 | 0)"));
  }
  TickTo(0);
  const std::size_t count = Protocol().size();
  server.Push("Press/RESULTARRAY", Words({1, 1}));
  EXPECT_EQ(Protocol().size(), count);
}

TEST_F(frmTestValues, ADeviceWithoutAResultWritesNone) {
  Device(1, 1).Tags().Remove("RESULTARRAY");
  OpenUpToWait();
  AllGood();
  TickTo(2);
  const std::size_t count = Protocol().size();
  server.Push("Press/Level", Number(5));
  EXPECT_EQ(Protocol().size(), count);
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(frmTestValues, AMissingFolderOfTheProtocolIsToldAtEveryResult) {
  OpenUpToWait();
  AllGood();
  TickTo(2);
  std::filesystem::remove_all(LogFolder());
  server.Push("Press/Level", Number(5));
  server.Push("Press/Level", Number(6));
  const std::string box = "Fehler 76 in Prozedur SaveResultArray : Path not found";
  EXPECT_THAT(Boxes(), ElementsAre(box, box));
}

}  // namespace
}  // namespace tavrin
