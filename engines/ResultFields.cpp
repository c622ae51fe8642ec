#include "engines/ResultFields.h"

#include "engines/Names.h"

namespace ovalia::engines {

std::vector<FieldInfo> resultFields(const std::vector<ResultColumn>& columns, const SelectShape* shape,
                                    Catalog& catalog) {
  const bool matches = shape && shape->outputs.size() == columns.size();
  std::vector<FieldInfo> all;
  for (std::size_t i = 0; i < columns.size(); ++i) {
    const ResultColumn& column = columns[i];
    FieldInfo info{column.name, column.table, column.column, std::nullopt, false, false};
    if (matches && !shape->outputs[i].name.empty()) info.name = shape->outputs[i].name;
    if (const auto table = column.table.empty() ? nullptr : catalog.table(column.table)) {
      for (const ColumnInfo& known : table->columns) {
        if (!sameColumn(known.name, column.column)) continue;
        info.type = known.type;
        info.autoIncrement = known.autoIncrement;
        break;
      }
    } else if (matches && shape->outputs[i].type) {
      info.type = ColumnType{*shape->outputs[i].type, 0};
    }
    all.push_back(std::move(info));
  }
  return all;
}

}  // namespace ovalia::engines
