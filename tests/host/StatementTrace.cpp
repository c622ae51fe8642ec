#include "tests/host/StatementTrace.h"

#include <sqlite3.h>

#include <utility>

namespace ovalia::host {

namespace {

std::vector<std::string> statements;

int note(unsigned, void*, void*, void* sql) {
  statements.emplace_back(static_cast<const char*>(sql));
  return 0;
}

int watch(sqlite3* connection, char**, const void*) {
  return sqlite3_trace_v2(connection, SQLITE_TRACE_STMT, note, nullptr);
}

// The engine calls it for each connection that is opened, with the arguments that `watch` takes.
const auto extension = reinterpret_cast<void (*)()>(watch);

}  // namespace

StatementTrace::StatementTrace() {
  statements.clear();
  sqlite3_auto_extension(extension);
}

StatementTrace::~StatementTrace() { sqlite3_cancel_auto_extension(extension); }

std::vector<std::string> StatementTrace::taken() { return std::exchange(statements, {}); }

}  // namespace ovalia::host
