#pragma once

#include <sqlite3.h>

namespace ovalia::engines::sqlite {

// Makes `like` with Jet patterns and the Jet functions that SQLite has no match for known to a connection.
void addFunctions(sqlite3* connection);

}  // namespace ovalia::engines::sqlite
