#include "engines/sqlite/Collation.h"

#include <unicode/ucol.h>

#include <cstring>

#include "engines/sqlite/SqliteDialect.h"
#include "engines/sqlite/SqliteFailures.h"

namespace ovalia::engines::sqlite {
namespace {

int compare(void* collator, int leftSize, const void* left, int rightSize, const void* right) {
  if (leftSize == rightSize && std::memcmp(left, right, static_cast<std::size_t>(leftSize)) == 0) return 0;
  UErrorCode status = U_ZERO_ERROR;
  return ucol_strcollUTF8(static_cast<UCollator*>(collator), static_cast<const char*>(left), leftSize,
                          static_cast<const char*>(right), rightSize, &status);
}

void close(void* collator) { ucol_close(static_cast<UCollator*>(collator)); }

}  // namespace

void addCollation(sqlite3* connection) {
  UErrorCode status = U_ZERO_ERROR;
  UCollator* const collator = ucol_open("es", &status);
  if (U_FAILURE(status)) throw databaseFailure(dao::failure::cannotOpen, u"ICU");
  ucol_setStrength(collator, UCOL_SECONDARY);
  const int code =
      sqlite3_create_collation_v2(connection, collationName, SQLITE_UTF8, collator, compare, close);
  if (code != SQLITE_OK) {
    close(collator);
    fail(connection, code, StatementKind::Other);
  }
}

}  // namespace ovalia::engines::sqlite
