#include "app/session/Stage.h"

#include <utility>

#include "app/session/Around.h"
#include "model/cOPC.h"
#include "model/shared/cWarnings.h"

namespace tavrin {

Stage::Stage(const Services& machine, const Transcript::Sink& sink)
    : transcript(sink),
      desktop(transcript),
      servers(transcript),
      services_{desktop,          machine.files, machine.profiles,
                machine.registry, machine.texts, machine.syntax,
                machine.settings, around.all,    machine.applicationDirectory} {
  around.all.opc = &servers;
  TellWhatIsAround(around, transcript);
}

Stage::~Stage() {
  program_.reset();
  modMain::globals = modMain::State{};
}

void Stage::Start(std::string commandLine) {
  if (Runs()) throw Refusal{"the program is running already: end it first"};
  modMain::globals = modMain::State{};
  modMain::globals.services = &services_;
  desktop.Restart();
  program_ = std::make_unique<frmOPC>(std::move(commandLine));
  windows_.push_back(program_.get());
  program_->Form_Load();
}

void Stage::Finish() {
  if (!Runs() || !desktop.Ended()) return;
  windows_.clear();
  program_.reset();
  transcript.Tell("the program has ended");
}

Form& Stage::Window() const {
  if (windows_.empty()) throw Refusal{"no program is running: a script begins with start"};
  return *windows_.back();
}

}  // namespace tavrin
