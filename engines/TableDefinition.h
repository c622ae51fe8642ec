#pragma once

#include "engines/Database.h"
#include "engines/RecordFields.h"

namespace ovalia::engines {

// A table's definition: its fields have names and types, and no value.
class TableDefinition : public dao::TableDef,
                        public std::enable_shared_from_this<TableDefinition>,
                        public FieldOwner {
 public:
  TableDefinition(std::shared_ptr<Database> database, const TableInfo& table);

  Text Name() const override { return name_; }
  dao::Fields& Fields() override { return fields_; }

 private:
  Variant fieldValue(std::size_t) override { throw databaseFailure(dao::failure::noCurrentRecord); }
  void setFieldValue(std::size_t, const Variant&) override {
    throw databaseFailure(dao::failure::updateWithoutEdit);
  }
  std::shared_ptr<dao::Database> fieldDatabase() const override { return database_; }
  void checkOpen() const override {}
  std::shared_ptr<void> keepAlive() override { return shared_from_this(); }

  std::shared_ptr<Database> database_;
  Text name_;
  RecordFields fields_;
};

}  // namespace ovalia::engines
