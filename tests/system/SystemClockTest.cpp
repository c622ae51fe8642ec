#include "system/SystemClock.h"

#include <gtest/gtest.h>
#include <stdlib.h>

#include <string>

namespace ovalia::system {
namespace {

class TimeZone {
 public:
  explicit TimeZone(const char* zone) {
    setenv("TZ", zone, 1);
    tzset();
  }
  ~TimeZone() {
    unsetenv("TZ");
    tzset();
  }
  TimeZone(const TimeZone&) = delete;
  TimeZone& operator=(const TimeZone&) = delete;
};

TEST(LocalTime, follows_the_wall_clock_in_winter_and_summer) {
  const TimeZone madrid("Europe/Madrid");
  EXPECT_EQ(partsOf(localTime(1110182700)), (DateParts{2005, 3, 7, 9, 5, 0}));
  EXPECT_EQ(partsOf(localTime(1121068800)), (DateParts{2005, 7, 11, 10, 0, 0}));
}

TEST(LocalTime, changes_the_day_with_the_zone) {
  const std::time_t lateEvening = 1110236400;  // 2005-03-07 23:00:00 UTC
  const TimeZone madrid("Europe/Madrid");
  EXPECT_EQ(partsOf(localTime(lateEvening)), (DateParts{2005, 3, 8, 0, 0, 0}));
  const TimeZone utc("UTC");
  EXPECT_EQ(partsOf(localTime(lateEvening)), (DateParts{2005, 3, 7, 23, 0, 0}));
}

TEST(LocalTime, reaches_before_the_count_begins) {
  const TimeZone utc("UTC");
  EXPECT_EQ(partsOf(localTime(-1)), (DateParts{1969, 12, 31, 23, 59, 59}));
}

TEST(SystemClock, tells_the_present_in_whole_seconds) {
  SystemClock clock;
  const Date before = localTime(std::time(nullptr)), now = clock.now(), after = localTime(std::time(nullptr));
  EXPECT_LE(before.days, now.days);
  EXPECT_LE(now.days, after.days);
  EXPECT_EQ(dateFrom(partsOf(now)), now);
}

}  // namespace
}  // namespace ovalia::system
