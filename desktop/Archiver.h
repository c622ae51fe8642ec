#pragma once

#include "platform/Object.h"

namespace ovalia::desktop {

// The zip archiver as the outside component of that name: `ZipFileName`, `UpdatingZip` (false replaces an
// archive that is there), `AddFile(path or mask)`, `MakeZipFile` (0 done), `GetLastMessage`. A file or mask
// that names nothing adds nothing.
ObjectRef makeArchiver();

}  // namespace ovalia::desktop
