#include <fcntl.h>
#include <unistd.h>

#include "app/ctl/CommandLine.h"
#include "platform/posix/PosixFiles.h"

namespace {

/// Without this, a project file could get the number of a closed standard stream and receive what is printed there.
void OpenStandardStreams() {
  for (int number = open("/dev/null", O_RDWR); number >= 0 && number <= STDERR_FILENO;) {
    number = open("/dev/null", O_RDWR);
    if (number > STDERR_FILENO) close(number);
  }
}

}  // namespace

int main(int argc, char** argv) {
  OpenStandardStreams();
  tavrin::IgnoreFileSizeSignal();
  return tavrin::RunTavrinctl(argc, argv);
}
