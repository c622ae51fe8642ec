#pragma once

#include <optional>

#include "platform/Text.h"
#include "platform/Variant.h"

namespace ovalia::engines {

// What stands between the marks of #3/7/05 9:05:00#: month first, whatever the regional settings say; day
// first only where the other order names no date; #2005-03-07# too; a time alone is on day zero; AM and PM. A
// two-digit year follows the century rule of the platform's clock. Nothing when it is no date.
std::optional<Date> dateFromLiteral(TextView text);

}  // namespace ovalia::engines
