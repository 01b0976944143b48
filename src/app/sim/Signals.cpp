#include "app/sim/Signals.h"

#include <csignal>
#include <initializer_list>

namespace tavrin {

namespace {

// Written by signal handlers, which know of no object.
volatile std::sig_atomic_t endWanted = 0;
volatile std::sig_atomic_t reloadWanted = 0;

void AskForEnd(int) { endWanted = 1; }
void AskForReload(int) { reloadWanted = 1; }

void Handle(int signal, void (*handler)(int)) {
  struct sigaction action {};
  action.sa_handler = handler;
  sigaction(signal, &action, nullptr);
}

}  // namespace

Signals::Signals() {
  for (const int end : {SIGTERM, SIGINT}) Handle(end, AskForEnd);
  Handle(SIGHUP, AskForReload);
  Handle(SIGPIPE, SIG_IGN);
}

bool Signals::EndWanted() { return endWanted != 0; }

bool Signals::TakeReloadWanted() {
  const bool wanted = reloadWanted != 0;
  reloadWanted = 0;
  return wanted;
}

}  // namespace tavrin
