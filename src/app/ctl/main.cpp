#include "app/ctl/CommandLine.h"
#include "platform/posix/PosixFiles.h"

int main(int argc, char** argv) {
  tavrin::IgnoreFileSizeSignal();
  return tavrin::RunTavrinctl(argc, argv);
}
