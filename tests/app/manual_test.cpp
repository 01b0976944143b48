#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/Machine.h"
#include "app/manual/ManualSource.h"
#include "app/manual/ManualText.h"
#include "app/manual/PdfOutline.h"
#include "app/manual/SheetTables.h"
#include "app/manual/TablePieces.h"
#include "brand/Brand.h"
#include "platform/headless/HeadlessDesktop.h"
#include "platform/headless/MemorySettings.h"

namespace tavrin {
namespace {

namespace fs = std::filesystem;
using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;
using testing::ThrowsMessage;

const fs::path kManual = fs::path(TAVRIN_SOURCE_DIR) / "docs" / "manual";

struct Language {
  const char* folder;
  Wording wording;
  const char* file;
};

[[maybe_unused]] std::string ReadFile(const fs::path& file) {
  std::ifstream in(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

/// The machine of the builder, in one language.
class ManualMachine {
 public:
  explicit ManualMachine(Wording wording) : machine_(desktop, &settings_, wording, ApplicationDirectory()) {
    machine_.Texts().Init();
  }
  HeadlessDesktop desktop;

 private:
  MemorySettings settings_;
  Machine machine_;
};

/// A manual of one line and of the tables given.
ManualSource SourceOf(const std::string& line) {
  ManualSource source;
  source.chapters = {line};
  for (const char* word : {"row", "allowed", "default", "meaning", "entry", "keys", "action", "message", "cause",
                           "remedy", "any", "fixed", "address", "control"}) {
    source.words[word] = word;
  }
  return source;
}

class Manual : public testing::TestWithParam<Language> {};

TEST_P(Manual, NamesEveryTextOfTheProgramAndResolvesEveryPlaceholder) {
  ManualMachine machine(GetParam().wording);
  const ManualSource source = ReadManual(kManual / GetParam().folder);
  ManualText text(source, "1.2", machine.desktop);
  const std::string markdown = text.Expand();  // throws otherwise
  EXPECT_THAT(markdown, Not(HasSubstr("{text")));
  EXPECT_GT(markdown.size(), 40'000U);
}

TEST_P(Manual, HasNoLineThatIsTooLongToBeRead) {
  for (const auto& entry : fs::directory_iterator(kManual / GetParam().folder)) {
    std::ifstream in(entry.path());
    int number = 0;
    for (std::string line; std::getline(in, line);) {
      ++number;
      EXPECT_LE(line.size(), 250U) << entry.path() << ":" << number;
    }
  }
}

TEST_P(Manual, IsBesideTheProgramsWithEnoughPagesAndBookmarks) {
  const fs::path file = fs::path(ApplicationDirectory()) / GetParam().file;
#ifdef TAVRIN_HAS_MANUAL
  const std::string pdf = ReadFile(file);
  EXPECT_THAT(pdf, StartsWith("%PDF-"));
  EXPECT_GE(CountPages(pdf), 15);
  EXPECT_THAT(pdf, AllOf(HasSubstr("/Type /Outlines"), HasSubstr("/PageMode /UseOutlines")));
#else
  GTEST_SKIP() << "this build makes no manual: " << file;
#endif
}

INSTANTIATE_TEST_SUITE_P(Languages, Manual,
                         testing::Values(Language{"de", Wording::German, "OPC_D.PDF"},
                                         Language{"en", Wording::English, "OPC_E.PDF"}),
                         [](const auto& language) { return std::string(language.param.folder); });

TEST(Manual, BothLanguagesSayTheSame) {
  const ManualSource german = ReadManual(kManual / "de");
  const ManualSource english = ReadManual(kManual / "en");
  EXPECT_EQ(german.chapters.size(), english.chapters.size());
  const auto keys = [](const auto& table) {
    std::vector<std::string> names;
    for (const auto& [name, value] : table) names.push_back(name);
    return names;
  };
  EXPECT_EQ(keys(german.words), keys(english.words));
  EXPECT_EQ(keys(german.menus), keys(english.menus));
  EXPECT_EQ(keys(german.sheets), keys(english.sheets));
  ASSERT_EQ(keys(german.messages), keys(english.messages));
  for (const auto& [section, rows] : german.messages)
    EXPECT_EQ(rows.size(), english.messages.at(section).size()) << section;
}

TEST(Manual, BothLanguagesHaveTheSameHeadingsTablesAndPicturesInTheSameOrder) {
  const auto shape = [](const ManualSource& source) {
    std::string marks;
    for (const std::string& chapter : source.chapters) {
      std::istringstream lines(chapter);
      for (std::string line; std::getline(lines, line);) {
        if (line.starts_with('#')) marks += line.substr(0, line.find(' ')) + " ";
        if (line.starts_with('|')) marks += "|";
        if (line.starts_with('{')) marks += line.substr(0, line.find_first_of(" }")) + " ";
      }
    }
    return marks;
  };
  EXPECT_EQ(shape(ReadManual(kManual / "de")), shape(ReadManual(kManual / "en")));
}

TEST(ManualText, ShowsTextsAsTheProgramShowsThem) {
  ManualMachine machine(Wording::English);
  const ManualSource source = SourceOf("");
  ManualText text(source, "1.2", machine.desktop);
  EXPECT_EQ(text.ExpandLine("{text:44}, {entry:44}"), "Save project as..., Save project as");
  EXPECT_EQ(text.ExpandLine("{version} {progid}"), "1.2 " + std::string(OemBrand().progId));
  EXPECT_THAT(text.Texts(), ElementsAre(44));
}

TEST(ManualText, ShowsTheKeysOfAMenuInTheLanguageOfTheManual) {
  ManualMachine machine(Wording::German);
  ManualSource source = SourceOf("");
  source.words["control"] = "Strg";
  for (const int entry : {1, 2, 3, 4, 11, 21}) source.menus["mnuFile " + std::to_string(entry)] = "does";
  ManualText text(source, "1.2", machine.desktop);
  EXPECT_THAT(text.ExpandLine("{menu:mnuFile}"), HasSubstr("| **Projekt öffnen...** | Strg+O | does |\n"));
}

TEST(ManualText, RefusesWhatTheProgramDoesNotHave) {
  ManualMachine machine(Wording::English);
  const ManualSource source = SourceOf("");
  ManualText text(source, "1.2", machine.desktop);
  EXPECT_THAT([&] { static_cast<void>(text.ExpandLine("{text:11}")); },
              ThrowsMessage<ManualFault>(HasSubstr("text 11")));
  EXPECT_THAT([&] { static_cast<void>(text.ExpandLine("{nothing}")); },
              ThrowsMessage<ManualFault>(HasSubstr("nothing")));
  EXPECT_THAT([&] { static_cast<void>(text.ExpandLine("{menu:mnuNone}")); },
              ThrowsMessage<ManualFault>(HasSubstr("mnuNone")));
  EXPECT_THAT([&] { static_cast<void>(text.ExpandLine("{menu:mnuSize}")); },
              ThrowsMessage<ManualFault>(HasSubstr("mnuSize 1")));
  EXPECT_THAT([&] { static_cast<void>(text.ExpandLine("{sheet:device 9}")); },
              ThrowsMessage<ManualFault>(HasSubstr("device 9")));
}

TEST(ManualText, RefusesToLeaveATextOfTheProgramOut) {
  ManualMachine machine(Wording::English);
  const ManualSource source = SourceOf("{text:1}");
  ManualText text(source, "1.2", machine.desktop);
  EXPECT_THAT([&] { static_cast<void>(text.Expand()); },
              ThrowsMessage<ManualFault>(AllOf(HasSubstr("\n2 Property"), Not(HasSubstr("\n1 ")))));
}

TEST(ManualText, RefusesATableRowThatBelongsToNothing) {
  ManualMachine machine(Wording::English);
  ManualSource source = SourceOf("");
  source.sheets["nNothing"] = "what was once a setting";
  ManualText text(source, "1.2", machine.desktop);
  EXPECT_THAT([&] { static_cast<void>(text.Expand()); }, ThrowsMessage<ManualFault>(HasSubstr("nNothing")));
}

const SheetLine& LineOf(const std::vector<SheetLine>& lines, std::string_view property) {
  for (const SheetLine& line : lines) {
    if (line.property == property) return line;
  }
  throw std::out_of_range(std::string(property));
}

TEST(SheetTables, TellWhatTheSettersTell) {
  ManualMachine machine(Wording::English);
  const auto project = ProjectLines(machine.desktop);
  EXPECT_EQ(LineOf(project, "nLogFileSize").allowed, "1..10000");
  EXPECT_EQ(LineOf(project, "nLogFileSize").first, "10000");
  EXPECT_TRUE(LineOf(project, "szFileName").fixed);
  const auto mpi = NetworkLines(0, machine.desktop);
  EXPECT_EQ(LineOf(mpi, "nMPI_Baudrate").allowed, "19200, 38400, 57600, 115200");
  EXPECT_EQ(LineOf(mpi, "nMPI_OwnMPINo").allowed, "0 <= x <= 31");
  EXPECT_EQ(LineOf(mpi, "nMPI_COMPort").first, "1");
  EXPECT_TRUE(LineOf(NetworkLines(2, machine.desktop), "szTCPISO_LocalIP").address);
  const auto iso = DeviceLines(2, machine.desktop);
  EXPECT_EQ(LineOf(iso, "nTCPISO_SlotNo").allowed, "0 .. 255");
  EXPECT_EQ(LineOf(iso, "szTCPISO_RemoteIP").allowed, "a value that is not empty");
  EXPECT_THAT(DeviceLines(5, machine.desktop), IsEmpty());
}

TEST(ParseTable, TakesSectionsCommentsAndContinuedRows) {
  const auto table = ParseTable("# comment\n[one]\na | b |\n c d\n\n[two]\ne | f | g\n", 3);
  EXPECT_THAT(table.at("one"), ElementsAre(ElementsAre("a", "b", "c d")));
  EXPECT_THAT(table.at("two"), ElementsAre(ElementsAre("e", "f", "g")));
}

TEST(ParseTable, RefusesARowWithTooFewOrEmptyCells) {
  EXPECT_THROW(static_cast<void>(ParseTable("a\n", 2)), ManualFault);
  EXPECT_THROW(static_cast<void>(ParseTable("a | b | c\n", 2)), ManualFault);
  EXPECT_THROW(static_cast<void>(ParseTable("a |  | c\n", 3)), ManualFault);
}

TEST(CutTables, GivesEachPieceTheHeadOfItsTable) {
  const std::string text = "x\n\n| h |\n| --- |\n| 1 |\n| 2 |\n| 3 |\ny\n| g |\n| --- |\n| 4 |\n";
  EXPECT_EQ(CutTables(text, {}).markdown, text);
  const CutText cut = CutTables(text, {{0, 3}});
  EXPECT_EQ(cut.markdown, "x\n\n| h |\n| --- |\n| 1 |\n| 2 |\n\n| h |\n| --- |\n| 3 |\ny\n| g |\n| --- |\n| 4 |\n");
  EXPECT_THAT(cut.pieces, ElementsAre(TableRow{0, 1}, TableRow{0, 3}, TableRow{1, 1}));
}

/// What matters of a file as the toolkit writes it.
std::string SmallPdf() {
  std::string pdf = "%PDF-1.4\n";
  pdf += "1 0 obj\n<<\n/Title (x)\n>>\nendobj\n";
  pdf += "2 0 obj\n<<\n/Type /Catalog\n/Pages 3 0 R\n>>\nendobj\n";
  pdf += "3 0 obj\n<<\n/Type /Pages\n/Kids \n[\n4 0 R\n5 0 R\n]\n/Count 2\n>>\nendobj\n";
  pdf += "4 0 obj\n<<\n/Type /Page\n>>\nendobj\n5 0 obj\n<<\n/Type /Page\n>>\nendobj\n";
  pdf += "xref\n0 6\ntrailer\n<<\n/Size 6\n/Info 1 0 R\n/Root 2 0 R\n>>\nstartxref\n1234\n%%EOF\n";
  return pdf;
}

TEST(PdfOutline, AddsATreeOfBookmarksBehindTheFile) {
  const std::string before = SmallPdf();
  const std::string pdf = WithBookmarks(before, {{u"A", 1, 0, 0}, {u"B", 2, 1, 0.5}, {u"\u00C4", 1, 1, 0}}, 842);
  EXPECT_THAT(pdf, StartsWith(before));
  EXPECT_THAT(pdf, HasSubstr("6 0 obj\n<<\n/Type /Outlines\n/First 7 0 R\n/Last 9 0 R\n/Count 2\n>>"));
  EXPECT_THAT(pdf, HasSubstr("/Title <FEFF0041>\n/Dest [4 0 R /XYZ 0 842.0 0]\n/Parent 6 0 R\n/Next 9 0 R\n"
                             "/First 8 0 R\n/Last 8 0 R\n/Count -1\n"));
  EXPECT_THAT(pdf, HasSubstr("/Title <FEFF0042>\n/Dest [5 0 R /XYZ 0 421.0 0]\n/Parent 7 0 R\n>>"));
  EXPECT_THAT(pdf, HasSubstr("/Title <FEFF00C4>\n/Dest [5 0 R /XYZ 0 842.0 0]\n/Parent 6 0 R\n/Prev 7 0 R\n>>"));
  EXPECT_THAT(pdf, HasSubstr("2 0 obj\n<<\n/Type /Catalog\n/Pages 3 0 R\n/Outlines 6 0 R\n/PageMode /UseOutlines\n>>"));
  EXPECT_THAT(pdf, HasSubstr("/Size 10\n/Info 1 0 R\n/Root 2 0 R\n/Prev 1234\n"));
}

TEST(PdfOutline, TellsTheTruePlacesOfTheNewObjects) {
  const std::string pdf = WithBookmarks(SmallPdf(), {{u"A", 1, 0, 0}}, 842);
  const std::size_t table = pdf.rfind("xref\n", pdf.rfind("startxref") - 1);
  EXPECT_THAT(pdf, HasSubstr("startxref\n" + std::to_string(table) + "\n%%EOF"));
  for (std::size_t line = pdf.find('\n', table) + 1; pdf.compare(line, 7, "trailer") != 0;) {
    const int number = std::stoi(pdf.substr(line));
    line = pdf.find('\n', line) + 1;
    const std::size_t place = std::stoul(pdf.substr(line, 10));
    EXPECT_EQ(pdf.substr(place, std::to_string(number).size() + 6), std::to_string(number) + " 0 obj");
    line = pdf.find('\n', line) + 1;
  }
}

TEST(PdfOutline, RefusesAFileOfAnotherMake) {
  EXPECT_THROW(static_cast<void>(WithBookmarks("no pdf", {{u"A", 1, 0, 0}}, 842)), ManualFault);
  EXPECT_THROW(static_cast<void>(WithBookmarks(SmallPdf(), {{u"A", 1, 2, 0}}, 842)), ManualFault);
}

}  // namespace
}  // namespace tavrin
