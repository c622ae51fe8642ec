#include "engines/sqlite/SqliteFailures.h"

#include <array>

namespace ovalia::engines::sqlite {
namespace {

struct CodeFact {
  int code;
  std::int32_t number;
};

// Extended codes first: the first row that fits decides.
constexpr std::array codes{
    CodeFact{SQLITE_CONSTRAINT_PRIMARYKEY, dao::failure::duplicateKey},
    CodeFact{SQLITE_CONSTRAINT_UNIQUE, dao::failure::duplicateKey},
    CodeFact{SQLITE_CONSTRAINT_ROWID, dao::failure::duplicateKey},
    CodeFact{SQLITE_CONSTRAINT_NOTNULL, dao::failure::required},
    CodeFact{SQLITE_CONSTRAINT_DATATYPE, dao::failure::conversion},
    CodeFact{SQLITE_CONSTRAINT, failure::validationRule},
    CodeFact{SQLITE_MISMATCH, dao::failure::conversion},
    CodeFact{SQLITE_BUSY, dao::failure::locked},
    CodeFact{SQLITE_LOCKED, dao::failure::locked},
    CodeFact{SQLITE_PROTOCOL, dao::failure::locked},
    CodeFact{SQLITE_SCHEMA, dao::failure::locked},
    CodeFact{SQLITE_READONLY, dao::failure::readOnly},
    CodeFact{SQLITE_CORRUPT, dao::failure::damaged},
    CodeFact{SQLITE_NOTADB, dao::failure::damaged},
    CodeFact{SQLITE_CANTOPEN, dao::failure::cannotOpen},
    CodeFact{SQLITE_PERM, dao::failure::cannotOpen},
    CodeFact{SQLITE_AUTH, dao::failure::cannotOpen},
    CodeFact{SQLITE_TOOBIG, dao::failure::tooLong},
    CodeFact{SQLITE_NOMEM, ovalia::failure::outOfMemory},
    CodeFact{SQLITE_IOERR_NOMEM, ovalia::failure::outOfMemory},
    CodeFact{SQLITE_FULL, ovalia::failure::diskFull},
    CodeFact{SQLITE_IOERR, ovalia::failure::pathFileAccess},
};

struct WordsFact {
  std::string_view words;
  std::int32_t number;
};

// The general error says what it is in words only.
constexpr std::array wordings{
    WordsFact{"no such column", dao::failure::unknownColumn},
    WordsFact{"has no column named", dao::failure::unknownColumn},
    WordsFact{"no such table", dao::failure::unknownTable},
    WordsFact{"no such view", dao::failure::unknownTable},
    WordsFact{"no transaction is active", dao::failure::commitWithoutBegin},
};

std::int32_t numberOf(int code, std::string_view words, StatementKind kind) {
  if (code == SQLITE_CONSTRAINT_FOREIGNKEY)
    return kind == StatementKind::Delete ? dao::failure::referenced : dao::failure::missingRelated;
  for (const CodeFact& row : codes)
    if (row.code == code || row.code == (code & 0xFF)) return row.number;
  for (const WordsFact& row : wordings)
    if (words.find(row.words) != std::string_view::npos) return row.number;
  return syntaxFailure(kind);
}

}  // namespace

void fail(int code, std::string_view words, StatementKind kind) {
  throw databaseFailure(numberOf(code, words, kind), fromUtf8(words));
}

void fail(sqlite3* connection, int code, StatementKind kind) { fail(code, sqlite3_errmsg(connection), kind); }

}  // namespace ovalia::engines::sqlite
