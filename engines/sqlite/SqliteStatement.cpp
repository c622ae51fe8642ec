#include "engines/sqlite/SqliteStatement.h"

#include <algorithm>

#include "engines/sqlite/SqliteFailures.h"
#include "engines/sqlite/SqliteText.h"

namespace ovalia::engines::sqlite {
namespace {

Text textOrNothing(const char* name) { return name ? wide(name) : Text(); }

// Lets go of the database when a run ends, however it ends.
class Run {
 public:
  Run(sqlite3* connection, sqlite3_stmt* statement, StatementKind kind)
      : connection_(connection), statement_(statement), kind_(kind) {}
  ~Run() { sqlite3_reset(statement_); }
  Run(const Run&) = delete;
  Run& operator=(const Run&) = delete;

  bool row() {
    const int code = sqlite3_step(statement_);
    if (code == SQLITE_ROW) return true;
    if (code != SQLITE_DONE) fail(connection_, sqlite3_extended_errcode(connection_), kind_);
    return false;
  }

 private:
  sqlite3* connection_;
  sqlite3_stmt* statement_;
  StatementKind kind_;
};

}  // namespace

SqliteStatement::SqliteStatement(sqlite3* connection, std::string_view sql, StatementKind kind)
    : connection_(connection), kind_(kind) {
  const char* tail = nullptr;
  const int code = sqlite3_prepare_v3(connection, sql.data(), static_cast<int>(sql.size()),
                                      SQLITE_PREPARE_PERSISTENT, &statement_, &tail);
  if (code != SQLITE_OK) fail(connection, sqlite3_extended_errcode(connection), kind);
  if (!statement_) throw databaseFailure(syntaxFailure(kind));
  if (wide({tail, static_cast<std::size_t>(sql.data() + sql.size() - tail)}).find_first_not_of(u" \t\r\n;") !=
      Text::npos) {
    sqlite3_finalize(statement_);
    throw databaseFailure(syntaxFailure(kind), wide(tail));
  }
}

SqliteStatement::~SqliteStatement() { sqlite3_finalize(statement_); }

std::vector<ResultColumn> SqliteStatement::columns() const {
  std::vector<ResultColumn> all(static_cast<std::size_t>(sqlite3_column_count(statement_)));
  for (std::size_t i = 0; i < all.size(); ++i) {
    const int column = static_cast<int>(i);
    all[i].name = textOrNothing(sqlite3_column_name(statement_, column));
    all[i].table = textOrNothing(sqlite3_column_table_name(statement_, column));
    all[i].column = textOrNothing(sqlite3_column_origin_name(statement_, column));
  }
  return all;
}

// It is prepared anew when it meets another schema.
std::uint64_t SqliteStatement::columnsVersion() const {
  return static_cast<std::uint64_t>(sqlite3_stmt_status(statement_, SQLITE_STMTSTATUS_REPREPARE, 0));
}

void SqliteStatement::bind(std::span<const Stored> values) {
  struct Binder {
    sqlite3_stmt* statement;
    int position;
    int operator()(std::monostate) const { return sqlite3_bind_null(statement, position); }
    int operator()(std::int64_t value) const { return sqlite3_bind_int64(statement, position, value); }
    int operator()(double value) const { return sqlite3_bind_double(statement, position, value); }
    int operator()(const std::string& value) const {
      return sqlite3_bind_text64(statement, position, value.data(), value.size(), SQLITE_TRANSIENT,
                                 SQLITE_UTF8);
    }
  };
  const auto used = static_cast<std::size_t>(sqlite3_bind_parameter_count(statement_));
  for (std::size_t i = 0; i < std::min(used, values.size()); ++i) {
    const int code = std::visit(Binder{statement_, static_cast<int>(i) + 1}, values[i]);
    if (code != SQLITE_OK) fail(connection_, code, kind_);
  }
}

void SqliteStatement::append(Rows& into, int columns) {
  for (int i = 0; i < columns; ++i) {
    sqlite3_value* const value = sqlite3_column_value(statement_, i);
    switch (sqlite3_value_type(value)) {
      case SQLITE_NULL:
        into.addNull();
        break;
      case SQLITE_INTEGER:
        into.addInteger(sqlite3_value_int64(value));
        break;
      case SQLITE_FLOAT:
        into.addReal(sqlite3_value_double(value));
        break;
      default:
        into.addText(textOf(value));
    }
  }
}

bool SqliteStatement::readFirst(Rows& into) {
  Run run(connection_, statement_, kind_);
  if (!run.row()) return false;
  append(into, sqlite3_column_count(statement_));
  return true;
}

void SqliteStatement::readAll(Rows& into) {
  Run run(connection_, statement_, kind_);
  const int columns = sqlite3_column_count(statement_);
  while (run.row()) append(into, columns);
}

bool SqliteStatement::readUpTo(Rows& into, std::size_t rows) {
  Run run(connection_, statement_, kind_);
  const int columns = sqlite3_column_count(statement_);
  while (rows-- > 0) {
    if (!run.row()) return false;
    append(into, columns);
  }
  return true;
}

bool SqliteStatement::readOn(Rows& into, std::size_t rows) {
  const int columns = sqlite3_column_count(statement_);
  while (rows-- > 0) {
    const int code = sqlite3_step(statement_);
    if (code == SQLITE_DONE) return false;
    if (code != SQLITE_ROW) fail(connection_, sqlite3_extended_errcode(connection_), kind_);
    append(into, columns);
  }
  return true;
}

void SqliteStatement::readKeys(KeySet& into) {
  Run run(connection_, statement_, kind_);
  const int width = static_cast<int>(into.width());
  while (run.row())
    for (int i = 0; i < width; ++i) {
      const bool missing = width > 1 && sqlite3_column_type(statement_, i) == SQLITE_NULL;
      into.push(static_cast<std::size_t>(i), missing ? KeySet::noKey : sqlite3_column_int64(statement_, i));
    }
}

std::int64_t SqliteStatement::run() {
  Run run(connection_, statement_, kind_);
  while (run.row()) {
  }
  return kind_ == StatementKind::Other ? 0 : sqlite3_changes64(connection_);
}

}  // namespace ovalia::engines::sqlite
