#pragma once

#include "platform/Failure.h"
#include "platform/Text.h"

namespace ovalia::system {

// The failure that a system error (`errno`) means to a user of files: 53, 58, 61, 70, 75 or 76. A missing
// file is 53 here; where its folder is missing too, the lookup of the path says 76 beforehand.
Failure failureOf(int error, TextView path);

}  // namespace ovalia::system
