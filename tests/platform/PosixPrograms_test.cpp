#include "platform/posix/PosixPrograms.h"

#include <cstdlib>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "platform/RuntimeError.h"
#include "platform/StandInPrograms.h"
#include "platform/posix/ProgramSearch.h"
#include "platform/posix/ProgramTable.h"

namespace tavrin {
namespace {

using testing::ElementsAre;
using Words = std::vector<std::string>;

constexpr auto kNormal = WindowStyle::Normal;

/// Number of the error that a call ends with; 0 when it succeeds.
int ErrorOf(const std::function<void()>& call) {
  try {
    call();
  } catch (const RuntimeError& error) {
    return static_cast<int>(error.Number());
  }
  return 0;
}

std::string Replaced(std::string text, std::string_view mark, const std::string& by) {
  for (std::size_t at = text.find(mark); at != std::string::npos; at = text.find(mark, at + by.size())) {
    text.replace(at, mark.size(), by);
  }
  return text;
}

class PosixProgramsTest : public testing::Test {
 protected:
  PosixProgramsTest() { machine.Directory().Write("a.txt", "text"); }

  [[nodiscard]] std::string File(std::string_view name = "a.txt") const {
    return machine.Directory().Path() + std::string(name);
  }
  /// Makes the machine one on which only this command can be had.
  void InstallOnly(const CommandRow& row) {
    std::filesystem::remove_all(machine.Directory().Path() + "bin");
    std::filesystem::create_directory(machine.Directory().Path() + "bin");
    machine.Install(row.program);
    if (!row.needs.empty()) machine.Install(row.needs);
    if (row.place != CommandPlace::Window) machine.Install("xterm");
    if (!row.mediaType.empty()) machine.InstallHandler(row.mediaType);
    machine.SetVariable("XDG_CURRENT_DESKTOP", std::string(row.desktop));
  }
  /// The words with which that machine starts the command for the file and the page 3.
  [[nodiscard]] Words Wanted(const CommandRow& row) const {
    const bool terminal = row.place != CommandPlace::Window;
    Words words{terminal ? "xterm" : std::string(row.program)};
    if (row.place == CommandPlace::Kept) words.emplace_back("-hold");
    if (terminal) words.insert(words.end(), {"-e", machine.ProgramPath(row.program)});
    for (const std::string_view argument : row.arguments) {
      if (argument.empty()) continue;
      std::string word = Replaced(std::string(argument), "%f", File());
      word = Replaced(Replaced(word, "%l", "file://" + File()), "%n", "3");
      words.push_back(Replaced(word, "%u", "Server.service"));
    }
    return words;
  }
  void CheckRows(std::span<const CommandRow> rows, const std::function<void()>& start) {
    EXPECT_FALSE(rows.empty());
    for (const CommandRow& row : rows) {
      InstallOnly(row);
      start();
      EXPECT_EQ(machine.TakeStarted(), Wanted(row)) << row.program;
    }
  }

