#include "bench/Bare.h"

#include <benchmark/benchmark.h>

#include <stdexcept>

namespace ovalia::bench {

BareConnection::BareConnection(const std::string& file) {
  const int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_NOMUTEX;
  if (sqlite3_open_v2(file.c_str(), &connection_, flags, nullptr) != SQLITE_OK)
    throw std::runtime_error("cannot open " + file);
  run("PRAGMA synchronous = FULL; PRAGMA foreign_keys = ON");
}

BareConnection::~BareConnection() { sqlite3_close(connection_); }

BareStatement BareConnection::prepare(const std::string& sql) const {
  sqlite3_stmt* statement = nullptr;
  if (sqlite3_prepare_v3(connection_, sql.c_str(), -1, SQLITE_PREPARE_PERSISTENT, &statement, nullptr) !=
      SQLITE_OK)
    throw std::runtime_error(sqlite3_errmsg(connection_));
  return BareStatement(statement);
}

void BareConnection::run(const char* sql) const {
  if (sqlite3_exec(connection_, sql, nullptr, nullptr, nullptr) != SQLITE_OK)
    throw std::runtime_error(sqlite3_errmsg(connection_));
}

namespace {

std::int64_t sumOf(sqlite3_stmt* row) {
  std::int64_t sum = 0;
  for (int i = 0; i < sqlite3_column_count(row); ++i) switch (sqlite3_column_type(row, i)) {
      case SQLITE_INTEGER:
        sum += sqlite3_column_int64(row, i);
        break;
      case SQLITE_FLOAT:
        sum += static_cast<std::int64_t>(sqlite3_column_double(row, i));
        break;
      case SQLITE_TEXT: {
        benchmark::DoNotOptimize(sqlite3_column_text16(row, i));
        sum += sqlite3_column_bytes16(row, i);
        break;
      }
      default:
        break;
    }
  return sum;
}

}  // namespace

std::int64_t readRow(sqlite3_stmt* row, std::int32_t key) {
  sqlite3_bind_int(row, 1, key);
  const std::int64_t sum = sqlite3_step(row) == SQLITE_ROW ? sumOf(row) : 0;
  sqlite3_reset(row);
  return sum;
}

std::int64_t readRows(sqlite3_stmt* rows, std::int32_t number) {
  sqlite3_bind_int(rows, 1, number);
  std::int64_t sum = 0;
  while (sqlite3_step(rows) == SQLITE_ROW) sum += sumOf(rows);
  sqlite3_reset(rows);
  return sum;
}

std::vector<std::int32_t> readKeys(sqlite3_stmt* keys) {
  std::vector<std::int32_t> all;
  while (sqlite3_step(keys) == SQLITE_ROW) all.push_back(sqlite3_column_int(keys, 0));
  sqlite3_reset(keys);
  return all;
}

}  // namespace ovalia::bench
