#pragma once

namespace tavrin {

/// Tells the service manager that the server can be reached now, where the program was started by one that waits for
/// it (systemd's Type=notify): so a start that comes to nothing is a failed start, and not one that failed later.
void TellServiceManagerReady();

}  // namespace tavrin