  StandInPrograms machine;
  PosixPrograms programs{machine.Directory().Path(), "Server.service"};
};

TEST_F(PosixProgramsTest, EachCommandOfEachPurposeIsStartedWhereItIsTheOnlyOne) {
  for (const auto purpose : {Administration::UserManager, Administration::Services, Administration::EventLog,
                             Administration::SystemInformation}) {
    CheckRows(CommandsFor(purpose), [&] { programs.Start(purpose, kNormal); });
  }
}

TEST_F(PosixProgramsTest, EachCommandForTextsAndDocumentsIsStartedWhereItIsTheOnlyOne) {
  CheckRows(TextCommands(), [&] { programs.ShowText(File(), kNormal); });
  CheckRows(DocumentCommands(), [&] { EXPECT_TRUE(programs.OpenDocument(File(), 3)); });
}

TEST_F(PosixProgramsTest, TheFirstCommandThatIsFoundIsStarted) {
  for (const CommandRow& row : CommandsFor(Administration::EventLog)) machine.Install(row.program);
  machine.Install("xterm");
  programs.Start(Administration::EventLog, WindowStyle::Minimised);
  EXPECT_THAT(machine.TakeStarted(), ElementsAre("gnome-logs"));
  std::filesystem::remove(machine.ProgramPath("gnome-logs"));
  programs.Start(Administration::EventLog, kNormal);
  EXPECT_THAT(machine.TakeStarted(), ElementsAre("ksystemlog"));
}

TEST_F(PosixProgramsTest, OpcSettingsAreTheServerTableInTheTextEditor) {
  machine.Install("kwrite");
  programs.Start(Administration::OpcSettings, kNormal);
  EXPECT_THAT(machine.TakeStarted(), ElementsAre("kwrite", File("Tavrin.INI")));
}

TEST_F(PosixProgramsTest, WithoutAProgramItIsFileNotFound) {
  for (int number = 0; number <= static_cast<int>(Administration::SystemInformation); ++number) {
    EXPECT_EQ(ErrorOf([&] { programs.Start(static_cast<Administration>(number), kNormal); }), 53) << number;
  }
  EXPECT_EQ(ErrorOf([&] { programs.ShowText(File(), kNormal); }), 53);
  EXPECT_FALSE(programs.OpenDocument(File(), 1));
}

TEST_F(PosixProgramsTest, TheProgramsOfOlderGenerationsExistNowhere) {
  for (const auto purpose : {Administration::UserManager, Administration::Services}) {
    for (const CommandRow& row : CommandsFor(purpose)) machine.Install(row.program);
  }
  EXPECT_EQ(ErrorOf([&] { programs.Start(Administration::UserPasswords, kNormal); }), 53);
  EXPECT_EQ(ErrorOf([&] { programs.Start(Administration::ServerManager, kNormal); }), 53);
}

TEST_F(PosixProgramsTest, ACentreOfAnotherDesktopDoesNotCount) {
  machine.Install("gnome-control-center");
  machine.SetVariable("XDG_CURRENT_DESKTOP", "KDE");
  EXPECT_EQ(ErrorOf([&] { programs.Start(Administration::UserManager, kNormal); }), 53);
  machine.SetVariable("XDG_CURRENT_DESKTOP", "ubuntu:GNOME");
  programs.Start(Administration::UserManager, kNormal);
  EXPECT_THAT(machine.TakeStarted(), ElementsAre("gnome-control-center", "user-accounts"));
}

TEST_F(PosixProgramsTest, EachTerminalGetsTheCommandAsSingleWords) {
  for (const TerminalRow& row : Terminals()) {
    InstallOnly({.program = "less"});
    machine.Install(row.program);
    programs.ShowText(File(), kNormal);
    Words wanted{std::string(row.program)};
    if (!row.run.empty()) wanted.emplace_back(row.run);
    wanted.insert(wanted.end(), {machine.ProgramPath("less"), "-L", File()});
    EXPECT_EQ(machine.TakeStarted(), wanted);
  }
}

TEST_F(PosixProgramsTest, ACommandThatEndsAtOnceNeedsATerminalThatStays) {
  machine.Install("inxi");
  machine.Install("gnome-terminal");
  EXPECT_EQ(ErrorOf([&] { programs.Start(Administration::SystemInformation, kNormal); }), 53);
  machine.Install("less");
  programs.Start(Administration::SystemInformation, kNormal);
  EXPECT_THAT(machine.TakeStarted(), ElementsAre("gnome-terminal", "--", machine.ProgramPath("less"), "-L",
                                                 "/etc/os-release", "/proc/cpuinfo", "/proc/meminfo"));
  machine.Install("foot");
  programs.Start(Administration::SystemInformation, kNormal);
  EXPECT_THAT(machine.TakeStarted(), ElementsAre("foot", "--hold", machine.ProgramPath("inxi"), "-F"));
}

TEST_F(PosixProgramsTest, ACommandWithoutAnyTerminalDoesNotCount) {
  machine.Install("less");
  EXPECT_EQ(ErrorOf([&] { programs.ShowText(File(), kNormal); }), 53);
}

TEST_F(PosixProgramsTest, EachPathIsOneWordWhateverIsInIt) {
  machine.Install("gedit");
  for (const std::string name : {"two words", "'quoted' \"twice\"", "line\nbreak", "$(reboot)`reboot`", "a;b&c|d",
                                 "%n%f%", "*?[a]", "~", "-version", "back\\slash"}) {
    programs.ShowText(File(name), kNormal);
    EXPECT_THAT(machine.TakeStarted(), ElementsAre("gedit", File(name)));
  }
}

TEST_F(PosixProgramsTest, ARelativePathIsNoOption) {
  machine.Install("gedit");
  programs.ShowText("-version", kNormal);
  EXPECT_THAT(machine.TakeStarted(), ElementsAre("gedit", "./-version"));
}

TEST_F(PosixProgramsTest, APathReachesTheProgramInUtf8) {
  machine.Install("gedit");
  programs.ShowText(File("M\xFCll \x80.txt"), kNormal);
  EXPECT_THAT(machine.TakeStarted(), ElementsAre("gedit", File("M\xC3\xBCll \xE2\x82\xAC.txt")));
}

TEST_F(PosixProgramsTest, ABrowserGetsAnAddressInWhichNothingHasAMeaningButThePage) {
  machine.Install("firefox");
  machine.Directory().Write("a #%?\xC3\xBC.pdf", "");
  EXPECT_TRUE(programs.OpenDocument(File("a #%?\xFC.pdf"), 7));
  EXPECT_THAT(machine.TakeStarted(),
              ElementsAre("firefox", "file://" + machine.Directory().Path() + "a%20%23%25%3F%C3%BC.pdf#page=7"));
}

TEST_F(PosixProgramsTest, AFileIsFoundUnderAnotherCaseOfItsName) {
  machine.Install("gedit");
  machine.Install("evince");
  programs.ShowText(File("A.TXT"), kNormal);
  EXPECT_THAT(machine.TakeStarted(), ElementsAre("gedit", File()));
  EXPECT_TRUE(programs.OpenDocument(File("A.Txt"), 1));
  EXPECT_THAT(machine.TakeStarted(), ElementsAre("evince", "--page-index=1", File()));
}

TEST_F(PosixProgramsTest, ADocumentThatIsNoPlainFileIsNotOpened) {
  machine.Install("evince");
  ASSERT_EQ(mkfifo(File("pipe").c_str(), 0600), 0);
  std::filesystem::create_symlink("nowhere", File("link"));
  for (const std::string& name : Words{"missing.pdf", "pipe", "link", "bin", std::string("a.txt\0", 6)}) {
    EXPECT_FALSE(programs.OpenDocument(File(name), 1)) << name;
  }
  EXPECT_FALSE(programs.OpenDocument("", 1));
  EXPECT_FALSE(machine.Directory().Has("started"));
}

TEST_F(PosixProgramsTest, ATextThatIsNoPlainFileIsNotShown) {
  machine.Install("gedit");
  ASSERT_EQ(mkfifo(File("pipe").c_str(), 0600), 0);
  EXPECT_EQ(ErrorOf([&] { programs.ShowText(File("pipe"), kNormal); }), 75);
  EXPECT_EQ(ErrorOf([&] { programs.ShowText(File("bin"), kNormal); }), 75);
  EXPECT_FALSE(machine.Directory().Has("started"));
}

TEST_F(PosixProgramsTest, TheUsersOwnProgramForDocumentsComesFirst) {
  machine.Install("xdg-open");
  machine.Install("evince");
  machine.InstallHandler("application/pdf");
  EXPECT_TRUE(programs.OpenDocument(File(), 1));
  EXPECT_THAT(machine.TakeStarted(), ElementsAre("xdg-open", File()));
}

TEST_F(PosixProgramsTest, TheGeneralOpenerDoesNotCountWhileNoProgramOpensTheType) {
  machine.Install("xdg-open");
  EXPECT_FALSE(programs.OpenDocument(File(), 1));
  machine.InstallHandler("text/plain");
  EXPECT_FALSE(programs.OpenDocument(File(), 1));
  programs.ShowText(File(), kNormal);
  EXPECT_THAT(machine.TakeStarted(), ElementsAre("xdg-open", File()));
}

TEST_F(PosixProgramsTest, AProgramIsKnownForATypeWhenItsDescriptionIsInstalled) {
  EXPECT_FALSE(HasHandler("application/pdf"));
  machine.Directory().Write("config/mimeapps.list",
                            "[Default Applications]\napplication/pdf=gone.desktop;/etc/passwd\n"
                            "[Removed Associations]\ntext/plain=viewer.desktop;\n");
  machine.Directory().Write("data/applications/viewer.desktop", "");
  EXPECT_FALSE(HasHandler("application/pdf"));
  EXPECT_FALSE(HasHandler("text/plain"));
  machine.Directory().Write("data/applications/gone.desktop", "");
  EXPECT_TRUE(HasHandler("application/pdf"));
  EXPECT_FALSE(HasHandler("application/pd"));
}

TEST_F(PosixProgramsTest, AProgramThatCannotRunIsPassedOver) {
  machine.Directory().Write("bin/gnome-text-editor", "#!/no/such/interpreter\n");
  machine.Directory().Write("bin/gedit", "no program at all");
  for (const char* name : {"gnome-text-editor", "gedit"}) {
    std::filesystem::permissions(machine.ProgramPath(name), std::filesystem::perms::owner_all);
  }
  EXPECT_EQ(ErrorOf([&] { programs.ShowText(File(), kNormal); }), 53);
  machine.Install("kate");
  programs.ShowText(File(), kNormal);
  EXPECT_THAT(machine.TakeStarted(), ElementsAre("kate", File()));
}

TEST_F(PosixProgramsTest, WhatIsNoExecutableFileIsNoProgram) {
  machine.Directory().Write("bin/gedit", "#!/bin/sh\n");
  std::filesystem::permissions(machine.ProgramPath("gedit"), std::filesystem::perms::owner_read);
  std::filesystem::create_directory(machine.ProgramPath("kate"));
  EXPECT_EQ(FindProgram("gedit"), std::nullopt);
  EXPECT_EQ(FindProgram("kate"), std::nullopt);
}

TEST_F(PosixProgramsTest, ProgramsAreNotTakenFromTheWorkingDirectory) {
  machine.Install("gedit");
  const auto before = std::filesystem::current_path();
  std::filesystem::current_path(machine.Directory().Path() + "bin");
  machine.SetVariable("PATH", ".::bin");
  EXPECT_EQ(FindProgram("gedit"), std::nullopt);
  machine.SetVariable("PATH", "./:" + machine.Directory().Path() + "bin");
  EXPECT_EQ(FindProgram("gedit"), machine.ProgramPath("gedit"));
  std::filesystem::current_path(before);
}

TEST_F(PosixProgramsTest, AStartedProgramIsNotWaitedForAndIsNobodysChild) {
  machine.Install("gedit", "wait_for_go\nset -- \"$PPID\"");
  programs.ShowText(File(), kNormal);
  errno = 0;
  EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1);
  EXPECT_EQ(errno, ECHILD) << "nothing is left that would have to be waited for";
  machine.Go();
  const Words started = machine.TakeStarted();
  ASSERT_EQ(started.size(), 2U);
  EXPECT_NE(started[1], std::to_string(getpid()));
}

TEST_F(PosixProgramsTest, AStartedProgramHasNothingOfThisOne) {
  const int file = open(File().c_str(), O_RDONLY | O_CLOEXEC);
  const int kept = fcntl(file, F_DUPFD, 7);  // without close-on-exec, as a library may do it
  ASSERT_GE(kept, 7);
  const auto before = signal(SIGXFSZ, SIG_IGN);
  // In the shell itself: a further process would have descriptors of its own.
  machine.Install("gedit", "set --\n[ ! -e /proc/$$/fd/" + std::to_string(kept) +
                               " ] || set -- \"$@\" file\n"
                               "for stream in 0 1 2; do [ /proc/$$/fd/$stream -ef /dev/null ] || "
                               "set -- \"$@\" stream; done\n"
                               "while read -r key value; do [ \"$key\" != SigIgn: ] || set -- \"$@\" \"$value\"; done "
                               "< /proc/$$/status");
  programs.ShowText(File(), kNormal);
  signal(SIGXFSZ, before);
  close(kept);
  close(file);
  EXPECT_THAT(machine.TakeStarted(), ElementsAre("gedit", "0000000000000000"));
}

}  // namespace
}  // namespace tavrin
