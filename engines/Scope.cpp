#include "engines/Scope.h"

#include "engines/Names.h"

namespace ovalia::engines {

std::optional<std::size_t> Scope::tableNamed(TextView qualifier) const {
  for (std::size_t i = 0; i < tables.size(); ++i)
    if (sameColumn(tables[i].alias, qualifier)) return i;
  return std::nullopt;
}

std::optional<ResolvedColumn> Scope::column(TextView name) const {
  std::optional<ResolvedColumn> found;
  for (std::size_t i = 0; i < tables.size(); ++i) {
    if (!tables[i].definition) continue;
    for (const ColumnInfo& column : tables[i].definition->columns) {
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
  for (const OutputColumn& output : outputs)
    if (!output.name.empty() && sameColumn(output.name, name)) return &output;
  return nullptr;
}

}  // namespace ovalia::engines
