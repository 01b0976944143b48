#include <array>
#include <limits>

#include "online/opc/Coercion.h"
#include "online/opc/UaClientTest.h"

namespace tavrin {
namespace {

class UaContractTest : public UaClientTest {};

TEST_F(UaContractTest, TellsValueQualityAndTimeOfAnItemAndItsChanges) {
  AddWord("Device1/Level", 7);
  Connect("Plant", {"Device1/Level"});
  ASSERT_TRUE(UntilQuality("Device1/Level", kGood));
  EXPECT_EQ(Item("Device1/Level").ItemDataType(), 0x12);
  EXPECT_EQ(Item("Device1/Level").ItemValue(), Word(7));
  SetWord("Device1/Level", 8);
  EXPECT_TRUE(UntilValue("Device1/Level", Word(8)));
}

TEST_F(UaContractTest, NothingIsToldFromWithinConnect) {
  AddWord("a", 1);
  Connect("Plant", {"a"});
  EXPECT_EQ(deliveries, 0);
  EXPECT_TRUE(UntilQuality("a", kGood));
}

TEST_F(UaContractTest, ItemsThatComeTogetherAreOneDelivery) {
  std::vector<std::string> names;
  for (int i = 0; i < 1200; ++i) {
    names.push_back("T" + std::to_string(i));
    AddWord(names.back(), static_cast<UA_UInt16>(i));
  }
  Connect("Plant", names);
  ASSERT_TRUE(Until([this] { return changes.size() == 1200; }));
  EXPECT_LE(deliveries, 30);
  EXPECT_EQ(Item("T1199").ItemValue(), Word(1199));
}

TEST_F(UaContractTest, UnknownItemIsToldOnceAndDoesNotKeepTheOthers) {
  AddWord("known", 1);
  Connect("Plant", {"unknown", "known"});
  ASSERT_TRUE(UntilQuality("known", kGood));
  ASSERT_TRUE(UntilQuality("unknown", kBadConfiguration));
  RunFor(300);
  EXPECT_EQ(changes["unknown"], 1);
}

TEST_F(UaContractTest, NamesOfTheCodePageReachTheServer) {
  const UA_UInt16 value = 3;
  server.Add("Ger\xC3\xA4t/T\xC3\xBCr", &value, UA_TYPES_UINT16);
  Connect("Plant", {"Ger\xE4t/T\xFCr"});
  EXPECT_TRUE(UntilQuality("Ger\xE4t/T\xFCr", kGood));
}

TEST_F(UaContractTest, PatternOfTheNodeIdLeadsToTheNodes) {
  AddWord("Line.Device1/Level.PV", 5);
  Configure(".NodeId=ns=2;s=Line.*.PV");
  Connect("Plant", {"Device1/Level"});
  EXPECT_TRUE(UntilQuality("Device1/Level", kGood));
}

TEST_F(UaContractTest, StatusBecomesQuality) {
  AddWord("a", 1);
  Connect("Plant", {"a"});
  ASSERT_TRUE(UntilQuality("a", kGood));
  const std::map<UA_StatusCode, int> qualities{{UA_STATUSCODE_UNCERTAINLASTUSABLEVALUE, 0x44},
                                               {UA_STATUSCODE_BADSENSORFAILURE, 0x10},
                                               {UA_STATUSCODE_BADOUTOFSERVICE, 0x1C},
                                               {UA_STATUSCODE_GOODLOCALOVERRIDE, 0xD8}};
  for (const auto& [status, quality] : qualities) {
    SetWord("a", 2, status);
    EXPECT_TRUE(UntilQuality("a", quality)) << quality;
  }
}

TEST_F(UaContractTest, TimeStampIsThatOfTheSource) {
  AddWord("a", 1);
  UA_UInt16 two = 2;
  UA_DataValue state;
  UA_DataValue_init(&state);
  UA_Variant_setScalar(&state.value, &two, &UA_TYPES[UA_TYPES_UINT16]);
  state.hasValue = true;
  state.hasSourceTimestamp = true;
  const UtcTime moment = Join({2020, 2, 29, 23, 59, 58, 0}) + UtcTime::duration(1'234'567);
  state.sourceTimestamp = moment.time_since_epoch().count() + UA_DATETIME_UNIX_EPOCH;
  server.SetState("a", state);
  Connect("Plant", {"a"});
  ASSERT_TRUE(UntilQuality("a", kGood));
  EXPECT_EQ(Item("a").ItemTimeStamp(), moment);
}

TEST_F(UaContractTest, WrittenNumberAndTextBecomeTheTypeOfTheNode) {
  const UA_Float zero = 0;
  AddWord("word", 0);
  server.Add("real", &zero, UA_TYPES_FLOAT);
  Connect("Plant", {"word", "real"});
  ASSERT_TRUE(UntilQuality("real", kGood));
  Write("word", Variant(VariantType::Int32, std::int64_t{2}));
  EXPECT_EQ(server.Get<UA_UInt16>("word"), 2);
  Write("real", Variant::OfText("1,25"));
  EXPECT_EQ(server.Get<UA_Float>("real"), 1.25F);
  EXPECT_TRUE(UntilValue("real", Variant(VariantType::Single, 1.25)));
}

TEST_F(UaContractTest, ArrayIsWrittenBackThroughDoubles) {
  const std::array<UA_UInt16, 3> words{1, 2, 3};
  server.AddArray("words", words.data(), words.size(), UA_TYPES_UINT16);
  Connect("Plant", {"words"});
  ASSERT_TRUE(UntilQuality("words", kGood));
  EXPECT_EQ(Item("words").ItemDataType(), 0x2012);
  Write("words", CNumericArray(Variant::Array(VariantType::Double, {4.0, 5.0}), Item("words").ItemDataType()));
  EXPECT_TRUE(UntilValue("words", Variant::Array(VariantType::UInt16, {std::uint64_t{4}, std::uint64_t{5}})));
  EXPECT_EQ(ErrorOf([this] { Write("words", Variant::OfText("4")); }), 5) << "a scalar is no array";
}

TEST_F(UaContractTest, TypeOfANodeWithoutValueIsAskedFor) {
  AddWord("first", 1);
  server.AddEmpty("real", UA_NS0ID_FLOAT, UA_VALUERANK_SCALAR);
  server.AddEmpty("any", UA_NS0ID_BASEDATATYPE, UA_VALUERANK_ANY);
  server.AddEmpty("words", UA_NS0ID_UINT16, UA_VALUERANK_ONE_OR_MORE_DIMENSIONS);
  Connect("Plant", {"first"});
  for (const char* name : {"real", "any", "words"}) control.ControlItems().AddItem(name);
  Write("real", Variant::OfText("1,5"));
  EXPECT_EQ(server.Get<UA_Float>("real"), 1.5F);
  Write("any", Variant(VariantType::Int32, std::int64_t{-3}));
  EXPECT_EQ(server.Get<UA_Int32>("any"), -3);
  EXPECT_EQ(ErrorOf([this] { Write("words", Variant::OfText("1")); }), 5);
  EXPECT_EQ(ErrorOf([this] { Write("words", Variant::Array(VariantType::Double, {1.0})); }), 0);
}

TEST_F(UaContractTest, RefusedValuesAreAnError) {
  const UA_UInt16 one = 1;
  server.Add("readonly", &one, UA_TYPES_UINT16, false);
  AddWord("word", 1);
  Connect("Plant", {"readonly", "word", "unknown"});
  ASSERT_TRUE(UntilQuality("word", kGood));
  EXPECT_EQ(ErrorOf([this] { Write("readonly", Variant::OfText("2")); }), 5);
  EXPECT_EQ(ErrorOf([this] { Write("word", Variant::OfText("65536")); }), 5);
  EXPECT_EQ(ErrorOf([this] { Write("word", Variant::OfText("abc")); }), 5);
  EXPECT_EQ(ErrorOf([this] { Write("unknown", Variant::OfText("1")); }), 5);
  Item("word").ItemValue(Variant::OfText("9"));
  Item("readonly").ItemValue(Variant::OfText("9"));
  EXPECT_EQ(ErrorOf([this] { control.ControlWrite(); }), 5);
  EXPECT_EQ(server.Get<UA_UInt16>("word"), 9) << "the others are sent";
}

TEST_F(UaContractTest, NothingIsToldWhileAValueIsSent) {
  AddWord("a", 1);
  Connect("Plant", {"a"});
  ASSERT_TRUE(UntilQuality("a", kGood));
  const int before = deliveries;
  SetWord("a", 2);
  Write("a", Variant::OfText("3"));
  EXPECT_EQ(deliveries, before);
  EXPECT_TRUE(UntilValue("a", Word(3)));
}

TEST_F(UaContractTest, ManySingleWritesAreQuick) {
  AddWord("a", 0);
  Connect("Plant", {"a"});
  ASSERT_TRUE(UntilQuality("a", kGood));
  EXPECT_LT(SecondsOf([this] {
              for (int i = 1; i <= 100; ++i) Write("a", Variant(VariantType::Int32, std::int64_t{i}));
            }),
            3.0);
  EXPECT_EQ(server.Get<UA_UInt16>("a"), 100);
}

TEST_F(UaContractTest, ConnectingAgainTellsAllItemsAgain) {
  AddWord("a", 1);
  Connect("Plant", {"a"});
  ASSERT_TRUE(UntilQuality("a", kGood));
  control.ControlDisconnect();
  const int before = changes["a"];
  control.ControlConnect();
  EXPECT_TRUE(Until([&] { return changes["a"] > before; }));
}

}  // namespace
}  // namespace tavrin
