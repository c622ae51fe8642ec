#include "engines/Scope.h"

#include "engines/Names.h"

namespace ovalia::engines {

std::optional<std::size_t> Scope::tableNamed(TextView qualifier) const {
  for (std::size_t i = 0; i < shape.tables.size(); ++i)
    if (sameColumn(shape.tables[i].alias, qualifier)) return i;
  return std::nullopt;
}

std::optional<ResolvedColumn> Scope::column(TextView name) const {
  std::optional<ResolvedColumn> found;
  for (std::size_t i = 0; i < shape.tables.size(); ++i) {
    if (!shape.tables[i].definition) continue;
    for (const ColumnInfo& column : shape.tables[i].definition->columns) {
      if (!sameColumn(column.name, name)) continue;
      if (found) {
        found->several = true;
        return found;
      }
      found = ResolvedColumn{i, &column, false};
      break;
    }
  }
  return found;
}

const OutputColumn* Scope::output(TextView name) const {
  if (!outputs) return nullptr;
  for (const OutputColumn& output : shape.outputs)
    if (!output.name.empty() && sameColumn(output.name, name)) return &output;
  return nullptr;
}

}  // namespace ovalia::engines
