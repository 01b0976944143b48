#include "online/TestCycle.h"

#include <algorithm>
#include <array>
#include <string>

#include <fmt/format.h>

#include "model/shared/modMain.h"
#include "model/tags/cTag.h"
#include "online/TestError.h"
#include "online/TestProtocol.h"
#include "online/frmTest.h"
#include "platform/NumberText.h"

namespace tavrin {

namespace {

using modMain::IgnoreErrors;

constexpr std::string_view kPruefen =
    "Pr\xFC"
    "fen";

}  // namespace

void TestCycle::Reset() {
  step_ = -1;
  run_ = 0;
  ShowRun();
  lastCommand_ = TestCommand::None;
}

void TestCycle::Timer1_Timer() {
  // By the numbers of the steps.
  static constexpr std::array<void (TestCycle::*)(), 5> kSteps{&TestCycle::BeginRun, &TestCycle::UpdateWhenGood,
                                                               &TestCycle::Grundstellung, &TestCycle::Initialisieren,
                                                               &TestCycle::CheckAndGoOn};
  const auto step = static_cast<std::size_t>(step_);  // below zero is beyond all
  IgnoreErrors([&] { (this->*(step < kSteps.size() ? kSteps[step] : &TestCycle::Resubscribe))(); });
}

void TestCycle::BeginRun() {
  IgnoreErrors([this] { run_ = NextNumber(run_); });
  ShowRun();
  if (NumericPrefix(form_.txtSollRuns.Text()) < run_) return form_.cmdStop_Click();
  if (!form_.chkDoAbo.Checked() && itemsCreated_) return SkipSubscription();
  IgnoreErrors([this] { TagsAbonnieren(); });
  itemsCreated_ = true;
}

void TestCycle::UpdateWhenGood() {
  if (form_.device.QualityOK()) TagsUpdate();
}

void TestCycle::CheckAndGoOn() {
  const bool check = form_.chkDoCheck.Checked();
  if (check) {
    IgnoreErrors([this] {
      const int wait = RoundToInt32(NumericPrefix(form_.txtInterval.Text()));
      modMain::Platform().desktop.Sleep(std::max(wait, 0));
    });
    Pruefen();
  }
  if (!check && !form_.chkDoAbo.Checked()) Grundstellung();
  if (!check) step_ = 2;  // after a Grundstellung too, which so comes twice
}

void TestCycle::Resubscribe() {
  IgnoreErrors([this] { TagsAbonnieren(); });
  Grundstellung();
}

void TestCycle::Grundstellung() {
  Send(TestCommand::Grundstellung, false, 0);
  form_.lblLastCommand.Caption("Grundstellung");
  form_.device.ClearQuality();
}

void TestCycle::Initialisieren() {
  Send(TestCommand::Initialisieren, true, 1);
  form_.lblLastCommand.Caption("Initialisieren");
}

void TestCycle::Pruefen() {
  Send(TestCommand::Pruefen, true, 2);
  form_.lblLastCommand.Caption(kPruefen);
}

void TestCycle::Send(TestCommand command, bool showRun, std::int32_t nextStep) {
  lastCommand_ = command;
  IgnoreErrors([this] { form_.items.CreateCommandItems(); });
  IgnoreErrors([&] { form_.items.Command(command); });
  form_.lblLastCommand.Caption(std::to_string(static_cast<std::int32_t>(command)));
  if (showRun) ShowRun();
  SaveRunHeader(run_, command);
  step_ = nextStep;
}

void TestCycle::TagsAbonnieren() {
  lastCommand_ = TestCommand::Abonnieren;
  step_ = 3;
  form_.lblLastCommand.Caption("Tags Anlegen");
  form_.items.Subscribe();
  SaveRunHeader(run_, TestCommand::Abonnieren);
}

void TestCycle::TagsUpdate() {
  lastCommand_ = TestCommand::Update;
  std::string current;
  try {
    for (const cTag* const tag : form_.device.Tags()) {
      current = fmt::format(" Tag: {}Wert: {}", tag->szTag(), tag->szTest());
      form_.items.WriteSetValue(*tag);
    }
  } catch (...) {
    TellTestError("TagsUpdate", current);
  }
  SaveRunHeader(run_, TestCommand::Update);
  step_ = 4;
  form_.lblLastCommand.Caption("Update");
}

void TestCycle::ShowRun() { form_.lblCurrRun.Caption(std::to_string(run_)); }

}  // namespace tavrin
