#include "engines/TableDefinition.h"

namespace ovalia::engines {
namespace {

FieldInfos fieldsOf(const TableInfo& table) {
  std::vector<FieldInfo> infos;
  for (const ColumnInfo& column : table.columns)
    infos.push_back({column.name, table.name, column.name, column.type, column.autoIncrement, false});
  return std::make_shared<const std::vector<FieldInfo>>(std::move(infos));
}

}  // namespace

TableDefinition::TableDefinition(std::shared_ptr<Database> database, const TableInfo& table)
    : database_(std::move(database)), name_(table.name), fields_(*this, fieldsOf(table)) {}

}  // namespace ovalia::engines
