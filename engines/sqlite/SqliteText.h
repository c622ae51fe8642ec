#pragma once

#include <sqlite3.h>

#include <string_view>

namespace ovalia::engines::sqlite {

// A value's text in UTF-8, as it lies where it can be, without the copy that a terminated text may cost.
// Valid until the value changes.
inline std::string_view textOf(sqlite3_value* value) {
  const bool asItLies =
      sqlite3_value_type(value) == SQLITE_BLOB ||
      (sqlite3_value_type(value) == SQLITE_TEXT && sqlite3_value_encoding(value) == SQLITE_UTF8);
  const void* const bytes = asItLies ? sqlite3_value_blob(value) : sqlite3_value_text(value);
  if (!bytes) return {};
  return {static_cast<const char*>(bytes), static_cast<std::size_t>(sqlite3_value_bytes(value))};
}

}  // namespace ovalia::engines::sqlite
