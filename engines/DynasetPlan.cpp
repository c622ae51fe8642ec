#include "engines/DynasetPlan.h"

#include "engines/Names.h"
#include "engines/ResultFields.h"

namespace ovalia::engines {

std::unique_ptr<DynasetPlan> DynasetPlan::make(KeyQuery query, Driver& driver, Catalog& catalog) {
  auto plan = std::make_unique<DynasetPlan>();
  plan->age = PlanAge::now(catalog);
  plan->row = driver.prepare(query.rowSql, StatementKind::Select);
  plan->keys = driver.prepare(query.keysSql, StatementKind::Select);
  plan->columns = plan->row->columns();
  std::vector<FieldInfo> fields = resultFields(plan->columns, &query.shape, catalog);
  const bool known = fields.size() == query.shape.outputs.size();
  for (std::size_t i = 0; i < fields.size(); ++i) {
    FieldInfo& field = fields[i];
    const bool ofBase = !known || query.shape.outputs[i].table.value_or(query.base) == query.base;
    field.updatable = ofBase && !field.autoIncrement && !field.column.empty() &&
                      sameColumn(field.table, query.baseTable().name);
  }
  plan->fields = std::make_shared<const std::vector<FieldInfo>>(std::move(fields));
  plan->query = std::move(query);
  return plan;
}

}  // namespace ovalia::engines
