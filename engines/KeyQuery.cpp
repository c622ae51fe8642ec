#include "engines/KeyQuery.h"

#include <algorithm>
#include <utility>

#include "engines/Names.h"
#include "engines/Sentence.h"

namespace ovalia::engines {
namespace {

bool isOnlyKey(const SourceTable& table, TextView column) {
  if (!table.definition) return false;
  for (const ColumnInfo& known : table.definition->columns)
    if (sameColumn(known.name, column)) return known.onlyKey;
  return false;
}

// The tables of which there is at most one row for a row of the base: joined by their own key to a column of
// such a table.
std::vector<bool> singleTables(const SelectShape& shape, std::size_t base) {
  std::vector<bool> single(shape.tables.size(), false);
  single[base] = true;
  for (bool more = true; more;) {
    more = false;
    for (const JoinedColumns& join : shape.joins) {
      if (!single[join.table] && single[join.otherTable] && isOnlyKey(shape.tables[join.table], join.column))
        more = single[join.table] = true;
      if (!single[join.otherTable] && single[join.table] &&
          isOnlyKey(shape.tables[join.otherTable], join.otherColumn))
        more = single[join.otherTable] = true;
    }
  }
  // With an outer join a table further left may stand in a row without one of the base's, and any table where
  // the right side's rows are all kept.
  if (shape.rightJoins) single.assign(single.size(), false);
  if (shape.outerJoins) std::fill(single.begin(), single.begin() + static_cast<std::ptrdiff_t>(base), false);
  return single;
}

}  // namespace

std::optional<KeyQuery> KeyQuery::of(SelectShape shape, const DialectFacts& facts) {
  if (!shape.rowsOfTables || shape.tables.empty() || shape.outputs.empty()) return std::nullopt;
  KeyQuery query;
  query.base = shape.outputs.front().table.value_or(0);
  const std::vector<bool> single = singleTables(shape, query.base);
  for (std::size_t i = 0; i < shape.tables.size(); ++i) {
    if (i != query.base && single[i]) continue;
    const SourceTable& table = shape.tables[i];
    if (!table.definition || table.definition->key.empty()) return std::nullopt;
    Text key = writtenName(table.alias, facts) + u"." + writtenName(table.definition->key, facts);
    query.keys.insert(i == query.base ? query.keys.begin() : query.keys.end(), std::move(key));
  }
  Text select = u"SELECT ", row = u" WHERE ";
  for (std::size_t i = 0; i < query.keys.size(); ++i) {
    select.append(i > 0 ? u", " : u"").append(query.keys[i]);
    row.append(i > 0 ? u" AND " : u"").append(query.keys[i]);
    // The base's own row is always there where it is named alone.
    row.append(u" ").append(query.keys.size() > 1 ? facts.sameOrBothNull : TextView(u"=")).append(u" ");
    row.append(facts.parameter).append(toText(static_cast<std::int64_t>(i) + 1));
  }
  query.keysSql = select + u" FROM " + shape.from;
  if (!shape.where.empty()) query.keysSql += u" WHERE " + shape.where;
  query.keysSql += u" ORDER BY " + (shape.order.empty() ? query.keys.front() : shape.order) + shape.limit;
  query.rowSql = u"SELECT " + shape.items + u" FROM " + shape.from + row;
  query.shape = std::move(shape);
  return query;
}

Text KeyQuery::matchesSql(TextView condition, std::span<const std::int64_t> among) const {
  Text sql = u"SELECT ";
  for (std::size_t i = 0; i < keys.size(); ++i) sql.append(i > 0 ? u", " : u"").append(keys[i]);
  sql.append(u" FROM ").append(shape.from).append(u" WHERE ");
  if (!among.empty()) {
    sql.append(keys.front()).append(u" IN ");
    TextView before = u"(";
    for (const std::int64_t key : among) sql.append(std::exchange(before, u", ")).append(toText(key));
    sql.append(u") AND ");
  }
  return sql.append(u"(").append(condition).append(u")");
}

bool KeyQuery::isBaseKey(const OutputColumn& output) const {
  return output.table == base && sameColumn(output.column, baseTable().key);
}

Text inKeyOrder(const Translation& select, const DialectFacts& facts) {
  if (!select.select || !select.select->rowsOfTables || !select.select->order.empty()) return select.sql;
  const SelectShape& shape = *select.select;
  if (shape.tables.empty() || shape.outputs.empty()) return select.sql;
  const SourceTable& table = shape.tables[shape.outputs.front().table.value_or(0)];
  if (!table.definition || table.definition->key.empty()) return select.sql;
  Text sql = u"SELECT " + shape.items + u" FROM " + shape.from;
  if (!shape.where.empty()) sql += u" WHERE " + shape.where;
  return sql + u" ORDER BY " + writtenName(table.alias, facts) + u"." +
         writtenName(table.definition->key, facts) + shape.limit;
}

}  // namespace ovalia::engines
