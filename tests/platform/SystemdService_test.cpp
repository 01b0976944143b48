#include "platform/posix/SystemdService.h"

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/posix/Process.h"
#include "support/TemporaryDirectory.h"

namespace tavrin {
namespace {

using namespace std::chrono_literals;
using testing::HasSubstr;
using testing::Not;

/// The words with which the real program tells what has happened.
constexpr const char* kNotBooted = "System has not been booted with systemd as init system (PID 1). Can't operate.";
constexpr const char* kAccessDenied = "Failed to stop The.service: Access denied";
constexpr const char* kJobFailed = "Job for The.service failed because the control process exited with error code.";
constexpr const char* kJobTimedOut = "Job for The.service failed because a timeout was exceeded.";

/// A stand-in for systemctl, which keeps its calls and answers as a test says.
class SystemdServiceTest : public testing::Test {
 protected:
  SystemdServiceTest() {
    directory.Write("systemctl",
                    "#!/bin/sh\n"
                    "cd \"${0%/*}\"\n"
                    "echo \"$*\" >> calls\n"
                    "for word; do case $word in show|stop|start) verb=$word;; esac; done\n"
                    ". ./$verb\n");
    std::filesystem::permissions(directory.Path() + "systemctl", std::filesystem::perms::owner_all);
    const char* const path = std::getenv("PATH");
    path_ = path == nullptr ? "" : path;
    setenv("PATH", (directory.Path() + ":" + path_).c_str(), 1);
    State("active");
    Answer("stop", "echo inactive > after");
    Answer("start", "echo active > after");
  }
  ~SystemdServiceTest() override { setenv("PATH", path_.c_str(), 1); }

  void Answer(const std::string& verb, const std::string& script) const { directory.Write(verb, script + "\n"); }
  /// What the manager tells of the unit, until a stop or a start has changed it.
  void State(const std::string& active, const std::string& loaded = "loaded", const std::string& sub = "any") const {
    Answer("show", "echo LoadState=" + loaded + "\necho SubState=" + sub +
                       "\nif test -f after; then echo ActiveState=$(cat after); else echo ActiveState=" + active +
                       "; fi");
  }
  void Fail(const std::string& verb, int status, const std::string& words) const {
    Answer(verb, "echo \"" + words + "\" >&2; exit " + std::to_string(status));
  }
  /// Which verbs were called.
  [[nodiscard]] std::string Calls() const { return directory.Has("calls") ? directory.Read("calls") : std::string(); }

  TemporaryDirectory directory;
  SystemdService service{"The.service", 20s, 0ms};

