#pragma once

#include <string>
#include <vector>

namespace ovalia::host {

// Every statement that the connections run which are opened while it lives, in their order; what a trigger
// runs counts too. One at a time.
class StatementTrace {
 public:
  StatementTrace();
  ~StatementTrace();
  StatementTrace(const StatementTrace&) = delete;
  StatementTrace& operator=(const StatementTrace&) = delete;

  std::vector<std::string> taken();  // since it began or was last asked
};

}  // namespace ovalia::host
