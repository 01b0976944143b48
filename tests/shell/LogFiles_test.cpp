#include "shell/LogFiles.h"

#include <filesystem>

#include "platform/RuntimeError.h"
#include "support/ShellTest.h"

namespace tavrin {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class LogFilesTest : public ShellTest {
 protected:
  LogFilesTest() {
    std::filesystem::create_directories(services.applicationDirectory + "/LOG");
    Start();
  }
  [[nodiscard]] std::string Log(const std::string& name) const {
    return services.applicationDirectory + "/LOG/" + name;
  }
  void Choose(int index) { Window().mnuLog(index).UserClick(); }
};

TEST_F(LogFilesTest, EachEntryShowsItsFile) {
  directory.Write("app/LOG/LOG1.TXT", "one");
  directory.Write("app/LOG/LOG2.TXT", "two");
  Choose(1);
  Choose(2);
  EXPECT_THAT(around.programs.started, ElementsAre(RecordingPrograms::Started{"text", Log("LOG1.TXT"), 1},
                                                   RecordingPrograms::Started{"text", Log("LOG2.TXT"), 1}));
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(LogFilesTest, AMissingFileIsToldAndNothingIsStarted) {
  std::filesystem::create_directory(Log("LOG2.TXT"));
  Choose(1);
  Choose(2);
  EXPECT_THAT(Boxes(), ElementsAre("#201 " + Log("LOG1.TXT"), "#201 " + Log("LOG2.TXT")));
  EXPECT_THAT(around.programs.started, IsEmpty());
}

TEST_F(LogFilesTest, AnErrorGoesOnToTheCaller) {
  directory.Write("app/LOG/LOG1.TXT", "one");
  around.programs.missing = true;
  EXPECT_THROW(Choose(1), RuntimeError);
  EXPECT_THAT(Boxes(), IsEmpty()) << "there is no trap here";
}

TEST_F(LogFilesTest, TheCaptionsAreTheSameInEveryLanguage) {
  for (const std::int32_t language : {kGerman, kEnglish}) {
    Window().languages.Activate(language);
    Window().languages.GetStaticTexts();
    EXPECT_EQ(Window().mnuLog(1).Caption(), "LOG&1.TXT");
    EXPECT_EQ(Window().mnuLog(2).Caption(), "LOG&2.TXT");
  }
}

}  // namespace
}  // namespace tavrin
