#include "shell/Help.h"

#include "platform/RuntimeError.h"
#include "support/ShellTest.h"

namespace tavrin {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class HelpTest : public ShellTest {
 protected:
  HelpTest() { Start(); }
  /// Chooses an entry. @return the names of the windows that it opens
  std::vector<std::string> Choose(int index) {
    std::vector<std::string> names;
    desktop.OnModal = [&names](Form& form) {
      names.push_back(form.Name());
      form.UserClose();
    };
    Window().mnuHelp(index).UserClick();
    desktop.OnModal = nullptr;
    return names;
  }
};

TEST_F(HelpTest, TheManualOfTheLanguageIsOpenedAtItsFirstPage) {
  modMain::globals.gszManual = "/somewhere/OPC_X.PDF";
  EXPECT_THAT(Choose(1), IsEmpty());
  EXPECT_THAT(around.programs.started, ElementsAre(RecordingPrograms::Started{"document", "/somewhere/OPC_X.PDF", 1}));
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(HelpTest, AManualThatCannotBeOpenedIsTold) {
  around.programs.missing = true;
  Choose(1);
  EXPECT_THAT(Boxes(), ElementsAre("#296"));
}

TEST_F(HelpTest, AboutBoxAndVersionReportAreWindows) {
  EXPECT_THAT(Choose(2), ElementsAre("frmInfo"));
  EXPECT_THAT(Choose(4), ElementsAre("frmFileInfo"));
  EXPECT_THAT(around.programs.started, IsEmpty());
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(HelpTest, SystemInformationIsAProgramOfTheSystem) {
  EXPECT_THAT(Choose(3), IsEmpty());
  const std::string purpose = std::to_string(static_cast<int>(Administration::SystemInformation));
  EXPECT_THAT(around.programs.started, ElementsAre(RecordingPrograms::Started{purpose, "", 1}));
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(HelpTest, MissingSystemInformationIsReported) {
  around.programs.missing = true;
  Choose(3);
  EXPECT_THAT(Boxes(),
              ElementsAre("#199 53 #200 frmOPC.mnuHelp_Click : " + std::string(Describe(ErrorNumber::FileNotFound))));
}

}  // namespace
}  // namespace tavrin
