#include "engines/PlanShelf.h"

#include "platform/Platform.h"

namespace ovalia::engines {

PlanAge PlanAge::now(Catalog& catalog) { return {catalog.generation(), regionalNow().thisYear}; }

}  // namespace ovalia::engines
