#pragma once

#include <sqlite3.h>

#include "engines/Failures.h"

namespace ovalia::engines::sqlite {

// Throws the model's failure for what the connection last reported, with the engine's own words as its
// detail. `code` is the extended result code.
[[noreturn]] void fail(sqlite3* connection, int code, StatementKind kind);

// The same for a text that the engine gave, where there is no connection to ask.
[[noreturn]] void fail(int code, std::string_view words, StatementKind kind);

}  // namespace ovalia::engines::sqlite
