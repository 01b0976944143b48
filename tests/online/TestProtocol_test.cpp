#include "online/TestProtocol.h"

#include "online/TestRun.h"

namespace tavrin {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using TestProtocol = TestRun;

TEST_F(TestProtocol, AStepIsOneLineOfPaddedFields) {
  SaveRunHeader(7, TestCommand::Grundstellung);
  EXPECT_EQ(directory.Read("app/LOG/TESTPROT.TXT"),
            " /7   /20.11.2026 14:05:09/Read/Write over TCP/IP   /Line           /Press          /Grundstellung\r\n");
}

TEST_F(TestProtocol, AResultIsOneLineWithItsNameAndValue) {
  SaveResultArray(12345, "RESULTARRAY", "(1 | 2)");
  EXPECT_EQ(directory.Read("app/LOG/TESTPROT.TXT"),
            " /12345/20.11.2026 14:05:09/Read/Write over TCP/IP   /Line           /Press          /RESULTARRAY "
            "/(1 | 2)\r\n");
}

TEST_F(TestProtocol, TheSeparatorIsThatOfTheProject) {
  Project().szACCEPTEDSEPARATORS(".;:");
  Project().szUsedSeparator(".");
  SaveRunHeader(1, TestCommand::Update);
  EXPECT_THAT(Protocol(), ElementsAre(" .1   .20.11.2026 14:05:09.Read/Write over TCP/IP   .Line           "
                                      ".Press          .Update"));
}

TEST_F(TestProtocol, ALongerFieldShiftsTheRestOfItsLine) {
  Network(1).szNetworkName("ANetworkWithALongName");
  SaveRunHeader(1, TestCommand::Update);
  EXPECT_THAT(Protocol(), ElementsAre(testing::HasSubstr("/ANetworkWithALongName/Press          /Update")));
}

TEST_F(TestProtocol, EachCommandHasItsLabel) {
  for (const int command : {0, 1, 2, 3, 4, 5, -1}) SaveRunHeader(1, static_cast<TestCommand>(command));
  EXPECT_THAT(Steps(), ElementsAre("Grundstellung", "Initialisierung",
                                   "Pr\xFC"
                                   "fen",
                                   "Update", "TagsAbonnieren", "unbekanntes Kommando", "unbekanntes Kommando"));
}

TEST_F(TestProtocol, LinesAreAddedToWhatIsThere) {
  directory.Write("app/LOG/TESTPROT.TXT", "old\r\n");
  SaveRunHeader(1, TestCommand::Update);
  ASSERT_EQ(Protocol().size(), 2U);
  EXPECT_EQ(Protocol()[0], "old");
}

TEST_F(TestProtocol, AMissingFolderIsToldAtEveryLine) {
  std::filesystem::remove_all(LogFolder());
  SaveRunHeader(1, TestCommand::Update);
  SaveResultArray(1, "RESULTARRAY", "1");
  SaveRunHeader(1, TestCommand::Update);
  EXPECT_THAT(Boxes(), ElementsAre("Fehler 76 in Prozedur SaveRunHeader : Path not found",
                                   "Fehler 76 in Prozedur SaveResultArray : Path not found",
                                   "Fehler 76 in Prozedur SaveRunHeader : Path not found"));
  EXPECT_EQ(modMain::globals.nTrappedErrors, 3);
}

}  // namespace
}  // namespace tavrin
