#pragma once

#include <optional>

#include "instance/Instance.h"

namespace ovalia {

// The last four characters of a name or a path, where an extension stands; all of a shorter one.
Text lastFour(TextView name);

// Whether a text is a point and three more.
bool isExtension(TextView text);

// The extension that a file is stored with: `ext` itself where it is a point and three more, else ".doc".
Text storedExtension(TextView ext);

// The name of the `number`th file of a parent: "4073F07.doc"; at least two digits.
Text storedName(std::int32_t parent, std::int16_t number, TextView ext);

// The number in a stored name, between its first "F" (upper case) and its first point, 0 where no number
// stands there; nothing for a name without "F". Failures: 5 without a point behind the "F", 6 above 32767.
std::optional<std::int16_t> storedNumber(TextView name);

// A name for the next file of a parent, which no plain file bears in its folder. It counts on from the
// highest number among the rows of `DocuAsoc`, whatever annotation they belong to; a folder that is missing
// is made. `ext` becomes the one used. A failure is reported and gives "", which storedPath refuses. The file
// of that name does not exist when this returns, but may when it is copied: another user can be quicker.
Text CreaNombreDoc(const Instance& nota, std::int32_t IdBase, Text& ext);

}  // namespace ovalia
