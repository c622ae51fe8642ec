#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <memory>

#include "engines/Driver.h"

namespace ovalia::engines::sqlite {

// Tells whether anyone has committed to the file since it was last asked.
class ChangeWatch {
 public:
  virtual ~ChangeWatch() = default;
  virtual std::uint64_t version() = 0;
  virtual bool logged() const = 0;  // the file is in WAL mode
};

// The cheapest way there is for the connection. Where the file is in WAL mode, the commit counter in the
// log's shared index, two reads from memory: every process that writes the file raises it. Elsewhere a pragma
// that costs a short read of the file.
std::unique_ptr<ChangeWatch> watchChanges(sqlite3* connection, Driver& driver);

}  // namespace ovalia::engines::sqlite
