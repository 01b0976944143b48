#include "model/Reader.h"

#include <string>
#include <unistd.h>

#  include "platform/posix/PosixFiles.h"
#include "app/Options.h"
