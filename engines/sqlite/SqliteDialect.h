#pragma once

#include "engines/DialectFacts.h"

namespace ovalia::engines::sqlite {

// The collation that every connection knows: Spanish order, without case, with accents.
inline constexpr const char* collationName = "es";

extern const DialectFacts dialect;

}  // namespace ovalia::engines::sqlite
