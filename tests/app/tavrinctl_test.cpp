#include <filesystem>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <sys/stat.h>
#include <unistd.h>

#include "app/TavrinctlRun.h"
#include "support/TemporaryDirectory.h"

/// The real program, run as a user or a script runs it.

namespace tavrin {
namespace {

using nlohmann::json;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

constexpr const char* kGeneral =
    "[General]\r\nLogFileSize=5000\r\nCaseSensitive=0\r\nUsedSeparator=/\r\nTagsAlwaysUppercase=0\r\n\r\n";

const std::string kPlant = InSourceTree("samples/plant");

/// The name of a temporary directory whose way is open to every user of the machine.
void OpenToAll(const TemporaryDirectory& directory) {
  std::filesystem::permissions(directory.Path(), std::filesystem::perms(0755));
}

void MakeFifo(const std::string& path) { ASSERT_EQ(mkfifo(path.c_str(), 0600), 0); }

/// A run that was refused: status 2, nothing on the output, one line that holds the reason.
void ExpectRefused(const ProgramRun& run, const std::string& reason) {
  EXPECT_EQ(run.status, 2);
  EXPECT_THAT(run.out, IsEmpty());
  EXPECT_THAT(run.err, HasSubstr(reason));
}

TEST(Tavrinctl, HelpAndVersionSucceed) {
  for (const auto& words : std::vector<std::vector<std::string>>{
           {"--help"}, {"-h"}, {"show", "--help"}, {"check", "--help"}, {"resave", "--help"}}) {
    const ProgramRun run = CallTavrinctl(words);
    EXPECT_EQ(run.status, 0) << words.front();
    EXPECT_THAT(run.out, HasSubstr("Usage:"));
  }
  const ProgramRun version = CallTavrinctl({"--version"});
  EXPECT_EQ(version.status, 0);
  EXPECT_THAT(version.out, testing::MatchesRegex("tavrinctl [0-9]+\\.[0-9]+\\.[0-9]+\n"));
}

TEST(Tavrinctl, RefusesAWrongCommandLine) {
  const std::string file = kPlant + "/ZOPCSRV.ini";
  ExpectRefused(CallTavrinctl({}), "subcommand");
  ExpectRefused(CallTavrinctl({"convert", file}), "convert");
  ExpectRefused(CallTavrinctl({"--loud", "check", file}), "--loud");
  ExpectRefused(CallTavrinctl({"check"}), "FILE");
  ExpectRefused(CallTavrinctl({"resave", file}), "DIR");
  ExpectRefused(CallTavrinctl({"check", file, file}), file);
  ExpectRefused(CallTavrinctl({"--language=fr", "check", file}), "fr");
}

TEST(Tavrinctl, DoesNotWriteAProjectOverItselfThatItCouldNotReadToTheEnd) {
  const TemporaryDirectory directory;
  const std::string root = "[General]\r\nLogFileSize=99999999999\r\n[Line]\r\nProtocol=H1\r\n";
  directory.Write("ZOPCSRV.ini", root);
  ExpectRefused(CallTavrinctl({"--language=numbers", "resave", directory.Path() + "ZOPCSRV.ini", directory.Path()}),
                "#199 6 #200 cOPC.Refresh : Overflow");
  EXPECT_EQ(directory.Read("ZOPCSRV.ini"), root);

  const TemporaryDirectory other;
  const ProgramRun run = CallTavrinctl({"resave", directory.Path() + "ZOPCSRV.ini", other.Path()});
  EXPECT_EQ(run.status, 0);
  EXPECT_THAT(run.err, testing::HasSubstr("Overflow")) << "what is missing in the other directory is told";
  EXPECT_TRUE(other.Has("ZOPCSRV.ini"));
}

TEST(Tavrinctl, DoesNotWriteOutsideOfTheDirectory) {
  for (const char* hostile : {"../victim.txt", "sub/../../victim.txt"}) {
    SCOPED_TRACE(hostile);
    const TemporaryDirectory directory;
    directory.Write("ZOPCSRV.ini", "[General]\r\nLogFileSize=1\r\n[Line]\r\nProtocol=H1\r\nConfiguration=Line.ini\r\n");
    directory.Write("Line.ini", std::string("[Press]\r\nVariables=") + hostile + "\r\n");
    const TemporaryDirectory other;
    ExpectRefused(CallTavrinctl({"resave", directory.Path() + "ZOPCSRV.ini", other.Path()}), hostile);
    EXPECT_FALSE(other.Has("ZOPCSRV.ini"));
  }
}

TEST(Tavrinctl, LeavesNamesakesInOtherCaseAlone) {
  const TemporaryDirectory directory;
  directory.Write("ZOPCSRV.ini", "[General]\r\nLogFileSize=1\r\n[n]\r\nProtocol=H1\r\nConfiguration=n.ini\r\n");
  directory.Write("n.ini", "[d]\r\nVariables=d.csv\r\n");
  directory.Write("d.csv", "T1;MB1;RW\r\n");
  const std::vector<std::pair<std::string, std::string>> namesakes{
      {"zopcsrv.ini", "[OLD]\r\n"}, {"N.INI", "[OLDDEV]\r\n"}, {"D.csv", "OLD;MB2;RO\r\n"}};
  for (const auto& [name, bytes] : namesakes) directory.Write(name, bytes);
  EXPECT_EQ(CallTavrinctl({"resave", directory.Path() + "ZOPCSRV.ini", directory.Path()}).status, 0);
  for (const auto& [name, bytes] : namesakes) EXPECT_EQ(directory.Read(name), bytes) << name;
  EXPECT_EQ(directory.Read("d.csv"), "T1;MB1;RW\r\n");
  EXPECT_THAT(directory.Read("n.ini"), testing::HasSubstr("Variables=d.csv"));
  EXPECT_THAT(directory.Read("ZOPCSRV.ini"), testing::HasSubstr("Configuration=n.ini"));
}

TEST(Tavrinctl, TellsThatASettingsFileCouldNotBeWritten) {
  const TemporaryDirectory directory;
  directory.Write("ZOPCSRV.ini", "[General]\r\nLogFileSize=1\r\n");
  const TemporaryDirectory other;
  std::filesystem::create_directory(other.Path() + "ZOPCSRV.ini");
  const ProgramRun run = CallTavrinctl({"resave", directory.Path() + "ZOPCSRV.ini", other.Path()});
  EXPECT_EQ(run.status, 2);
  EXPECT_THAT(run.err, testing::HasSubstr("not every file could be written"));
}

TEST(Tavrinctl, TheLanguageMayStandBehindTheCommand) {
  const ProgramRun run = CallTavrinctl({"check", kPlant + "/missing.ini", "--language=de"});
  ExpectRefused(run, "Datei nicht gefunden: " + kPlant + "/missing.ini");
}

TEST(Tavrinctl, RefusesAMissingFileWithTheWordsOfTheLanguage) {
  for (const char* command : {"show", "check"}) {
    ExpectRefused(CallTavrinctl({"--language=numbers", command, "/nowhere/a.ini"}), "#201 /nowhere/a.ini\n");
    ExpectRefused(CallTavrinctl({"--language=en", command, "/nowhere/a.ini"}), "File not found: /nowhere/a.ini\n");
  }
}

TEST(Tavrinctl, RefusesWhatIsNoPlainFile) {
  const TemporaryDirectory directory;
  const std::string fifo = directory.Path() + "ZOPCSRV.ini";
  MakeFifo(fifo);
  ExpectRefused(CallTavrinctl({"check", fifo}), fifo + ": cannot be read");
  ExpectRefused(CallTavrinctl({"check", directory.Path()}), directory.Path() + ": this is a directory");
  ExpectRefused(CallTavrinctl({"check", "/dev/null"}), "/dev/null: cannot be read");
}

TEST(Tavrinctl, AFifoInPlaceOfATagFileDoesNotStopTheLoad) {
  const TemporaryDirectory directory;
  CopyFiles(kPlant, directory.Path());
  std::filesystem::remove(directory.Path() + "Labor.csv");
  MakeFifo(directory.Path() + "Labor.csv");
  const ProgramRun run = CallTavrinctl({"--language=numbers", "show", directory.Path() + "ZOPCSRV.ini"});
  const json document = json::parse(run.out);
  EXPECT_THAT(document["boxes"], ElementsAre("#199 75 #200 cTags.Refresh : Path/File access error"));
  EXPECT_EQ(document["project"]["Networks"].size(), 6U);
}

TEST(Tavrinctl, RefusesAPathThatTheCodePageCannotSpell) {
  const TemporaryDirectory directory;
  const std::string folder = directory.Path() + "工場";
  CopyFiles(kPlant, folder);
  const std::string file = folder + "/ZOPCSRV.ini";
  ExpectRefused(CallTavrinctl({"check", file}), file + ": the path has characters");
  ExpectRefused(CallTavrinctl({"resave", kPlant + "/ZOPCSRV.ini", folder}), folder + ": the path has characters");
  EXPECT_THAT(Differences(kPlant, folder), IsEmpty());
}

TEST(Tavrinctl, RefusesToWriteWhereNoDirectoryIs) {
  const TemporaryDirectory directory;
  const std::string missing = directory.Path() + "new";
  ExpectRefused(CallTavrinctl({"resave", kPlant + "/ZOPCSRV.ini", missing}), missing + ": there is no such directory");
  EXPECT_FALSE(directory.Has("new"));
  directory.Write("file", "content");
  const std::string file = directory.Path() + "file";
  ExpectRefused(CallTavrinctl({"resave", kPlant + "/ZOPCSRV.ini", file}), file + ": is no directory");
  EXPECT_EQ(directory.Read("file"), "content");
}

TEST(Tavrinctl, AFileNameWithoutDirectoryIsThatOfTheWorkingDirectory) {
  const TemporaryDirectory written;
  EXPECT_EQ(CallTavrinctl({"check", "ZOPCSRV.ini"}, {.directory = kPlant}).status, 0);
  EXPECT_EQ(CallTavrinctl({"resave", "ZOPCSRV.ini", written.Path()}, {.directory = kPlant}).status, 0);
  EXPECT_THAT(Differences(kPlant, written.Path()), IsEmpty());
}

TEST(Tavrinctl, FindsAFileWhoseNameIsWrittenInAnotherCase) {
  const ProgramRun run = CallTavrinctl({"show", kPlant + "/zopcsrv.INI"});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(json::parse(run.out)["project"]["szFileName"], "zopcsrv.INI");
}

TEST(Tavrinctl, DirectoriesMayHaveUmlauts) {
  const TemporaryDirectory directory;
  const std::string from = directory.Path() + "Prüfstände";
  const std::string to = directory.Path() + "Größe 2 – Kopie";
  CopyFiles(kPlant, from);
  std::filesystem::create_directory(to);
  EXPECT_EQ(CallTavrinctl({"resave", from + "/ZOPCSRV.ini", to}).status, 0);
  EXPECT_THAT(Differences(from, to), IsEmpty());

  std::filesystem::remove(to + "/Labor.csv");
  const ProgramRun run = CallTavrinctl({"--language=numbers", "check", to + "/ZOPCSRV.ini"});
  EXPECT_EQ(run.out, "Tag\tLabor.csv\t#201 " + to + "/Labor.csv\n");
}

TEST(Tavrinctl, ResaveIntoTheSameDirectoryChangesNothing) {
  const TemporaryDirectory directory;
  CopyFiles(kPlant, directory.Path());
  const ProgramRun run = CallTavrinctl({"resave", directory.Path() + "ZOPCSRV.ini", directory.Path()});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(json::parse(run.out), json::parse(R"({"bOK": true, "boxes": [], "warnings": []})"));
  EXPECT_THAT(Differences(kPlant, directory.Path()), IsEmpty());
}

TEST(Tavrinctl, TellsTheTagFilesThatNoLongerFitOnTheDisk) {
  constexpr std::size_t kRoom = 4096;
  const TemporaryDirectory directory;
  const ProgramRun run =
      CallTavrinctl({"--language=numbers", "resave", kPlant + "/ZOPCSRV.ini", directory.Path()}, {.fileSize = kRoom});
  EXPECT_EQ(run.status, 1);
  const json document = json::parse(run.out);
  const std::string box = "#199 61 #200 cTags.Update : Disk full";
  EXPECT_EQ(document["bOK"], false);
  EXPECT_THAT(document["boxes"], ElementsAre(box, box));
  const auto warning = [](const std::string& file) {
    return json{{"nType", 2}, {"szType", "Device"}, {"szFileName", file}, {"szText", "#205 " + file}};
  };
  EXPECT_EQ(document["warnings"], (json{warning("Filterstrasse_A.csv"), warning("Reinwasserpumpen.csv")}));
  // Of a file that does not fit, its beginning is there; the other files are whole.
  EXPECT_EQ(directory.Read("Filterstrasse_A.csv"), BytesOf(kPlant + "/Filterstrasse_A.csv").substr(0, kRoom));
  EXPECT_THAT(Differences(kPlant, directory.Path()), ElementsAre("Filterstrasse_A.csv", "Reinwasserpumpen.csv"));
}

TEST(Tavrinctl, TellsThatItsOutputGotLost) {
  for (const char* command : {"check", "show"}) {
    const ProgramRun run =
        CallTavrinctl({command, InSourceTree("samples/faulty/ZOPCSRV.ini")}, {.output = "/dev/full"});
    EXPECT_EQ(run.status, 2);
    EXPECT_THAT(run.err, HasSubstr("the output cannot be written"));
  }
}

constexpr int kNotStarted = 127;  // of a run as an ordinary user: he has no way to the program

TEST(Tavrinctl, TellsThatADirectoryMayNotBeWrittenTo) {
  const TemporaryDirectory base;
  OpenToAll(base);
  const std::string project = base.Path() + "project";
  const std::string locked = base.Path() + "locked";
  CopyFiles(kPlant, project);
  std::filesystem::create_directory(locked);
  std::filesystem::permissions(locked, std::filesystem::perms(0555));
  const ProgramRun run =
      CallTavrinctl({"--language=numbers", "resave", project + "/ZOPCSRV.ini", locked}, {.unprivileged = true});
  if (run.status == kNotStarted) GTEST_SKIP() << "an ordinary user cannot run " << TAVRINCTL;
  EXPECT_EQ(run.status, 1);
  const json document = json::parse(run.out);
  EXPECT_EQ(document["bOK"], false);
  EXPECT_EQ(document["boxes"].size(), 15U);
  EXPECT_THAT(document["boxes"], testing::Each("#199 75 #200 cTags.Update : Path/File access error"));
  EXPECT_TRUE(std::filesystem::is_empty(locked));
}

TEST(Tavrinctl, RefusesAProjectThatMayNotBeRead) {
  const TemporaryDirectory base;
  OpenToAll(base);
  base.Write("ZOPCSRV.ini", kGeneral);
  const std::string file = base.Path() + "ZOPCSRV.ini";
  std::filesystem::permissions(file, std::filesystem::perms(0));
  const ProgramRun run = CallTavrinctl({"check", file}, {.unprivileged = true});
  if (run.status == kNotStarted) GTEST_SKIP() << "an ordinary user cannot run " << TAVRINCTL;
  ExpectRefused(run, file + ": cannot be read");
}

TEST(Tavrinctl, LoadsAndWritesAHugeTagFile) {
  constexpr int kTags = 200'000;
  const TemporaryDirectory from;
  const TemporaryDirectory to;
  std::string tags;
  for (int i = 0; i < kTags; ++i) {
    tags +=
        "Tag_" + std::to_string(i) + ";DB1.DBW" + std::to_string(i) + ";RW;CMT=number " + std::to_string(i) + "\r\n";
  }
  CopyFiles(kPlant, from.Path());
  from.Write("Labor.csv", tags);
  const ProgramRun run = CallTavrinctl({"resave", from.Path() + "ZOPCSRV.ini", to.Path()});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_TRUE(to.Read("Labor.csv") == tags);  // no EXPECT_EQ: it would print them
}

TEST(Tavrinctl, ReadsAHugeProjectFile) {
  const TemporaryDirectory directory;
  std::string file = kGeneral + std::string("[Netz]\r\nProtocol=H1\r\nConfiguration=");
  file += std::string(20'000'000, 'x') + "\r\n";
  for (int i = 0; i < 200'000; ++i) file += "; one of many lines of comment\r\n";
  directory.Write("ZOPCSRV.ini", file);
  const ProgramRun run = CallTavrinctl({"--language=numbers", "check", directory.Path() + "ZOPCSRV.ini"});
  EXPECT_EQ(run.out, "Network\tNetz\t#201 " + directory.Path() + std::string(254, 'x') + "\n");
}

TEST(Tavrinctl, RefusesAFileThatNoMemoryCanHold) {
#if defined(__SANITIZE_ADDRESS__)
  GTEST_SKIP() << "the address sanitizer ends a program that asks for this much";
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
  GTEST_SKIP() << "the address sanitizer ends a program that asks for this much";
#endif
#endif
  const TemporaryDirectory directory;
  const std::string file = directory.Path() + "ZOPCSRV.ini";
  directory.Write("ZOPCSRV.ini", kGeneral);
  if (truncate(file.c_str(), off_t{8} << 40) != 0) GTEST_SKIP() << "no files of this size on the disk of " << file;
  ExpectRefused(CallTavrinctl({"check", file}), file + ": cannot be read (Out of memory)");
}

/// The program at another place, with the files that it finds beside itself.
class TavrinctlElsewhere : public testing::Test {
 protected:
  TavrinctlElsewhere() {
    std::filesystem::copy_file(TAVRINCTL, program_);
    std::filesystem::copy(InSourceTree("texts"), place.Path() + "texts");
  }

  [[nodiscard]] ProgramRun RunIt(const std::vector<std::string>& arguments) const {
    return CallTavrinctl(arguments, {.program = program_});
  }

  TemporaryDirectory place;
  TemporaryDirectory project;

 private:
  std::string program_ = place.Path() + "tavrinctl";
};

TEST_F(TavrinctlElsewhere, RunsInTheDefaultCodePageWithoutSettings) {
  CopyFiles(kPlant, project.Path());
  EXPECT_EQ(RunIt({"check", project.Path() + "ZOPCSRV.ini"}).status, 0);
}

TEST_F(TavrinctlElsewhere, ReadsFilesInTheCodePageOfTheSettings) {
  place.Write("Tavrin.INI", "[Editor]\r\nCodePage=1251\r\n");
  const std::string folder = project.Path() + "Цех";
  std::filesystem::create_directory(folder);
  project.Write("Цех/ZOPCSRV.ini", kGeneral + std::string("[\xCD\xE0\xF1\xEE\xF1]\r\nProtocol=H1\r\n"));
  const ProgramRun run = RunIt({"--language=numbers", "check", folder + "/ZOPCSRV.ini"});
  EXPECT_EQ(run.out, "OPC\tZOPCSRV.ini\t#207 Configuration:\nNetwork\tНасос\t#201 " + folder + "/\n");
}

TEST_F(TavrinctlElsewhere, KeepsTheDefaultWhenTheSettingsNameNoCodePage) {
  place.Write("Tavrin.INI", "[Editor]\r\nCodePage=65001\r\n");
  project.Write("ZOPCSRV.ini", kGeneral + std::string("[K\xFChlung]\r\nProtocol=H1\r\nConfiguration=a.ini\r\n"));
  const ProgramRun run = RunIt({"--language=numbers", "check", project.Path() + "ZOPCSRV.ini"});
  EXPECT_THAT(run.out, StartsWith("Network\tKühlung\t"));
}

TEST_F(TavrinctlElsewhere, CannotRunWithoutTheTextsButWithNumbers) {
  std::filesystem::remove_all(place.Path() + "texts");
  const ProgramRun run = RunIt({"check", kPlant + "/ZOPCSRV.ini"});
  EXPECT_EQ(run.status, 2);
  EXPECT_THAT(run.err, HasSubstr("texts"));
  EXPECT_EQ(RunIt({"--language=numbers", "check", kPlant + "/ZOPCSRV.ini"}).status, 0);
}

}  // namespace
}  // namespace tavrin
