#include "app/ctl/Interruption.h"

#include <array>
#include <csignal>

namespace tavrin {

namespace {

volatile std::sig_atomic_t came = 0;

void Remember(int) { came = 1; }

constexpr std::array kSignals{SIGINT, SIGTERM};

void Handle(void (*handler)(int)) {
  struct sigaction action {};
  action.sa_handler = handler;
  action.sa_flags = static_cast<int>(SA_RESETHAND);
  for (const int number : kSignals) sigaction(number, &action, nullptr);
}

}  // namespace

Interruption::Interruption() {
  came = 0;
  Handle(Remember);
}

Interruption::~Interruption() { Handle(SIG_DFL); }

bool Interruption::Came() const { return came != 0; }

}  // namespace tavrin
