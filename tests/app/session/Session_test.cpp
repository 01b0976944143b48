#include "app/session/SessionTest.h"

namespace tavrin {
namespace {

using testing::ContainsRegex;
using testing::EndsWith;
using testing::HasSubstr;

TEST_F(SessionTest, ALineOfTheScriptStandsBeforeWhatItChanges) {
  EXPECT_EQ(Run({"start", "resize 13000 9000", "close"}), "");
  EXPECT_THAT(transcript, testing::StartsWith("> start\n  caption \"#1\"\n"));
  EXPECT_THAT(transcript, EndsWith("> resize 13000 9000\n> close\n  the program has ended\n"));
}

TEST_F(SessionTest, NothingCanBeDoneBeforeTheStartOrAfterTheEnd) {
  EXPECT_EQ(Run({"click mnuFile 1"}), "1: no program is running: a script begins with start");
  EXPECT_EQ(Run({"start", "close", "expect caption x"}), "3: no program is running: a script begins with start");
  EXPECT_EQ(Run({"start", "start"}), "2: the program is running already: end it first");
  EXPECT_EQ(Run({"start", "close", "start", "close"}), "");
}

TEST_F(SessionTest, TheWordsOfTheCommandLineReachTheProgram) {
  EXPECT_EQ(Run({"start -demo -TEST", "expect enabled Toolbar1 8 yes"}), "");
  EXPECT_EQ(Run({"start", "expect enabled Toolbar1 8 no"}), "");
}

TEST_F(SessionTest, SettingsLastFromOneStartToTheNext) {
  EXPECT_EQ(Run({"start", "move 700 800", "resize 13000 9000", "close", "start", "expect place \"700 800 13000 9000\"",
                 "close"}),
            "");
}

TEST_F(SessionTest, ABoxIsToldAndCanBeExpected) {
  EXPECT_EQ(Run({"start", "answer file $1/NONE.ini", "click mnuFile 2", "expect boxes 1",
                 "expect box \"#201 $1/NONE.ini\"", "expect boxes 0"}),
            "");
  EXPECT_THAT(transcript, ContainsRegex("\n  box \"#201 .*NONE.ini\" \\[OK\\]\n"));
  EXPECT_EQ(Run({"start", "expect box x"}), "2: no further box has come up since the last gesture");
  EXPECT_THAT(Run({"start", "answer file $1/NONE.ini", "click mnuFile 2", "click mnuFile 1", "expect box x"}),
              HasSubstr("5: no further box"))
      << "the next gesture closes the book on what was told before";
}

TEST_F(SessionTest, AQuestionIsAnsweredInTheOrderOfTheAnswersGivenBeforehand) {
  CopySample("faulty");
  EXPECT_EQ(RunOpened({}), "3: no answer was given beforehand to the question \"#202\"");
  EXPECT_EQ(Run({"start", "answer file $1/ZOPCSRV.ini", "answer yes", "click mnuFile 2", "expect question \"#202\"",
                 "expect shown \"tvwMain vsgWarnings lblWarnings\""}),
            "");
  EXPECT_THAT(transcript, HasSubstr("\n  question \"#202\" [Yes] [No] -> yes\n"));
  EXPECT_EQ(Run({"start", "answer no", "answer file $1/ZOPCSRV.ini", "click mnuFile 2", "expect questions 1",
                 "expect shown \"tvwMain vsgOPC\""}),
            "");
}

TEST_F(SessionTest, QuestionsWithoutAnAnswerOfTheirOwnCanHaveOneForAll) {
  CopySample("faulty");
  EXPECT_EQ(
      Run({"start", "otherwise no", "answer file $1/ZOPCSRV.ini", "click mnuFile 2", "expect shown \"tvwMain vsgOPC\"",
           "otherwise yes", "click mnuFile 11", "expect shown \"tvwMain vsgWarnings lblWarnings\""}),
      "");
  EXPECT_THAT(Run({"start", "otherwise yes", "otherwise fail", "answer file $1/ZOPCSRV.ini", "click mnuFile 2"}),
              HasSubstr("5: no answer"));
  EXPECT_EQ(Run({"otherwise perhaps"}), "1: wanted: yes, no or fail");
}

TEST_F(SessionTest, ADialogTakesOnlyAnAnswerOfItsKind) {
  EXPECT_EQ(Run({"start", "click mnuFile 2"}), "2: no answer was given beforehand to the file dialog \"ZOPCSRV.ini\"");
  EXPECT_THAT(Run({"start", "answer folder $1", "click mnuFile 2"}), HasSubstr("3: no answer"));
  EXPECT_EQ(Run({"start", "answer cancel", "click mnuFile 2", "expect shown \"\""}), "");
  EXPECT_THAT(transcript, HasSubstr("file dialog \"ZOPCSRV.ini\" -> cancelled\n"));
  EXPECT_THAT(Run({"answer file"}), HasSubstr("wanted"));
  EXPECT_THAT(Run({"answer yes please"}), HasSubstr("wanted"));
  EXPECT_THAT(Run({"answer perhaps"}), HasSubstr("wanted"));
}

TEST_F(SessionTest, AnAnswerThatNobodyAsksForIsAFailureOfItsLine) {
  EXPECT_EQ(Run({"answer yes", "start", "close"}), "1: nothing was asked that this answers");
  EXPECT_EQ(Run({"start", "answer no", "answer cancel", "close"}), "2: nothing was asked that this answers");
  EXPECT_EQ(Run({"start", "close", "answer no"}), "3: nothing was asked that this answers");
}

TEST_F(SessionTest, AnAnswerIsForTheNextGestureOnly) {
  EXPECT_EQ(Run({"start", "answer no", "click mnuFile 1", "click mnuFile 1"}),
            "2: nothing was asked that this answers");
  EXPECT_EQ(Run({"start", "click mnuFile 1", "answer no", "expect window frmOPC", "click mnuFile 1"}), "");
}

TEST_F(SessionTest, TheRunEndsAtTheFirstLineThatDoesNotHold) {
  EXPECT_EQ(Run({"start", "expect caption other", "close"}), "2: expected \"other\", found \"#1\"");
  EXPECT_THAT(transcript, EndsWith("> expect caption other\n"));
}

TEST_F(SessionTest, LinesBehindTheOpeningOfAModalWindowActInItUntilItIsClosed) {
  EXPECT_EQ(
      Run({"start", "click mnuExtras 12", "expect window frmOptions", "click chkMessageBoxOnSave", "click cmdAction 0",
           "expect window frmOPC", "click mnuExtras 12", "expect checked chkMessageBoxOnSave no",
           "expect checked chkMessageBoxOnDelete yes", "close", "expect window frmOPC"}),
      "");
  EXPECT_THAT(transcript, HasSubstr("> click mnuExtras 12\n  window frmOptions opens\n  caption \"#137\"\n"));
  EXPECT_THAT(transcript, HasSubstr("> click chkMessageBoxOnSave\n  checked chkMessageBoxOnSave \"no\"\n"));
  EXPECT_THAT(transcript, HasSubstr("> click cmdAction 0\n  window frmOptions closes\n"));
}

TEST_F(SessionTest, TheMainWindowCannotBeReachedWhileAModalOneIsOpen) {
  EXPECT_EQ(Run({"start", "click mnuExtras 12", "click mnuFile 1"}), "3: frmOptions has no control mnuFile 1");
  EXPECT_EQ(Run({"start", "click mnuExtras 12"}), "2: the script ends while a window is open: frmOptions");
}

TEST_F(SessionTest, EscapeClosesADialogWithoutACancelButton) {
  EXPECT_EQ(Run({"start", "click mnuHelp 2", "expect window frmInfo", "key Escape", "expect window frmOPC"}), "");
}

TEST_F(SessionTest, EnterAndEscapePressTheButtonsOfADialog) {
  EXPECT_EQ(Run({"start", "click mnuExtras 12", "click chkMessageBoxOnSave", "key Escape", "click mnuExtras 12",
                 "expect checked chkMessageBoxOnSave yes", "click chkMessageBoxOnSave", "key enter",
                 "click mnuExtras 12", "expect checked chkMessageBoxOnSave no", "key Escape"}),
            "");
}

TEST_F(SessionTest, APopupMenuTakesAClickOnAnEntryBelowIt) {
  CopySample("plant");
  EXPECT_EQ(RunOpened({"otherwise no", "rightclick tvwMain Leitnetz", "expect enabled mnuEdit 5 yes", "click mnuEdit 5",
                       "expect editing tvwMain yes", "key Escape"}),
            "");
  EXPECT_THAT(transcript, HasSubstr("  menu mnuMain 2 pops up\n  mnuEdit 1 \"#47\" Ctrl+N disabled\n"));
}

TEST_F(SessionTest, AnythingElseClosesAPopupMenu) {
  CopySample("plant");
  EXPECT_EQ(RunOpened({"rightclick tvwMain Leitnetz", "key Escape", "expect editing tvwMain no"}), "");
  EXPECT_THAT(transcript, HasSubstr("> key Escape\n  menu mnuMain 2 closes\n"));
  EXPECT_EQ(RunOpened({"rightclick tvwMain Leitnetz", "click tvwMain /", "expect node tvwMain /"}), "");
  EXPECT_EQ(RunOpened({"rightclick tvwMain Leitnetz"}), "");
  EXPECT_THAT(transcript, HasSubstr("  menu mnuMain 2 closes\n"));
}

TEST_F(SessionTest, ASheetThatIsFilledWithAnotherObjectIsNotToldCellByCell) {
  CopySample("plant");
  EXPECT_EQ(RunOpened({"click tvwMain Filterhalle", "click tvwMain Spuelanlage"}), "");
  EXPECT_THAT(transcript, EndsWith("> click tvwMain Spuelanlage\n  node tvwMain \"Spuelanlage\"\n"));
}

TEST_F(SessionTest, UnsavedChangesAreLostAtTheEndOfTheScript) {
  CopySample("plant");
  const std::string before = directory.Read("ZOPCSRV.ini");
  EXPECT_EQ(RunOpened({"click mnuFile 1"}), "");
  EXPECT_EQ(directory.Read("ZOPCSRV.ini"), before);
}

TEST_F(SessionTest, AHundredThousandLinesAreNoTrouble) {
  CopySample("plant");
  std::vector<std::string> lines;
  for (int i = 0; i < 50'000; ++i) {
    lines.emplace_back("click tvwMain Leitnetz");
    lines.emplace_back("expect node tvwMain Leitnetz");
  }
  EXPECT_EQ(RunOpened(lines), "");
  std::size_t echoed = 0;
  for (std::size_t at = transcript.find("> "); at != std::string::npos; at = transcript.find("\n> ", at + 1)) ++echoed;
  EXPECT_EQ(echoed, 100'003U);
}

}  // namespace
}  // namespace tavrin
