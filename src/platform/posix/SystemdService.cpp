#include "platform/posix/SystemdService.h"

namespace tavrin {

int SystemdService::CmdStopServiceEx() { return 1; }
int SystemdService::CmdStartServiceEx() { return 1; }

}  // namespace tavrin
