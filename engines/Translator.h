#pragma once

#include <optional>
#include <vector>

#include "engines/Catalog.h"
#include "engines/DialectFacts.h"
#include "engines/Failures.h"

namespace ovalia::engines {

// A table of FROM.
struct SourceTable {
  Text name;                                    // as FROM writes it; "" for a subquery
  Text alias;                                   // the name that stands for it in the statement
  std::shared_ptr<const TableInfo> definition;  // nothing where the engine knows none
};

// A column of the result.
struct OutputColumn {
  Text name;  // alias or column; "" for an expression without an alias
  Text sql;   // the translated expression
  std::optional<dao::DataType> type;
  std::optional<std::size_t> table;  // of the FROM table where it is a plain column
  Text column;
};

// One column equals another in a join's condition.
struct JoinedColumns {
  std::size_t table, otherTable;
  Text column, otherColumn;
};

// The parts of a translated SELECT, for building further statements from them.
struct SelectShape {
  std::vector<SourceTable> tables;
  std::vector<OutputColumn> outputs;
  std::vector<JoinedColumns> joins;
  Text items, from, where, order, limit;  // each without its keyword but `limit`; "" where there is none
  bool outerJoins = false;                // a table may have no row in a row of the result
  bool rightJoins = false;                // nor need those on the left of such a table have one
  bool rowsOfTables = false;  // a row is one row of each table: no grouping, DISTINCT, UNION, aggregate
};

struct Translation {
  StatementKind kind = StatementKind::Other;
  Text sql;
  std::optional<SelectShape> select;
  bool refusedForLength = false;  // it writes a text that its column's size refuses
};

// The select that a recordset is opened by: the text itself, or all of the table that it names.
Text selectFrom(TextView sqlOrTable);

// A statement in the Jet dialect in the engine's. Literals are never touched but in how they are quoted; what
// is not known passes through for the engine to judge, and definitions and settings whole. Failures: 3075 a
// literal that does not end or is no date, 3421 a constant that its column cannot take.
Translation translate(TextView sql, Catalog& catalog, const DialectFacts& facts);

// A search criterion over the output columns of a select.
struct Criterion {
  Text sql;                   // a condition over the tables of FROM, its text constants as parameters
  std::vector<Stored> texts;  // their values

  // The criterion where it says no more than that a column is a whole number.
  std::optional<std::size_t> onlyColumn;
  std::int64_t onlyNumber = 0;

  friend bool operator==(const Criterion&, const Criterion&) = default;
};

// `used` is the number of parameters that the outputs themselves are. Failures: 3061 a name that is no
// output, 3077.
Criterion translateCriterion(TextView criterion, const SelectShape& select, Catalog& catalog,
                             const DialectFacts& facts, std::size_t used = 0);

}  // namespace ovalia::engines
