#include "tests/kit/FakeDatabase.h"

#include <gtest/gtest.h>

#include "tests/kit/FakeRecordset.h"

namespace ovalia::kit {
namespace {

class FakeTableDef : public dao::TableDef {
 public:
  FakeTableDef(Text name, FakeTableRef table, std::shared_ptr<dao::Database> database)
      : name_(std::move(name)), fields_(definitionFields(std::move(table), std::move(database))) {}

  Text Name() const override { return name_; }
  dao::Fields& Fields() override { return *fields_; }

 private:
  Text name_;
  std::unique_ptr<dao::Fields> fields_;
};

FakeTableRef made(std::vector<FakeColumn> columns, std::vector<std::vector<Variant>> rows) {
  auto table = std::make_shared<FakeTable>();
  table->columns = std::move(columns);
  for (auto& row : rows) table->add(std::move(row));
  return table;
}

}  // namespace

FakeTableRef FakeDatabase::table(Text name, std::vector<FakeColumn> columns,
                                 std::vector<std::vector<Variant>> rows) {
  for (FakeColumn& column : columns) column.sourceTable = name;
  return tables_[std::move(name)] = made(std::move(columns), std::move(rows));
}

FakeTableRef FakeDatabase::answers(Text sql, std::vector<FakeColumn> columns,
                                   std::vector<std::vector<Variant>> rows) {
  return answers_[std::move(sql)] = made(std::move(columns), std::move(rows));
}

dao::RecordsetRef FakeDatabase::OpenRecordset(TextView sql, dao::RecordsetType) {
  opened.emplace_back(sql);
  faults_.visit("Database.OpenRecordset");
  FakeTableRef rows;
  if (const auto answer = answers_.find(Text(sql)); answer != answers_.end()) rows = answer->second;
  if (const auto table = tables_.find(sql); table != tables_.end()) rows = table->second;
  if (!rows) rows = otherwise(sql);
  if (!rows) {
    ADD_FAILURE() << "statement not announced: " << toUtf8(sql);
    throw Failure(dao::failure::unknownTable);
  }
  return std::make_shared<FakeRecordset>(rows, shared_from_this(), faults_);
}

FakeTableRef FakeDatabase::tableNamed(TextView name) const {
  const auto found = tables_.find(name);
  return found == tables_.end() ? nullptr : found->second;
}

void FakeDatabase::Execute(TextView sql) {
  executed.emplace_back(sql);
  faults_.visit("Database.Execute");
  affected_ = onExecute(sql);
}

std::shared_ptr<dao::TableDef> FakeDatabase::TableDefs(TextView name) {
  faults_.visit("Database.TableDefs");
  const auto found = tables_.find(name);
  if (found == tables_.end()) throw Failure(dao::failure::notInCollection);
  return std::make_shared<FakeTableDef>(found->first, found->second, shared_from_this());
}

std::vector<Text> FakeDatabase::tableNames() {
  std::vector<Text> names;
  for (const auto& [name, table] : tables_) names.push_back(name);
  return names;
}

}  // namespace ovalia::kit
