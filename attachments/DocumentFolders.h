#pragma once

#include "instance/Instance.h"

namespace ovalia {

// The folder of a parent's number below the user's data folder, from its decimal text: a level for each
// character but the last, "Doc" and that character, then "Doc0\". "4073" gives "Doc4\Doc0\Doc7\Doc0\", a
// negative number's sign is a level of its own. Ten parents share a folder. Failure 28 for an empty text.
Text numberedFolder(TextView digits);

// The same with a trap: "" after a failure.
Text QuePath(TextView Id);

// The folder of a parent's number, with its final "\", made where it is missing: first the data folder, whose
// own folder must be there, then level by level. A failure is reported and gives "", which storedPath
// refuses.
Text CreaPathDoc(const Instance& nota, std::int32_t Id);

}  // namespace ovalia
