#pragma once

#include <optional>

#include "platform/Text.h"
#include "platform/Variant.h"

namespace ovalia::desktop {

// Conditions on one field, as `FindFirst` of a list takes them. `field` is the name under which the list has
// the field. Each is "" when there is nothing to look for.

// The field holds the text, or is the text and no more (`wholeField`). Case does not count. Every character
// stands for itself, * ? # [ too. With `anyAccents` a vowel or a c matches with and without any mark; n and
// ñ stay two letters.
Text textCriterion(TextView field, TextView wanted, bool wholeField, bool anyAccents);

// The field lies between the two days, both whole; without one of them the range is open at that end. Days in
// the wrong order are put right.
Text dateCriterion(TextView field, std::optional<Date> from, std::optional<Date> to);

}  // namespace ovalia::desktop
