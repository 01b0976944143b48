#include "app/session/SessionTest.h"

namespace tavrin {
namespace {

using testing::EndsWith;
using testing::HasSubstr;

struct Gestures : SessionTest {
  Gestures() { CopySample("plant"); }
  const std::string device = "Leitnetz/Hochbehaelter";
};

TEST_F(Gestures, NodesAreNamedByTheirPathOrTheirKey) {
  EXPECT_EQ(RunOpened({"click tvwMain " + device, "expect node tvwMain " + device, "click tvwMain Leitnetz",
                       "expect node tvwMain Leitnetz", "click tvwMain /", "expect node tvwMain /", "click tvwMain #1#1",
                       "expect node tvwMain Filterhalle"}),
            "");
  EXPECT_EQ(RunOpened({"click tvwMain Leitnetz/None"}), "4: tvwMain has no node \"Leitnetz/None\"");
  EXPECT_THAT(RunOpened({"click tvwMain Leit"}), HasSubstr("no node")) << "the beginning of a name is no name";
  EXPECT_THAT(RunOpened({"click tvwMain Leitnetz/"}), HasSubstr("no node"));
  EXPECT_THAT(RunOpened({"click tvwMain"}), HasSubstr("wanted"));
}

TEST_F(Gestures, AHiddenControlCannotBeReached) {
  EXPECT_EQ(Run({"start", "click tvwMain /"}), "2: tvwMain is not on show");
  EXPECT_EQ(RunOpened({"click vsgTags 1 1"}), "4: vsgTags is not on show");
  EXPECT_EQ(RunOpened({"doubleclick vsgWarnings 0 0"}), "4: vsgWarnings is not on show");
  EXPECT_EQ(RunOpened({"select vsgTags 1 1"}), "4: vsgTags is not on show");
  EXPECT_EQ(RunOpened({"focus vsgTags"}), "4: vsgTags is not on show");
  EXPECT_EQ(RunOpened({"print grid vsgTags"}), "4: vsgTags is not on show");
  EXPECT_EQ(Run({"start", "select tvwMain /"}), "2: tvwMain is not on show");
  EXPECT_EQ(Run({"start", "expand tvwMain /"}), "2: tvwMain is not on show");
}

TEST_F(Gestures, ADisabledControlCannotBePressed) {
  EXPECT_EQ(Run({"start", "click mnuFile 3"}), "2: mnuFile 3 is disabled");
  EXPECT_EQ(Run({"start", "key Ctrl+S"}), "2: mnuFile 3 is disabled");
  EXPECT_EQ(Run({"start", "click Toolbar1 8"}), "2: Toolbar1 8 is disabled");
  EXPECT_EQ(Run({"start", "click mnuFile 11"}), "2: mnuFile 11 is not on show");
}

TEST_F(Gestures, OnlyAnEntryOfAMenuThatCanBeOpenedCanBeChosen) {
  EXPECT_EQ(Run({"start", "click mnuExtras 3"}), "2: mnuExtras 3 is a menu: name an entry of it");
  EXPECT_EQ(Run({"start", "click mnuFile 20"}), "2: mnuFile 20 is a separator");
  EXPECT_EQ(Run({"start", "click mnuTest 1"}), "2: mnuMain 5 is not in the menu bar");
  EXPECT_EQ(Run({"start", "click mnuFile 99"}), "2: frmOPC has no control mnuFile 99");
  EXPECT_EQ(Run({"start", "click mnuFile three"}), "2: \"three\" is no whole number");
  EXPECT_EQ(Run({"start", "click lblTags"}), "2: a click on lblTags means nothing");
}

TEST_F(Gestures, AMenuIsOpenedBeforeItsEntryIsChosen) {
  EXPECT_EQ(RunOpened({"expect enabled mnuFile 3 yes", "expect enabled mnuFile 4 yes"}), "");
  EXPECT_EQ(Run({"start", "expect enabled mnuFile 3 no", "expect enabled mnuExtras 1 no"}), "");
}

TEST_F(Gestures, AShortcutChoosesItsEntry) {
  EXPECT_EQ(RunOpened({"otherwise yes", "key ctrl+s", "expect question \"#21\""}), "");
  EXPECT_EQ(RunOpened({"key Ctrl+Q"}), "4: the key \"Ctrl+Q\" means nothing here");
}

TEST_F(Gestures, CellsAreNamedByRowAndColumn) {
  EXPECT_EQ(RunOpened({"click tvwMain " + device, "click vsgTags 2 1", "expect current vsgTags \"2 1\"",
                       "click vsgTags 0 1", "expect current vsgTags \"2 1\""}),
            "");
  EXPECT_EQ(RunOpened({"click vsgOPC 6 1"}), "4: vsgOPC has no cell 6 1");
  EXPECT_EQ(RunOpened({"click vsgOPC 1 2"}), "4: vsgOPC has no cell 1 2");
  EXPECT_EQ(RunOpened({"click vsgOPC -1 0"}), "4: vsgOPC has no cell -1 0");
  EXPECT_EQ(RunOpened({"click vsgOPC 1"}), "4: wanted: the grid, a row and a column");
  EXPECT_EQ(RunOpened({"click tvwMain " + device, "click vsgTags 1 0"}), "5: column 0 of vsgTags is hidden");
}

TEST_F(Gestures, KeysReachNoFixedCell) {
  EXPECT_EQ(RunOpened({"select vsgOPC 3 1", "expect current vsgOPC \"3 1\"", "expect focus vsgOPC"}), "");
  EXPECT_EQ(RunOpened({"select vsgOPC 1 1"}), "4: a fixed cell cannot be selected by keys");
  EXPECT_EQ(RunOpened({"click tvwMain " + device, "select vsgTags 2 1 4 3", "expect current vsgTags \"2 1 4 3\""}), "");
  EXPECT_THAT(RunOpened({"select vsgOPC 3 1 4"}), HasSubstr("wanted"));
  EXPECT_THAT(RunOpened({"select Toolbar1 3"}), HasSubstr("wanted"));
}

TEST_F(Gestures, ADoubleClickOnAHeadingSorts) {
  EXPECT_EQ(RunOpened({"click tvwMain " + device, "click vsgTags 1 1", "doubleclick vsgTags 0 1",
                       "expect current vsgTags \"1 1\""}),
            "");
  EXPECT_THAT(transcript, EndsWith("  renewed vsgTags\n> expect current vsgTags \"1 1\"\n"));
}

TEST_F(Gestures, ThePointerShowsAToolTip) {
  EXPECT_EQ(RunOpened({"click tvwMain " + device, "point vsgTags 0 1", "expect tip vsgTags \"#14\""}), "");
}

TEST_F(Gestures, NodesAreOpenedAndClosed) {
  EXPECT_EQ(RunOpened({"collapse tvwMain Leitnetz", "print tree tvwMain", "expand tvwMain Leitnetz"}), "");
  EXPECT_THAT(transcript, HasSubstr("  node \"Leitnetz\" \"Leitnetz\" closed\n"));
  EXPECT_THAT(transcript, testing::Not(HasSubstr("  node \"Leitnetz/Energie\"")));
}

TEST_F(Gestures, OnlyASplitterCanBeDragged) {
  EXPECT_EQ(RunOpened({"drag imgSplitterHorz 1500", "expect place picSplitterHorz \"3500 480 90 8800\"",
                       "drag imgSplitterHorz -9000"}),
            "");
  EXPECT_EQ(RunOpened({"drag picLogo1 100"}), "4: only a splitter can be dragged");
  EXPECT_EQ(RunOpened({"drag vsgOPC 100"}), "4: only a splitter can be dragged");
}

TEST_F(Gestures, TheWindowKeepsItsSmallestSize) {
  EXPECT_EQ(Run({"start", "resize 8999 9000"}), "2: the window cannot be made so small");
  EXPECT_EQ(Run({"start", "resize 9000 6000", "expect place \"500 500 9000 6000\""}), "");
  EXPECT_EQ(Run({"start", "state huge"}), "2: wanted: normal, minimised or maximised");
}

TEST_F(Gestures, ADroppedFileIsOpened) {
  EXPECT_EQ(Run({"start", "drop $1/ZOPCSRV.ini", "expect caption \"#1 - ($1/ZOPCSRV.ini)\""}), "");
  EXPECT_EQ(Run({"start", "drop \"\""}), "2: a path must not be empty");
  EXPECT_EQ(Run({"start", "click mnuExtras 12", "drop $1/ZOPCSRV.ini"}), "3: frmOptions takes no files");
}

TEST_F(Gestures, ARelativePathIsTakenFromTheWorkingDirectory) {
  const std::string here = std::filesystem::current_path().string();
  EXPECT_EQ(Run({"start", "drop sub/../NONE.ini", "expect box \"#201 " + here + "/NONE.ini\""}), "");
}

TEST_F(Gestures, OnlyWhatHasTheKeyboardAndTakesATextCanBeTypedInto) {
  EXPECT_EQ(RunOpened({"click tvwMain Leitnetz", "type x"}), "5: nothing that takes a text has the keyboard");
  const std::string refused = "6: cell 0 0 of vsgWarnings cannot be edited";
  EXPECT_EQ(RunOpened({"click mnuExtras 1", "focus vsgWarnings", "type x"}), refused);
  EXPECT_EQ(RunOpened({"click mnuExtras 1", "focus vsgWarnings", "key F2"}), refused);
  EXPECT_EQ(RunOpened({"choose x"}), "4: no edit is open in a grid");
  EXPECT_EQ(RunOpened({"click vsgOPC 3 1", "choose x"}), "5: no edit is open in a grid");
}

TEST_F(Gestures, FurtherTextsAreTypedIntoTheNextCells) {
  EXPECT_EQ(RunOpened({"click tvwMain Leitnetz/Pruefplatz", "select vsgTags 14 1", "type A DB1.DBW0 RO \"\" last",
                       "expect cell vsgTags 14 3 RO", "expect current vsgTags \"14 9\"", "expect edit vsgTags last"}),
            "");
  EXPECT_EQ(RunOpened({"click tvwMain Leitnetz/Pruefplatz", "select vsgTags 14 1", "type \"\" DB1.DBW0",
                       "expect cell vsgTags 14 1 \"\"", "expect edit vsgTags DB1.DBW0"}),
            "");
  const std::string refused = "no grid with cells to go through has the keyboard";
  EXPECT_EQ(RunOpened({"select vsgOPC 2 1", "type 1 2"}), "5: " + refused);
  EXPECT_EQ(RunOpened({"click mnuEdit 1", "type a b"}), "5: " + refused);
}

TEST_F(Gestures, AColumnIsPulledOpen) {
  EXPECT_EQ(RunOpened({"click tvwMain " + device, "select vsgTags 1 4"}), "5: column 4 of vsgTags is hidden");
  EXPECT_EQ(RunOpened({"click tvwMain " + device, "widen vsgTags 4 900", "select vsgTags 1 4"}), "");
  EXPECT_EQ(RunOpened({"click tvwMain " + device, "widen vsgTags 0 900"}), "5: column 0 of vsgTags is hidden");
  EXPECT_EQ(RunOpened({"widen vsgOPC 1 0"}), "4: a column cannot be pulled to nothing");
  EXPECT_EQ(RunOpened({"widen vsgOPC 2 900"}), "4: vsgOPC has no cell 0 2");
  EXPECT_EQ(RunOpened({"widen vsgTags 4 900"}), "4: vsgTags is not on show");
}

TEST_F(Gestures, ATypedTextIsClearedWhereItIsTyped) {
  EXPECT_EQ(RunOpened({"click vsgOPC 2 1", "key F2", "clear", "expect edit vsgOPC \"\""}), "");
  EXPECT_EQ(RunOpened({"click mnuEdit 1", "type a", "clear", "expect text txtName \"\"", "key Escape"}), "");
  EXPECT_EQ(RunOpened({"click tvwMain Leitnetz", "key F2", "clear", "type a", "expect edit tvwMain a"}), "");
  EXPECT_EQ(RunOpened({"click vsgOPC 2 1", "clear"}), "5: no edit is open");
  EXPECT_EQ(RunOpened({"clear"}), "4: no edit is open");
}

TEST_F(Gestures, ADialogIsPrintedRowByRow) {
  EXPECT_EQ(RunOpened({"click mnuEdit 1", "type Nord", "click rbType 2", "print dialog", "key Escape"}), "");
  EXPECT_THAT(transcript, HasSubstr("  lbl \"#32\"\n  txtName \"Nord\"\n  lbl 1 \"#33\"\n  rbType \"#34\"\n"
                                    "  rbType 2 \"#36\" checked\n  rbType 3 \"#27\"\n"));
}

TEST_F(Gestures, OnlySomeControlsTakeTheKeyboard) {
  EXPECT_EQ(RunOpened({"focus vsgOPC", "expect focus vsgOPC"}), "");
  EXPECT_EQ(RunOpened({"focus vsgTags"}), "4: vsgTags is not on show");
  EXPECT_EQ(RunOpened({"focus Toolbar1 3"}), "4: Toolbar1 3 does not take the keyboard");
}

TEST_F(Gestures, ALabelIsEditedByTyping) {
  EXPECT_EQ(RunOpened({"click tvwMain Leitnetz", "key F2", "expect edit tvwMain Leitnetz", "type Nord", "type netz",
                       "expect edit tvwMain Nordnetz", "key Enter", "expect node tvwMain Nordnetz"}),
            "");
  EXPECT_THAT(transcript, HasSubstr("> key Enter\n  node tvwMain \"Nordnetz\"\n  editing tvwMain \"no\"\n"));
}

}  // namespace
}  // namespace tavrin
