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

std::string shapeOf(const std::string& statement) {
  const std::string verb = statement.substr(0, statement.find(' '));
  const std::string before = verb == "SELECT" || verb == "DELETE" ? " FROM "
                             : verb == "INSERT"                   ? " INTO "
                                                                  : " ";
  const std::size_t from = statement.find_first_not_of('(', statement.find(before) + before.size());
  return verb + " " + statement.substr(from, statement.find(' ', from) - from);
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

Shapes StatementTrace::asked() {
  Shapes shapes;
  for (const std::string& statement : taken()) shapes.push_back(shapeOf(statement));
  return shapes;
}

Shapes StatementTrace::askedForRows() {
  Shapes shapes = asked();
  std::erase(shapes, "PRAGMA schema_version");
  return shapes;
}

}  // namespace ovalia::host
