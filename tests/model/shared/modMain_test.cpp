#include "model/shared/modMain.h"

#include <cstdint>
#include <new>
#include <stdexcept>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "model/ErrorOf.h"
#include "model/cOPC.h"
#include "model/shared/cWarnings.h"
#include "platform/RuntimeError.h"
#include "support/ProjectTest.h"

namespace tavrin {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(ParseINISetting, CutsAtSemicolonNulAndTabAndTakesOuterBlanksOff) {
  struct Row {
    std::string raw;
    std::string cleaned;
  };
  const std::vector<Row> rows{
      {"", ""},
      {"12", "12"},
      {"  12 ; comment", "12"},
      {"a;b", "a"},
      {"a;b;c", "a"},
      {";a", ""},
      {"\ta", ""},
      {"a\tb", "a"},
      {"a \t b", "a"},
      {"a\tb;c", "a"},
      {"a;b\tc", "a"},
      {std::string("a\0b", 3), "a"},
      {std::string("a \0b;c\td", 8), "a"},
      {std::string("\0a", 2), ""},
      {"  a b  ", "a b"},
      {"   ", ""},
      {"\xA0"
       "a\r",
       "\xA0"
       "a\r"},  // only the character 32 is a blank
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.raw);
    EXPECT_EQ(modMain::ParseINISetting(row.raw), row.cleaned);
  }
}

TEST(PadRight, AddsBlanksUpToTheWidthAndLeavesALongerText) {
  struct Row {
    std::string_view text;
    std::int32_t width;
    std::string_view padded;
  };
  for (const Row& row : std::vector<Row>{{"abcd", 6, "abcd  "},
                                         {"", 3, "   "},
                                         {"abcd", 4, "abcd"},
                                         {"abcd", 2, "abcd"},
                                         {"abcd", 0, "abcd"},
                                         {"abcd", -1, "abcd"},
                                         {"", -2147483647 - 1, ""}}) {
    SCOPED_TRACE(row.width);
    EXPECT_EQ(modMain::PadRight(row.text, row.width), row.padded);
  }
}

TEST(CheckIPAddressSyntax, TakesFourPiecesThatCountAs0To255) {
  struct Row {
    std::string_view address;
    bool withZero;
    bool withoutZero;
  };
  const std::vector<Row> rows{
      {"1.2.3.4", true, true},
      {"255.255.255.255", true, true},
      {"0.0.0.0", true, false},
      {"0.0.0.1", true, true},
      {"", false, false},
      {"    ", false, false},
      {"1", false, false},
      {"1.2.3", false, false},
      {"1.2.3.4.5", false, false},
      {"1.2.3.4.", false, false},
      {"256.1.1.1", false, false},
      {"1.256.1.1", false, false},
      {"1.1.1.256", false, false},
      {"-1.1.1.1", false, false},
      {"1.1.1.-1", false, false},
      {"1.1.1.x", true, true},
      {"a.b.c.1", true, true},
      {"1.2.3.4x", true, true},
      {"a.b.c.d", true, false},
      {"...", true, false},
      {" . . . ", true, false},
      {"-0.0.0.0", true, false},
      {"+1.2.3.4", true, true},
      {" 1. 2. 3. 4", true, false},  // a blank in front ends the number before it begins
      {"1 .2 .3 .4 ", true, true},
      {"256.x.0.0", false, false},
      {"99999999999999999999.1.1.1", false, false},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.address);
    EXPECT_EQ(modMain::CheckIPAddressSyntax(row.address, true), row.withZero);
    EXPECT_EQ(modMain::CheckIPAddressSyntax(row.address, false), row.withoutZero);
  }
}

class modMainTest : public ProjectTest {};

TEST_F(modMainTest, CheckIPAddressRangeRefusesWhatTheServerCannotUse) {
  struct Row {
    std::string_view address;
    std::string_view message;  // empty when accepted
  };
  const std::vector<Row> rows{
      {"1.2.3.4", ""},           {"0.0.0.0", ""},     {"223.1.1.1", ""},        {"224.1.1.1", "#238 : "},
      {"225.1.1.1", ""},         {"239.1.1.1", ""},   {"254.1.1.1", ""},        {"255.0.0.1", "#238 : "},
      {"224x.1.1.1", "#238 : "}, {"1.224.255.1", ""}, {"127.0.0.1", "#239 : "}, {"127.x.y.1z", "#239 : "},
      {"127.0.0.2", ""},         {"127.0.1.1", ""},   {"127.1.0.1", ""},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.address);
    std::string szMessage = "left over";
    EXPECT_EQ(modMain::CheckIPAddressRange(row.address, szMessage), row.message.empty());
    EXPECT_EQ(szMessage, row.message);
  }
}

