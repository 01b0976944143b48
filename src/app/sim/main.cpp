#include "app/Machine.h"
#include "app/sim/SimCommandLine.h"

int main(int argc, char** argv) {
  tavrin::PrepareProcess();
  return tavrin::RunTavrinSim(argc, argv);
}
