#include "engines/SnapshotPlan.h"

#include "engines/KeyQuery.h"
#include "engines/ResultFields.h"

namespace ovalia::engines {
namespace {

FieldInfos fieldsOf(const SnapshotPlan& plan, Catalog& catalog) {
  auto fields = resultFields(plan.statement->columns(), plan.shape ? &*plan.shape : nullptr, catalog);
  if (fields.empty()) throw databaseFailure(dao::failure::syntax, plan.sql);
  return std::make_shared<const std::vector<FieldInfo>>(std::move(fields));
}

}  // namespace

std::unique_ptr<SnapshotPlan> SnapshotPlan::make(const Translation& translation, Driver& driver,
                                                 Catalog& catalog) {
  auto plan = std::make_unique<SnapshotPlan>();
  plan->age = PlanAge::now(catalog);
  plan->sql = inKeyOrder(translation, driver.facts());
  plan->shape = translation.select;
  plan->statement = driver.prepare(plan->sql, StatementKind::Select);
  plan->fields = fieldsOf(*plan, catalog);
  return plan;
}

void SnapshotPlan::followColumns(Catalog& catalog) {
  if (statement->columnsVersion() == columnsVersion) return;
  columnsVersion = statement->columnsVersion();
  fields = fieldsOf(*this, catalog);
}

}  // namespace ovalia::engines
