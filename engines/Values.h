#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "engines/ColumnTypes.h"

namespace ovalia::engines {

// A value as an engine keeps it; text is UTF-8.
using Stored = std::variant<std::monostate, std::int64_t, double, std::string>;

// Rows read from an engine, packed: sixteen bytes a value and the texts in one piece behind them.
class Rows {
 public:
  enum class Kind : std::uint32_t { Null, Integer, Real, Text };
  struct Cell {
    Kind kind;
    std::uint32_t length;  // of a text, in bytes
    union {
      std::int64_t integer;
      double real;
      std::size_t offset;  // of a text
    };
  };

  void clear() {
    cells_.clear();
    texts_.clear();
  }
  bool empty() const { return cells_.empty(); }
  std::size_t cellCount() const { return cells_.size(); }

  void addNull() { cells_.push_back({Kind::Null, 0, {0}}); }
  void addInteger(std::int64_t value) { cells_.push_back({Kind::Integer, 0, {value}}); }
  void addReal(double value) {
    Cell cell{Kind::Real, 0, {0}};
    cell.real = value;
    cells_.push_back(cell);
  }
  void addText(std::string_view value) {
    Cell cell{Kind::Text, static_cast<std::uint32_t>(value.size()), {0}};
    cell.offset = texts_.size();
    cells_.push_back(cell);
    texts_.append(value);
  }

  const Cell& cell(std::size_t position) const { return cells_[position]; }
  std::string_view text(const Cell& cell) const { return {texts_.data() + cell.offset, cell.length}; }

 private:
  std::vector<Cell> cells_;
  std::string texts_;
};

// The value of a cell as the model delivers it: by the declared type where there is one (whole numbers as
// Byte, Integer or Long, a day count as a Date, ISO text of a date column too), else as the engine keeps it.
// What does not fit its declared type comes as the nearest wider one.
Variant toVariant(const Rows& rows, const Rows::Cell& cell, std::optional<dao::DataType> type);

// The value as a column of the type keeps it: dates in whole seconds as day counts, True as -1, amounts with
// four decimals. Failure 3421 when it does not convert.
Stored toStored(const Variant& value, dao::DataType type);

// UTF-16 of a text; the short way for ASCII.
Text wide(std::string_view utf8);

// A date rounded to its whole second, always the same number for the same second.
Date wholeSecond(Date date);

}  // namespace ovalia::engines
