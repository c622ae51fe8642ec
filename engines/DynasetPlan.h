#pragma once

#include "engines/KeyQuery.h"
#include "engines/PlanShelf.h"
#include "engines/RecordFields.h"

namespace ovalia::engines {

// A dynaset's statements made ready. One dynaset uses it at a time; the next of the same text takes it over.
struct DynasetPlan {
  KeyQuery query;
  FieldInfos fields;
  std::vector<ResultColumn> columns;  // of a row, as they were when it was made
  std::unique_ptr<Statement> keys, row;
  PlanAge age;

  // Failures: 3061, 3075, 3078, 3260.
  static std::unique_ptr<DynasetPlan> make(KeyQuery query, Driver& driver, Catalog& catalog);
};

}  // namespace ovalia::engines
