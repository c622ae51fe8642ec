#pragma once

#include <QString>

#include "platform/Text.h"

namespace ovalia::desktop {

// The file that a "\"-separated path names, as the toolkit calls it: in the disk's own spelling where it is
// there, else as written. Never fails.
QString diskFile(TextView path);

}  // namespace ovalia::desktop
