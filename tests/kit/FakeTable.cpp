#include "tests/kit/FakeTable.h"

namespace ovalia::kit {

std::size_t FakeTable::column(TextView name) const {
  for (std::size_t i = 0; i < columns.size(); ++i)
    if (sameName(columns[i].name, name)) return i;
  throw Failure(dao::failure::notInCollection);
}

Variant& FakeTable::at(std::size_t row, TextView columnName) {
  return rows.at(row)->values.at(column(columnName));
}

void FakeTable::add(std::vector<Variant> values) {
  values.resize(columns.size(), Null);
  rows.push_back(std::make_shared<FakeRow>(FakeRow{std::move(values), false}));
}

void FakeTable::vanish(std::size_t row) {
  rows.at(row)->gone = true;
  rows.erase(rows.begin() + static_cast<std::ptrdiff_t>(row));
}

}  // namespace ovalia::kit