 private:
  std::string path_;
};

// ---- stop

TEST_F(SystemdServiceTest, ARunningServiceIsStopped) {
  EXPECT_EQ(service.CmdStopServiceEx(), 0);
  EXPECT_THAT(Calls(), HasSubstr("--no-ask-password --no-pager stop -- The.service\n"));
}

TEST_F(SystemdServiceTest, AServiceThatIsStartingOrStoppingIsStoppedToo) {
  for (const char* active : {"activating", "deactivating", "reloading", "maintenance"}) {
    State(active);
    EXPECT_EQ(service.CmdStopServiceEx(), 0) << active;
    std::filesystem::remove(directory.Path() + "after");
  }
}

TEST_F(SystemdServiceTest, AServiceThatDoesNotRunIsNotStopped) {
  for (const char* active : {"inactive", "failed"}) {
    State(active);
    EXPECT_EQ(service.CmdStopServiceEx(), 4) << active;
  }
  EXPECT_THAT(Calls(), Not(HasSubstr("stop")));
}

TEST_F(SystemdServiceTest, AUnitThatDoesNotExistIsNoAccessToTheService) {
  State("inactive", "not-found");
  EXPECT_EQ(service.CmdStopServiceEx(), 3);
  EXPECT_EQ(service.CmdStartServiceEx(), 2);
  EXPECT_THAT(Calls(), Not(HasSubstr("stop")));
  EXPECT_THAT(Calls(), Not(HasSubstr("start")));
}

TEST_F(SystemdServiceTest, AServiceThatRunsWithoutItsUnitFileIsStopped) {
  State("active", "not-found");
  EXPECT_EQ(service.CmdStopServiceEx(), 0);
}

TEST_F(SystemdServiceTest, AUnitThatGoesBetweenTheTwoQuestionsIsNoAccessToTheService) {
  Fail("stop", 5, "Failed to stop The.service: Unit The.service not loaded.");
  EXPECT_EQ(service.CmdStopServiceEx(), 3);
  State("inactive");
  Fail("start", 5, "Failed to start The.service: Unit The.service not found.");
  EXPECT_EQ(service.CmdStartServiceEx(), 2);
}

TEST_F(SystemdServiceTest, AStopWithoutTheRightIsRefused) {
  Fail("stop", 4, kAccessDenied);
  EXPECT_EQ(service.CmdStopServiceEx(), 5);
  Fail("stop", 1, "Failed to stop The.service: Interactive authentication required.");
  EXPECT_EQ(service.CmdStopServiceEx(), 5);
}

TEST_F(SystemdServiceTest, AStopThatTakesTooLongIsGivenUp) {
  Answer("stop", "sleep 30");
  SystemdService impatient("The.service", 1s, 0ms);
  const auto begin = std::chrono::steady_clock::now();
  EXPECT_EQ(impatient.CmdStopServiceEx(), 6);
  EXPECT_LT(std::chrono::steady_clock::now() - begin, 10s);
}

// ---- start

TEST_F(SystemdServiceTest, AStoppedOrFailedServiceIsStarted) {
  for (const char* active : {"inactive", "failed"}) {
    State(active);
    EXPECT_EQ(service.CmdStartServiceEx(), 0) << active;
    std::filesystem::remove(directory.Path() + "after");
  }
  EXPECT_THAT(Calls(), HasSubstr("--no-ask-password --no-pager start -- The.service\n"));
}

TEST_F(SystemdServiceTest, ARunningServiceIsNotStarted) {
  EXPECT_EQ(service.CmdStartServiceEx(), 4);
  EXPECT_THAT(Calls(), Not(HasSubstr("start")));
}

TEST_F(SystemdServiceTest, AServiceThatHasEndedShortlyAfterTheStartIsTold) {
  State("inactive");
  for (const char* after : {"failed", "inactive"}) {
    Answer("start", std::string("echo ") + after + " > after");
    EXPECT_EQ(service.CmdStartServiceEx(), 5) << after;
    std::filesystem::remove(directory.Path() + "after");
  }
  State("inactive", "loaded", "auto-restart");
  Answer("start", "echo activating > after");
  EXPECT_EQ(service.CmdStartServiceEx(), 5) << "it has ended and waits for another try";
}

TEST_F(SystemdServiceTest, AServiceThatStillStartsCountsAsStarted) {
  State("inactive");
  Answer("start", "echo activating > after");
  EXPECT_EQ(service.CmdStartServiceEx(), 0);
}

TEST_F(SystemdServiceTest, AStartThatFailsIsAnEndRightAfterIt) {
  State("inactive");
  Fail("start", 1, kJobFailed);
  EXPECT_EQ(service.CmdStartServiceEx(), 5);
}

TEST_F(SystemdServiceTest, AStartWithoutTheRightOrOfAMaskedUnitIsRefused) {
  State("failed");
  Fail("start", 4, "Failed to start The.service: Access denied");
  EXPECT_EQ(service.CmdStartServiceEx(), 6);
  State("inactive", "masked");
  Fail("start", 1, "Failed to start The.service: Unit The.service is masked.");
  EXPECT_EQ(service.CmdStartServiceEx(), 6);
}

TEST_F(SystemdServiceTest, AStartThatTakesTooLongIsGivenUp) {
  State("inactive");
  Answer("start", "sleep 30");
  SystemdService impatient("The.service", 1s, 0ms);
  EXPECT_EQ(impatient.CmdStartServiceEx(), 7);
  Fail("start", 1, kJobTimedOut);
  EXPECT_EQ(service.CmdStartServiceEx(), 7) << "the manager has given it up";
}

TEST_F(SystemdServiceTest, AStartThatTookAllTheTimeIsLookedAtForAMomentMore) {
  State("inactive");
  Answer("start", "echo failed > after");
  SystemdService slow("The.service", 2s, 60s);
  EXPECT_EQ(slow.CmdStartServiceEx(), 5);
  std::filesystem::remove(directory.Path() + "after");
  Answer("show", "if test -f after; then sleep 60; fi\necho LoadState=loaded; echo ActiveState=inactive");
  SystemdService silent("The.service", 4s, 60s);
  const auto begin = std::chrono::steady_clock::now();
  EXPECT_EQ(silent.CmdStartServiceEx(), 0) << "as far as is known";
  EXPECT_LT(std::chrono::steady_clock::now() - begin, 7s) << "not twice the time";
}

// ---- the manager

TEST_F(SystemdServiceTest, ASystemWithoutServiceManagerIsNoAccessToIt) {
  Fail("show", 1, kNotBooted);
  EXPECT_EQ(service.CmdStopServiceEx(), 1);
  EXPECT_EQ(service.CmdStartServiceEx(), 1);
  Answer("show", "true");  // answers nothing
  EXPECT_EQ(service.CmdStopServiceEx(), 1);
  std::filesystem::permissions(directory.Path() + "systemctl", std::filesystem::perms::owner_read);
  setenv("PATH", directory.Path().c_str(), 1);
  EXPECT_EQ(service.CmdStopServiceEx(), 1);
  EXPECT_EQ(service.CmdStartServiceEx(), 1);
}

TEST_F(SystemdServiceTest, AManagerThatDoesNotAnswerDidNotRespondInTime) {
  Answer("show", "sleep 30");
  SystemdService impatient("The.service", 500ms, 0ms);
  EXPECT_EQ(impatient.CmdStopServiceEx(), 6);
  EXPECT_EQ(impatient.CmdStartServiceEx(), 7);
}

TEST_F(SystemdServiceTest, AServiceWithoutANameDoesNotExist) {
  SystemdService none("", 20s, 0ms);
  State("inactive");
  EXPECT_EQ(none.CmdStopServiceEx(), 3);
  EXPECT_EQ(none.CmdStartServiceEx(), 2);
}

/// The real service manager, where one runs.
TEST(SystemdServiceOfThisMachine, KnowsNoServiceOfAnInventedName) {
  const ProcessResult running = RunProcess({"systemctl", "is-system-running"}, 10s);
  SystemdService invented("tavrin-invented-name.service");
  if (running.output.empty() || running.output.starts_with("offline") || running.output.starts_with("unknown")) {
    EXPECT_EQ(invented.CmdStopServiceEx(), 1) << "no service manager runs here";
    EXPECT_EQ(invented.CmdStartServiceEx(), 1);
    GTEST_SKIP() << "no service manager runs here; told as such";
  }
  EXPECT_EQ(invented.CmdStopServiceEx(), 3);
  EXPECT_EQ(invented.CmdStartServiceEx(), 2);
}

}  // namespace
}  // namespace tavrin
