#pragma once

#include "platform/dao.h"

namespace ovalia::engines {

struct OpenOptions {
  bool create = false;    // makes the file where there is none
  bool readOnly = false;  // every write fails with 3027
  int busyMilliseconds =
      5000;  // how long a statement waits for another user's lock before it fails with 3260
};

// A connection to a database: a SQLite file by its path in the system's form, or a server by its address.
// Failures: 3024 no such file or not allowed, 3260 held by another program, 3343 damaged or no database.
// The connection belongs to the thread that opened it.
dao::DatabaseRef open(TextView fileOrAddress, const OpenOptions& options = {});

}  // namespace ovalia::engines
