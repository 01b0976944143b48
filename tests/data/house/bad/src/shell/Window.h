#pragma once

#include <QString>
#include "../online/Monitor.h"
