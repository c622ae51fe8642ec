#include "system/SystemClock.h"

#include <algorithm>

namespace ovalia::system {

Date localTime(std::time_t moment) {
  std::tm local{};
  localtime_r(&moment, &local);
  return dateFrom({local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour, local.tm_min,
                   std::min(local.tm_sec, 59)})
      .value_or(Date{});
}

Date SystemClock::now() { return localTime(std::time(nullptr)); }

}  // namespace ovalia::system
