#pragma once

#include <set>

#include "engines/Catalog.h"
#include "engines/Driver.h"
#include "engines/DynasetPlan.h"
#include "engines/SnapshotPlan.h"
#include "engines/Translator.h"

namespace ovalia::engines {

class BaseRecordset;

// The database object model over a driver.
class Database : public dao::Database, public std::enable_shared_from_this<Database> {
 public:
  explicit Database(std::unique_ptr<Driver> driver);

  dao::RecordsetRef OpenRecordset(TextView sql, dao::RecordsetType type) override;
  void Execute(TextView sql) override;
  std::int32_t RecordsAffected() const override { return affected_; }
  std::shared_ptr<dao::TableDef> TableDefs(TextView name) override;
  std::vector<Text> tableNames() override;
  Text Name() const override { return name_; }
  void Close() override;

  // For the recordsets of this connection. Failure 91 when it is closed.
  Driver& driver() const;
  Catalog& catalog();
  Translation translated(TextView sql);

  using DynasetPlans = PlanShelf<DynasetPlan, 8>;
  using SnapshotPlans = PlanShelf<SnapshotPlan, 32>;
  DynasetPlans& dynasetPlans() { return dynasetPlans_; }
  SnapshotPlans& snapshotPlans() { return snapshotPlans_; }

  void opened(BaseRecordset& set) { open_.insert(&set); }
  void released(BaseRecordset& set) { open_.erase(&set); }

 private:
  std::unique_ptr<Driver> driver_;
  std::optional<Catalog> catalog_;
  DynasetPlans dynasetPlans_;
  SnapshotPlans snapshotPlans_;
  Text name_;
  std::int32_t affected_ = 0;
  std::set<BaseRecordset*> open_;
};

}  // namespace ovalia::engines
