#pragma once

#include <ctime>

#include "platform/Platform.h"

namespace ovalia::system {

// The date and time that the wall clock shows here at a moment of the system's count, in whole seconds. A
// leap second counts as the second before.
Date localTime(std::time_t moment);

// The computer's clock.
class SystemClock : public Clock {
 public:
  Date now() override;
};

}  // namespace ovalia::system
