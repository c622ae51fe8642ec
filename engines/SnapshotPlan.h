#pragma once

#include "engines/PlanShelf.h"
#include "engines/RecordFields.h"
#include "engines/Translator.h"

namespace ovalia::engines {

// A snapshot's statement made ready. It is used while the rows are read, and then by the next of the same
// text: people look the same names up again and again.
struct SnapshotPlan {
  Text sql;  // in the engine's dialect
  std::optional<SelectShape> shape;
  std::unique_ptr<Statement> statement;
  FieldInfos fields;
  std::uint64_t columnsVersion = 0;  // of the statement when the fields were made
  PlanAge age;

  // Failures: 3061, 3075, 3078, 3260.
  static std::unique_ptr<SnapshotPlan> make(const Translation& translation, Driver& driver, Catalog& catalog);

  // After a run, which may have met other tables than those that it was made for.
  void followColumns(Catalog& catalog);
};

}  // namespace ovalia::engines
