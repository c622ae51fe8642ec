#pragma once

#include <span>

#include "engines/Translator.h"

namespace ovalia::engines {

// The statements by which a dynaset lives, made from the parts of its SELECT.
struct KeyQuery {
  SelectShape shape;
  std::size_t base = 0;    // the table that is written: the leftmost that the first column can come from
  std::vector<Text> keys;  // the base's key and one for each table that may give several rows for one of its
  Text keysSql;            // all keys in the order of the rows
  Text rowSql;             // the row of the keys that are its parameters

  // All keys whose rows meet a condition, or those of the rows whose base keys are named.
  Text matchesSql(TextView condition, std::span<const std::int64_t> among = {}) const;

  const TableInfo& baseTable() const { return *shape.tables[base].definition; }
  bool isBaseKey(const OutputColumn& output) const;

  // Nothing where rows cannot be named one by one.
  static std::optional<KeyQuery> of(SelectShape shape, const DialectFacts& facts);
};

// A select's statement, in the order of the keys of the table it begins with where it asks for no other: what
// an engine gives by itself depends on the index that it chose.
Text inKeyOrder(const Translation& select, const DialectFacts& facts);

}  // namespace ovalia::engines
