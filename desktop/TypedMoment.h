#pragma once

#include <optional>

#include "platform/Regional.h"
#include "platform/Text.h"

namespace ovalia::desktop {

// The day that someone means by what they typed: "5/3/25", "05-03-2025", "050325", without a year in today's,
// a day alone in today's month. Nothing when it names no day.
std::optional<Date> typedDay(TextView text, Date today, const Regional& regional);

// The time of day, on day zero: "9", "9:30", "0930", "09:30:15".
std::optional<Date> typedTime(TextView text);

// Whether the text is a whole day or time as it stands and cannot be the beginning of another, so that it
// need not wait until the user goes on. A year that reads "19" or "20" may still become one of four digits.
bool wholeDay(TextView text);
bool wholeTime(TextView text);

}  // namespace ovalia::desktop
