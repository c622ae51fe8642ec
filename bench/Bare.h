#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

// The bare interface of the engine, for the other side of a comparison.
namespace ovalia::bench {

struct Finalize {
  void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using BareStatement = std::unique_ptr<sqlite3_stmt, Finalize>;

// A connection with the settings that the engine opens its own with.
class BareConnection {
 public:
  explicit BareConnection(const std::string& file);
  ~BareConnection();
  BareConnection(const BareConnection&) = delete;
  BareConnection& operator=(const BareConnection&) = delete;

  BareStatement prepare(const std::string& sql) const;
  void run(const char* sql) const;
  sqlite3* handle() const { return connection_; }

 private:
  sqlite3* connection_ = nullptr;
};

// Reads the row of a key as a careful program would: every column by its type, texts with their length. A sum
// of all that was read, 0 when there is no such row.
std::int64_t readRow(sqlite3_stmt* row, std::int32_t key);

// The same of all rows, for a number that the statement may ask for.
std::int64_t readRows(sqlite3_stmt* rows, std::int32_t number);

// The first column of all rows.
std::vector<std::int32_t> readKeys(sqlite3_stmt* keys);

}  // namespace ovalia::bench
