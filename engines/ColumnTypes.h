#pragma once

#include <optional>

#include "platform/dao.h"

namespace ovalia::engines {

// What a column's declaration says about its values.
struct ColumnType {
  dao::DataType type = dao::dbText;
  std::int32_t size = 0;  // UTF-16 units of a limited text; 0 without a limit

  friend bool operator==(const ColumnType&, const ColumnType&) = default;
};

// Reads a declared type ("VARCHAR(50)", "MEMO TEXT", "datetime"): the first word decides, without regard to
// case. Nothing for a word that names no type of the model.
std::optional<ColumnType> columnTypeFrom(TextView declared);

inline bool isText(dao::DataType type) { return type == dao::dbText || type == dao::dbMemo; }

}  // namespace ovalia::engines
