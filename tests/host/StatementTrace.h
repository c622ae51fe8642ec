#pragma once

#include <string>
#include <vector>

namespace ovalia::host {

// "SELECT NotaIP", "UPDATE NotaIP", "PRAGMA schema_version": what is done to which table.
using Shapes = std::vector<std::string>;

// Every statement that the connections run which are opened while it lives, in their order; what a trigger
// runs counts too. One at a time.
class StatementTrace {
 public:
  StatementTrace();
  ~StatementTrace();
  StatementTrace(const StatementTrace&) = delete;
  StatementTrace& operator=(const StatementTrace&) = delete;

  std::vector<std::string> taken();  // since it began or was last asked

  // The same in short.
  Shapes asked();

  // Without the looks at whether a definition has changed, one at most after each write.
  Shapes askedForRows();
};

}  // namespace ovalia::host
