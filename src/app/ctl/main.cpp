#include "app/Machine.h"
#include "app/ctl/CommandLine.h"

int main(int argc, char** argv) {
  tavrin::PrepareProcess();
  return tavrin::RunTavrinctl(argc, argv);
}
