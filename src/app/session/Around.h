#pragma once

#include "app/session/Transcript.h"
#include "platform/headless/HeadlessSurroundings.h"

namespace tavrin {

/// From here on the transcript is told what the program starts and what it asks of the service of the server. Both
/// outlive the runs of the program.
void TellWhatIsAround(HeadlessSurroundings& around, Transcript& transcript);

}  // namespace tavrin
