#pragma once

#include "engines/Translator.h"

namespace ovalia::engines {

// What a name can mean at a place of a statement.
struct ResolvedColumn {
  std::size_t table = 0;
  const ColumnInfo* column = nullptr;
  bool several = false;  // further tables have it too: it means the leftmost one's
};

struct Scope {
  std::vector<SourceTable> tables;
  std::vector<OutputColumn> outputs;  // names that stand for expressions
  bool outputsFirst = false;          // a criterion: an output's name goes before a table's column
  const Scope* outer = nullptr;       // around a subquery

  // The table that a qualifier names.
  std::optional<std::size_t> tableNamed(TextView qualifier) const;
  std::optional<ResolvedColumn> column(TextView name) const;
  const OutputColumn* output(TextView name) const;
};

}  // namespace ovalia::engines
