#pragma once

#include "engines/Translator.h"

namespace ovalia::engines {

// What a name can mean at a place of a statement.
struct ResolvedColumn {
  std::size_t table = 0;
  const ColumnInfo* column = nullptr;
  bool several = false;  // further tables have it too: it means the leftmost one's
};

// The tables and outputs of a select are those of its shape, which may still grow.
struct Scope {
  const SelectShape& shape;
  const Scope* outer = nullptr;  // around a subquery
  bool outputs = false;          // a name may stand for an output's expression
  bool outputsFirst = false;     // a criterion: an output's name goes before a table's column

  // The table that a qualifier names.
  std::optional<std::size_t> tableNamed(TextView qualifier) const;
  std::optional<ResolvedColumn> column(TextView name) const;
  const OutputColumn* output(TextView name) const;
};

}  // namespace ovalia::engines
