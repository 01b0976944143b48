#include "online/frmOnline.h"

#include <utility>

#include "model/cDevice.h"
#include "online/OnlineTest.h"

namespace tavrin {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::IsEmpty;

class frmOnlineTest : public OnlineTest {
 protected:
  /// The monitor of the tag Press/Level, connected.
  frmOnline& Open() {
    frmOnline& made = *(window = std::make_unique<frmOnline>());
    made.szDeviceName("Press");
    made.szTag("Level");
    made.szData("MW10");
    made.szRW("RW");
    made.Form_Load();
    made.Show();
    return made;
  }
  [[nodiscard]] std::string Label(int index) const { return window->Label1(index).Caption(); }
  /// What the window shows of a value.
  std::string Shown(Variant value) {
    server.Push("Press/Level", std::move(value));
    return Label(9);
  }
  static Variant ArrayOf(int typeCode, std::vector<std::int64_t> numbers) {
    std::vector<Scalar> elements;
    for (const std::int64_t number : numbers) elements.emplace_back(number);
    return Variant::Array(static_cast<VariantType>(typeCode & 0xFF), std::move(elements));
  }

  std::unique_ptr<frmOnline> window;
};

TEST_F(frmOnlineTest, EveryHeadingTheButtonAndTheTitleHaveTheirTexts) {
  Open();
  EXPECT_EQ(window->Caption(), "#150");
  EXPECT_EQ(window->Label1.Count(), 12U);
  const std::vector<std::string> captions{"#4", "#5", "#6", "Press/Level", "MW10", "RW", "#151", "#152", "#153",
                                          "",   "",   ""};
  for (int i = 0; i < 12; ++i) EXPECT_EQ(Label(i), captions[static_cast<std::size_t>(i)]) << i;
  EXPECT_EQ(window->cmdAction(0).Caption(), "#30");
  EXPECT_THAT(Boxes(), IsEmpty());
}

// ---- names

TEST_F(frmOnlineTest, TheItemIsNamedByDeviceAndTagOfTheBrandsServer) {
  Open();
  EXPECT_THAT(server.TakeLog(), ElementsAre("connect " + std::string(ProgID()) + " Press/Level"));
  EXPECT_EQ(window->szTag(), "Press/Level");
  EXPECT_EQ(window->szData(), "MW10");
  EXPECT_EQ(window->szRW(), "RW");
  EXPECT_EQ(window->szDeviceName(), "Press");
}

TEST_F(frmOnlineTest, TheDemonstrationHasItsOwnServerAndItemButShowsTheDevice) {
  modMain::globals.gbDemo = true;
  Open();
  EXPECT_THAT(server.TakeLog(), ElementsAre("connect " + std::string(kDemoProgID) + " increment.UI2 array"));
  EXPECT_EQ(window->szTag(), "increment.UI2 array");
  EXPECT_EQ(Label(3), "Press/increment.UI2 array");
  server.Push("increment.UI2 array", ArrayOf(0x2012, {1, 2}));
  EXPECT_EQ(Label(9), "(1 | 2)");
}

TEST_F(frmOnlineTest, ADeviceNameThatComesAfterTheTagChangesTheItemButNotTheLabel) {
  frmOnline monitor;
  monitor.szDeviceName("Press");
  monitor.szTag("Level");
  monitor.szDeviceName("Saw");
  EXPECT_EQ(monitor.Label1(3).Caption(), "Press/Level");
  EXPECT_EQ(monitor.szTag(), "Saw/Level");
}

TEST_F(frmOnlineTest, TheSeparatorOfTheProjectHasNoPartInTheName) {
  Project().szACCEPTEDSEPARATORS(".");
  Project().szUsedSeparator(".");
  Open();
  EXPECT_EQ(window->szTag(), "Press/Level");
  EXPECT_EQ(Label(3), "Press/Level");
}

// ---- connection

TEST_F(frmOnlineTest, AServerThatIsAwayIsToldOnceAndTheWindowStaysEmpty) {
  server.away = true;
  Open();
  EXPECT_THAT(Boxes(), ElementsAre("#231 " + std::string(ProgID())));
  EXPECT_TRUE(window->Visible());
  EXPECT_EQ(window->Caption(), "#150");
  for (const int index : {9, 10, 11}) EXPECT_EQ(Label(index), "");
  EXPECT_THAT(server.TakeLog(), testing::SizeIs(1));
}

TEST_F(frmOnlineTest, AMachineWithoutOpcIsToldTheSameWay) {
  around.all.opc = nullptr;
  Open();
  EXPECT_THAT(Boxes(), ElementsAre("#231 " + std::string(ProgID())));
}

TEST_F(frmOnlineTest, TheButtonAndTheCloseBoxEndTheConnection) {
  for (const bool byButton : {true, false}) {
    Open();
    byButton ? window->cmdAction(0).UserClick() : window->UserClose();
    EXPECT_FALSE(window->Visible());
    EXPECT_FALSE(server.Connected());
    EXPECT_THAT(server.TakeLog(), ElementsAre(testing::StartsWith("connect"), "disconnect"));
  }
}

TEST_F(frmOnlineTest, AWindowWithoutAConnectionClosesToo) {
  server.away = true;
  Open();
  window->UserClose();
  EXPECT_FALSE(window->Visible());
  EXPECT_THAT(Boxes(), testing::SizeIs(1));
}

// ---- which item

TEST_F(frmOnlineTest, AnotherItemOfTheCollectionChangesNothing) {
  Open();
  window->opcDC.ControlItems().AddItem("Press/LEVEL");
  window->opcDC.ControlItems().AddItem("Saw/Level");
  server.Push({{"Press/LEVEL", {Number(1), kGood, {}}}, {"Saw/Level", {Number(2), kGood, {}}}});
  for (const int index : {9, 10, 11}) EXPECT_EQ(Label(index), "");
  server.Push({{"Saw/Level", {Number(2), kGood, {}}}, {"Press/Level", {Number(3), kGood, {}}}});
  EXPECT_EQ(Label(9), "3");
}

// ---- an item that the server does not have

TEST_F(frmOnlineTest, AnItemThatTheServerDoesNotKnowLeavesTheWindowEmpty) {
  Open();
  server.Push("Press/Level", {}, kBadConfiguration, Join({2026, 8, 9, 23, 1, 2, 0}));
  for (const int index : {9, 10, 11}) EXPECT_EQ(Label(index), "") << index;
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(frmOnlineTest, AnyOtherBadQualityIsShownAlsoWithoutAValue) {
  for (const auto& [quality, text] :
       {std::pair{kBad, "bad (non-specific)"}, std::pair{kBadNotConnected, "bad (not connected)"}}) {
    Open();
    server.Push("Press/Level", {}, quality, Join({2026, 8, 9, 23, 1, 2, 0}));
    EXPECT_EQ(Label(9), "");
    EXPECT_EQ(Label(10), text);
    EXPECT_EQ(Label(11), "10.08.2026 00:01:02");
  }
}

TEST_F(frmOnlineTest, AnItemThatTheServerHasNoLongerIsShownAsSuch) {
  Open();
  server.Push("Press/Level", Number(7), kGood);
  server.Push("Press/Level", {}, kBadConfiguration);
  EXPECT_EQ(Label(9), "");
  EXPECT_EQ(Label(10), "bad (configuration error)") << "a good value would be a lie";
}

TEST_F(frmOnlineTest, ARenamedTagIsUnknownUntilTheServerHasTheNewProject) {
  cDevice& press = AddDevice(AddNetwork(NetworkType::TcpRw, "Line"), "Press");
  auto made = std::make_unique<cTag>();
  made->szTag("Level");
  cTag& tag = *made;
  ASSERT_TRUE(press.Tags().AddItem(std::move(made)));
  std::string known = "Press/Level";  // what the server has loaded
  server.OnConnect = [&] {
    const std::string asked = server.log.back().substr(server.log.back().rfind(' ') + 1);
    const bool has = asked == known;
    desktop.Post(
        [this, asked, has] { server.Push(asked, has ? Number(7) : Variant(), has ? kGood : kBadConfiguration); });
  };
  const auto watch = [&] {
    window = std::make_unique<frmOnline>();
    window->szDeviceName(press.szDeviceName());
    window->szTag(tag.szTag());
    window->Form_Load();
    desktop.DoEvents();
    return Label(9) + "," + Label(10);
  };
  EXPECT_EQ(watch(), "7,good (non-specific)");
  tag.szTag("Height");
  EXPECT_EQ(watch(), ",");
  EXPECT_EQ(Label(3), "Press/Height");
  EXPECT_EQ(Label(11), "");
  known = "Press/Height";
  EXPECT_EQ(watch(), "7,good (non-specific)");
  EXPECT_THAT(Boxes(), IsEmpty());
}

// ---- values

TEST_F(frmOnlineTest, AScalarReadsAsItsText) {
  Open();
  EXPECT_EQ(Shown(Number(-5)), "-5");
  EXPECT_EQ(Shown({VariantType::Double, 1.5}), "1,5");
  EXPECT_EQ(Shown({VariantType::Boolean, true}), "True");
  EXPECT_EQ(Shown({VariantType::Int8, std::int64_t{7}}), "7");
  EXPECT_EQ(Shown({VariantType::UInt16, std::uint64_t{8}}), "8");
  EXPECT_EQ(Shown(Text("idle")), "idle");
  EXPECT_EQ(Shown({}), "");
}

class ConvertedArrays : public frmOnlineTest, public testing::WithParamInterface<int> {};

TEST_P(ConvertedArrays, StandInBracketsAlsoWithOneElement) {
  Open();
  EXPECT_EQ(Shown(ArrayOf(GetParam(), {1, 2, 3})), "(1 | 2 | 3)");
  EXPECT_EQ(Shown(ArrayOf(GetParam(), {4})), "(4)");
  EXPECT_EQ(Shown(ArrayOf(GetParam(), {})), "(4)") << "an empty array leaves the label";
}

INSTANTIATE_TEST_SUITE_P(Types, ConvertedArrays, testing::Values(0x2010, 0x2012, 0x2013, 0x2016, 0x2017));

class PlainArrays : public frmOnlineTest, public testing::WithParamInterface<int> {};

TEST_P(PlainArrays, StandInBracketsButForASingleElement) {
  Open();
  EXPECT_EQ(Shown(ArrayOf(GetParam(), {1, 2, 3})), "(1 | 2 | 3)");
  EXPECT_EQ(Shown(ArrayOf(GetParam(), {4})), "4");
  EXPECT_EQ(Shown(ArrayOf(GetParam(), {})), "4") << "an empty array leaves the label";
}

INSTANTIATE_TEST_SUITE_P(Types, PlainArrays, testing::Values(0x2002, 0x2003, 0x2011, 0x2014, 0x2015));

TEST_F(frmOnlineTest, AnArrayOfTextsIsPlain) {
  Open();
  EXPECT_EQ(Shown(Variant::Array(VariantType::Text, {std::string("a"), std::string("b")})), "(a | b)");
}

// ---- quality

struct QualityCase {
  int quality;
  const char* text;
};

class Qualities : public frmOnlineTest, public testing::WithParamInterface<QualityCase> {};

TEST_P(Qualities, HaveTheirWords) {
  Open();
  server.Push("Press/Level", Number(1), static_cast<std::uint16_t>(GetParam().quality));
  EXPECT_EQ(Label(10), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    Codes, Qualities,
    testing::Values(QualityCase{0, "bad (non-specific)"}, QualityCase{4, "bad (configuration error)"},
                    QualityCase{8, "bad (not connected)"}, QualityCase{12, "bad (device failure)"},
                    QualityCase{16, "bad (sensor failure)"}, QualityCase{20, "bad (last known value)"},
                    QualityCase{24, "bad (comm failure)"}, QualityCase{28, "bad (out of service)"},
                    QualityCase{64, "uncertain (non-specific)"}, QualityCase{68, "uncertain (last usable value)"},
                    QualityCase{80, "uncertain (sensor not accurate)"},
                    QualityCase{84, "uncertain (engineering units)"}, QualityCase{88, "uncertain (sub-normal)"},
                    QualityCase{192, "good (non-specific)"}, QualityCase{216, "good (local override)"},
                    QualityCase{0xC1, "unknown"}, QualityCase{1, "unknown"}, QualityCase{32, "unknown"},
                    QualityCase{0x1C0, "unknown"}));

// ---- time stamp

TEST_F(frmOnlineTest, TheTimeStampIsLocalTime) {
  Open();
  server.Push("Press/Level", Number(1), kGood, Join({2026, 8, 9, 23, 1, 2, 700}));
  EXPECT_EQ(Label(11), "10.08.2026 00:01:02");
}

// ---- errors

constexpr const char* kMismatch = "#199 13 #200 frmOnline.opcDC_OnDataChanged : Type mismatch";

TEST_F(frmOnlineTest, AFailingValueIsToldAtEveryChangeAndTheNextOneIsShown) {
  Open();
  server.Push("Press/Level", Number(1), kGood);
  server.Push("Press/Level", {VariantType::Null, Scalar{}}, kBad);
  server.Push("Press/Level", {VariantType::Null, Scalar{}}, kBad);
  EXPECT_THAT(Boxes(), ElementsAre(kMismatch, kMismatch));
  EXPECT_EQ(Label(10), "good (non-specific)") << "the error ends the handling of the event";
  server.Push("Press/Level", Number(2), kBad);
  EXPECT_EQ(Label(9), "2");
  EXPECT_EQ(Label(10), "bad (non-specific)");
}

TEST_F(frmOnlineTest, ChangesThatComeWhileABoxIsOpenDoNotPileUpBoxes) {
  Open();
  int nested = 0;
  desktop.OnTold = [&](std::string_view, std::string_view) {
    if (nested++ > 0) return;
    for (int i = 0; i < 5; ++i) server.Push("Press/Level", {VariantType::Null, Scalar{}}, kBad);
    server.Push("Press/Level", Number(7), kGood);
  };
  server.Push("Press/Level", {VariantType::Null, Scalar{}}, kBad);
  EXPECT_THAT(Boxes(), ElementsAre(kMismatch));
  EXPECT_EQ(Label(9), "7") << "the last of them is shown when the box is closed";
}

TEST_F(frmOnlineTest, AValueThatFailsInEveryBoxLeavesTheUserAMomentToClose) {
  Open();
  constexpr std::size_t kMany = 50;  // so that a failure ends
  desktop.OnTold = [&](std::string_view, std::string_view) {
    if (desktop.Boxes().size() < kMany) server.Push("Press/Level", {VariantType::Null, Scalar{}}, kBad);
  };
  server.Push("Press/Level", {VariantType::Null, Scalar{}}, kBad);
  desktop.DoEvents();
  EXPECT_THAT(Boxes(), ElementsAre(kMismatch));
  server.Push("Press/Level", {VariantType::Null, Scalar{}}, kBad);
  EXPECT_THAT(Boxes(), ElementsAre(kMismatch)) << "the next change is told again";
}

TEST_F(frmOnlineTest, AFailureOfTheWordingIsToldAndTheWindowStaysUnconnected) {
  frmOnline monitor;
  const Connection failing = monitor.Changed.Connect([] { throw RuntimeError(ErrorNumber::PermissionDenied); });
  monitor.Form_Load();
  EXPECT_THAT(Boxes(), ElementsAre("#199 70 #200 frmOnline.Form_Load : Permission denied"));
  EXPECT_THAT(server.TakeLog(), IsEmpty());
  for (const int index : {9, 10, 11}) EXPECT_EQ(monitor.Label1(index).Caption(), "");
}

}  // namespace
}  // namespace tavrin
