#pragma once

#include <functional>
#include <map>
#include <memory>
#include <vector>

#include "platform/dao.h"
#include "tests/kit/FakeTable.h"
#include "tests/kit/FaultPanel.h"

namespace ovalia::kit {

// A database without an engine, for tests of logic: statements are answered from a list, word for word.
// Opening a statement that nobody announced fails the test and is failure 3078. Faults:
// "Database.OpenRecordset", "Database.Execute", "Database.TableDefs", and those of FakeRecordset.
class FakeDatabase : public dao::Database, public std::enable_shared_from_this<FakeDatabase> {
 public:
  explicit FakeDatabase(FaultPanel& faults) : faults_(faults) {}

  // A table: known to TableDefs, and opened by its name. Its columns take it as their source table.
  FakeTableRef table(Text name, std::vector<FakeColumn> columns, std::vector<std::vector<Variant>> rows = {});

  // What a SELECT gives, at every opening as the rows then are.
  FakeTableRef answers(Text sql, std::vector<FakeColumn> columns,
                       std::vector<std::vector<Variant>> rows = {});

  // The table of that name as it stands; an empty reference where there is none.
  FakeTableRef tableNamed(TextView name) const;

  // Asked for a SELECT that is on no list; an empty reference: nobody announced it.
  std::function<FakeTableRef(TextView sql)> otherwise = [](TextView) { return FakeTableRef(); };

  std::vector<Text> opened;    // statements of OpenRecordset, in order
  std::vector<Text> executed;  // statements of Execute, in order

  // What an Execute does, and how many rows it counts; one by default.
  std::function<std::int32_t(TextView sql)> onExecute = [](TextView) { return 1; };

  dao::RecordsetRef OpenRecordset(TextView sql, dao::RecordsetType type = dao::dbOpenDynaset) override;
  void Execute(TextView sql) override;
  std::int32_t RecordsAffected() const override { return affected_; }
  std::shared_ptr<dao::TableDef> TableDefs(TextView name) override;
  std::vector<Text> tableNames() override;
  Text Name() const override { return u"\\datos\\agencia.mdb"; }
  void Close() override {}

 private:
  FaultPanel& faults_;
  std::int32_t affected_ = 0;
  std::map<Text, FakeTableRef, NameLess> tables_;
  std::map<Text, FakeTableRef> answers_;
};

}  // namespace ovalia::kit
