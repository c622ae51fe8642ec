#include "engines/Database.h"

#include <algorithm>
#include <array>

#include "engines/Dynaset.h"
#include "engines/Snapshot.h"
#include "engines/TableDefinition.h"

namespace ovalia::engines {
namespace {

// What a constraint answers to a row. Through Execute these are a count of none.
constexpr std::array refusals{dao::failure::duplicateKey,   dao::failure::referenced,
                              dao::failure::missingRelated, dao::failure::required,
                              dao::failure::zeroLength,     dao::failure::tooLong,
                              failure::validationRule};

}  // namespace

Database::Database(std::unique_ptr<Driver> driver) : driver_(std::move(driver)), name_(driver_->name()) {
  catalog_.emplace(*driver_);
}

Driver& Database::driver() const {
  if (!driver_) throw databaseFailure(ovalia::failure::objectNotSet);
  return *driver_;
}

Catalog& Database::catalog() {
  driver();
  return *catalog_;
}

Translation Database::translated(TextView sql) { return translate(sql, catalog(), driver().facts()); }

dao::RecordsetRef Database::OpenRecordset(TextView source, dao::RecordsetType type) {
  const Text sql = selectFrom(source);
  if (type == dao::dbOpenDynaset) {
    if (auto plan = dynasetPlans_.take(sql, catalog()))
      return std::make_shared<Dynaset>(shared_from_this(), sql, std::move(plan));
  } else if (auto plan = snapshotPlans_.take(sql, catalog())) {
    return std::make_shared<Snapshot>(shared_from_this(), sql, std::move(plan));
  }
  const Translation translation = translated(sql);
  if (translation.kind != StatementKind::Select && translation.kind != StatementKind::Other)
    throw databaseFailure(dao::failure::syntax, sql);
  if (type == dao::dbOpenDynaset && translation.select)
    if (auto query = KeyQuery::of(*translation.select, driver().facts()))
      return std::make_shared<Dynaset>(shared_from_this(), sql,
                                       DynasetPlan::make(std::move(*query), driver(), catalog()));
  return std::make_shared<Snapshot>(shared_from_this(), sql,
                                    SnapshotPlan::make(translation, driver(), catalog()));
}

void Database::Execute(TextView sql) {
  const Translation translation = translated(sql);
  if (translation.kind == StatementKind::Select) throw databaseFailure(failure::selectInExecute);
  const auto statement = driver().prepare(translation.sql, translation.kind);
  std::int64_t count = 0;
  try {
    if (!translation.refusedForLength) count = statement->run();
  } catch (const Failure& failure) {
    if (std::find(refusals.begin(), refusals.end(), failure.number()) == refusals.end()) throw;
  }
  affected_ = static_cast<std::int32_t>(count);
  if (translation.kind != StatementKind::Other) return;
  driver_->settingsChanged();
  catalog_->forget();
}

std::shared_ptr<dao::TableDef> Database::TableDefs(TextView name) {
  const auto table = catalog().table(name);
  if (!table) throw databaseFailure(dao::failure::notInCollection, name);
  return std::make_shared<TableDefinition>(shared_from_this(), *table);
}

std::vector<Text> Database::tableNames() { return driver().tableNames(); }

void Database::Close() {
  driver();
  for (BaseRecordset* const set : open_) set->shut();
  dynasetPlans_.clear();
  snapshotPlans_.clear();
  catalog_.reset();
  driver_.reset();
}

}  // namespace ovalia::engines
