#include "routines/ModuleValues.h"

namespace ovalia {

ModuleValues& moduleValues() {
  thread_local ModuleValues values;
  return values;
}

}  // namespace ovalia