TEST_F(modMainTest, QueryDeleteAsksAndOnlyYesDeletes) {
  desktop.AnswerNext(true);
  EXPECT_TRUE(modMain::QueryDelete("delete it?"));
  desktop.AnswerNext(false);
  EXPECT_FALSE(modMain::QueryDelete("and this?"));
  EXPECT_THAT(desktop.Questions(), ElementsAre("delete it?", "and this?"));
}

TEST_F(modMainTest, QueryDeleteDoesNotAskWhenTheUserHasSwitchedItOff) {
  modMain::globals.gbQueryOnDelete = false;
  EXPECT_TRUE(modMain::QueryDelete("delete it?"));
  EXPECT_THAT(desktop.Questions(), IsEmpty());
}

template <class Error>
void TrapOf(const Error& error) {
  try {
    throw error;
  } catch (...) {
    modMain::Trap("cClass.Routine : ");
  }
}

TEST_F(modMainTest, TrapShowsNumberLabelAndDescriptionInOneBox) {
  TrapOf(RuntimeError(ErrorNumber::DiskFull));
  TrapOf(RuntimeError(ErrorNumber::NoObject));
  TrapOf(std::bad_alloc());
  TrapOf(std::logic_error("x"));
  EXPECT_THAT(Boxes(), ElementsAre("#199 61 #200 cClass.Routine : Disk full",
                                   "#199 91 #200 cClass.Routine : Object variable or With block variable not set",
                                   "#199 7 #200 cClass.Routine : Out of memory",
                                   "#199 51 #200 cClass.Routine : Internal error"));
}

TEST_F(modMainTest, TrapReturnsEvenWhenThereIsNoDesktopToShowTheBox) {
  modMain::globals.services = nullptr;
  EXPECT_NO_THROW(TrapOf(RuntimeError(ErrorNumber::DiskFull)));
}

TEST_F(modMainTest, IgnoreErrorsEndsTheActionAtItsErrorWithoutABox) {
  bool reached = false;
  modMain::IgnoreErrors([&] {
    reached = true;
    throw RuntimeError(ErrorNumber::DiskFull);
  });
  EXPECT_TRUE(reached);
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(modMainTest, WarningListsAreMadeOnFirstUse) {
  modMain::globals.gReadWarnings.reset();
  modMain::globals.gWriteWarnings.reset();
  modMain::ReadWarnings().AddWarning(WarningKind::Tag, "f", "read");
  modMain::WriteWarnings().AddWarning(WarningKind::Tag, "f", "write");
  EXPECT_THAT(ReadWarnings(), ElementsAre("Tag|f|read"));
  EXPECT_THAT(WriteWarnings(), ElementsAre("Tag|f|write"));
}

TEST_F(modMainTest, WithoutAnOpenProjectThereIsNoObject) {
  modMain::globals.gOPC.reset();
  EXPECT_EQ(ErrorOf([] { static_cast<void>(modMain::OpenProject()); }), ErrorNumber::NoObject);
  EXPECT_EQ(ErrorOf([] { static_cast<void>(modMain::CurrentNetwork()); }), ErrorNumber::NoObject);
  EXPECT_EQ(modMain::RootFileName(), "");
}

TEST_F(modMainTest, CurrentNetworkIsTheOneAtTheSelectedPosition) {
  AddNetwork(NetworkType::H1, "one");
  AddNetwork(NetworkType::H1, "two");
  modMain::globals.gnCurrentNetwork = 1;
  EXPECT_EQ(modMain::CurrentNetwork().szNetworkName(), "one");
  for (const std::int32_t position : {0, 3, -1}) {
    modMain::globals.gnCurrentNetwork = position;
    EXPECT_EQ(ErrorOf([] { static_cast<void>(modMain::CurrentNetwork()); }), ErrorNumber::NoObject) << position;
  }
}

TEST(modMainState, StartsWithoutAProject) {
  modMain::globals = modMain::State{};
  const modMain::State& state = modMain::globals;
  EXPECT_EQ(state.gOPC, nullptr);
  EXPECT_EQ(state.gszProjectDir, "");
  EXPECT_EQ(state.gReadWarnings, nullptr);
  EXPECT_EQ(state.gWriteWarnings, nullptr);
  EXPECT_EQ(state.gnCurrentNetwork, 0);
  EXPECT_EQ(state.gnCurrentDevice, 0);
  EXPECT_FALSE(state.gbDemo);
  EXPECT_FALSE(state.gbTest);
  EXPECT_EQ(ErrorOf([] { static_cast<void>(modMain::Platform()); }), ErrorNumber::NoObject);
}

}  // namespace
}  // namespace tavrin
