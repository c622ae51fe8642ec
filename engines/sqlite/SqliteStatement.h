#pragma once

#include <sqlite3.h>

#include "engines/Driver.h"

namespace ovalia::engines::sqlite {

class SqliteStatement : public Statement {
 public:
  SqliteStatement(sqlite3* connection, std::string_view sql, StatementKind kind);
  ~SqliteStatement() override;
  SqliteStatement(const SqliteStatement&) = delete;
  SqliteStatement& operator=(const SqliteStatement&) = delete;

  std::vector<ResultColumn> columns() const override;
  std::uint64_t columnsVersion() const override;
  void bind(std::span<const Stored> values) override;
  bool readFirst(Rows& into) override;
  void readAll(Rows& into) override;
  bool readUpTo(Rows& into, std::size_t rows) override;
  void readKeys(KeySet& into) override;
  std::int64_t run() override;

  // Goes on where it left off and stays there; reset ends it.
  bool readOn(Rows& into, std::size_t rows);
  void reset() { sqlite3_reset(statement_); }

 private:
  void append(Rows& into, int columns);

  sqlite3* connection_;
  sqlite3_stmt* statement_ = nullptr;
  StatementKind kind_;
};

}  // namespace ovalia::engines::sqlite
