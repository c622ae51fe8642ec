#pragma once

#include <memory>
#include <vector>

#include "platform/dao.h"

namespace ovalia::kit {

struct FakeColumn {
  Text name;
  dao::DataType type = dao::dbText;
  std::int32_t attributes = 0;
  Text sourceTable = {};
};

// A row outlives its table's forgetting it: a recordset that holds it sees that it is gone.
struct FakeRow {
  std::vector<Variant> values;
  bool gone = false;
};
using FakeRowRef = std::shared_ptr<FakeRow>;

// Columns and rows that recordsets work on. Changing them directly is what "another user" does.
struct FakeTable {
  std::vector<FakeColumn> columns;
  std::vector<FakeRowRef> rows;

  std::size_t column(TextView name) const;  // 3265 when unknown
  Variant& at(std::size_t row, TextView columnName);
  void add(std::vector<Variant> values);
  void vanish(std::size_t row);  // recordsets that are open find it gone (3167)
};
using FakeTableRef = std::shared_ptr<FakeTable>;

}  // namespace ovalia::kit
