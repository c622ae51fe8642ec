#pragma once

#include "instance/Instance.h"

namespace ovalia {

// The user's data folder as the host set it, "\"-separated, without a separator at the end.
Text dataFolder(const Instance& nota);

// Whether a name can be that of a file in a folder of the tree: it is not empty, has no separator of any
// system and no zero character, and is neither "." nor "..". Whatever stands in a table, another name is
// never looked for on disk, much less read, replaced or deleted.
bool isStoredName(TextView name);

// Full path of a stored file: data folder, "\", `folder` with its final "\", name. Every path that is made
// with a name out of a table comes from here, so that none leads out of the data folder. Failure 76 for a
// name that is none and for an empty folder, which is what a folder that could not be made is given as.
Text storedPath(const Instance& nota, TextView folder, TextView name);

// The same in a folder that is given in full, with its final "\\".
Text storedPathIn(TextView fullFolder, TextView name);

// storedPath with a second separator before the name, as files are copied by. Both reach one file.
Text storedPathForCopy(const Instance& nota, TextView folder, TextView name);

// What the disk calls the plain file of that name in that folder; "" when there is none, which holds for
// every name that is none and for an empty folder.
Text storedFile(const Instance& nota, TextView folder, TextView name);

// The same in a folder that is given in full.
Text storedFileIn(TextView fullFolder, TextView name);

// Whether that file is there under exactly that name: one whose spelling differs in case counts as missing.
bool isStored(const Instance& nota, TextView folder, TextView name);

}  // namespace ovalia
