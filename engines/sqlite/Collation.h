#pragma once

#include <sqlite3.h>

namespace ovalia::engines::sqlite {

// Makes the Spanish collation known to a connection.
void addCollation(sqlite3* connection);

}  // namespace ovalia::engines::sqlite
