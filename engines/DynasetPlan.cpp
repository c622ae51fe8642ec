#include "engines/DynasetPlan.h"

#include <algorithm>

#include "engines/Names.h"
#include "engines/ResultFields.h"
#include "platform/Platform.h"

namespace ovalia::engines {

std::unique_ptr<DynasetPlan> DynasetPlan::make(KeyQuery query, Driver& driver, Catalog& catalog) {
  auto plan = std::make_unique<DynasetPlan>();
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
  plan->definitions = catalog.generation();
  plan->year = regionalNow().thisYear;
  return plan;
}

bool DynasetPlan::stillGood(Catalog& catalog) const {
  return definitions == catalog.generation() && year == regionalNow().thisYear;
}

void PlanShelf::put(Text sql, std::unique_ptr<DynasetPlan> plan) {
  if (plans_.size() == capacity) plans_.erase(plans_.begin());
  plans_.push_back({std::move(sql), std::move(plan)});
}

std::unique_ptr<DynasetPlan> PlanShelf::take(TextView sql, Catalog& catalog) {
  const auto found =
      std::find_if(plans_.rbegin(), plans_.rend(), [&](const Entry& entry) { return entry.sql == sql; });
  if (found == plans_.rend()) return nullptr;
  std::unique_ptr<DynasetPlan> plan = std::move(found->plan);
  plans_.erase(std::next(found).base());
  return plan->stillGood(catalog) ? std::move(plan) : nullptr;
}

}  // namespace ovalia::engines
