#include "engines/Values.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

#include "engines/Failures.h"
#include "platform/Regional.h"

namespace ovalia::engines {
namespace {

constexpr double amountScale = 10'000;
constexpr std::int64_t amountLimit = 900'000'000'000'000;

std::optional<Date> isoDate(std::string_view text) {
  DateParts parts{1899, 12, 30, 0, 0, 0};
  int* const fields[] = {&parts.year, &parts.month, &parts.day, &parts.hour, &parts.minute, &parts.second};
  const char* at = text.data();
  const char* const end = at + text.size();
  int read = 0;
  for (int* field : fields) {
    const auto [after, error] = std::from_chars(at, end, *field);
    if (error != std::errc()) return std::nullopt;
    at = after;
    ++read;
    if (at == end || *at == '.') break;
    ++at;
  }
  if (read != 3 && read < 5) return std::nullopt;
  return dateFrom(parts);
}

template <class T>
bool fits(std::int64_t number) {
  return number >= std::numeric_limits<T>::min() && number <= std::numeric_limits<T>::max();
}

Variant wholeNumber(std::int64_t number, dao::DataType narrowest) {
  if (narrowest == dao::dbByte && fits<std::uint8_t>(number)) return static_cast<std::uint8_t>(number);
  if (narrowest <= dao::dbInteger && fits<std::int16_t>(number)) return static_cast<std::int16_t>(number);
  if (fits<std::int32_t>(number)) return static_cast<std::int32_t>(number);
  return static_cast<double>(number);
}

Variant fromReal(double number, dao::DataType type) {
  switch (type) {
    case dao::dbBoolean:
      return number != 0;
    case dao::dbByte:
    case dao::dbInteger:
    case dao::dbLong:
      if (std::abs(number) < 9e15) return wholeNumber(std::llrint(number), type);
      return number;
    case dao::dbCurrency:
      if (std::abs(number) < 9e14) return Currency{std::llrint(number * amountScale)};
      return number;
    case dao::dbSingle:
      return static_cast<float>(number);
    case dao::dbDate:
      return Date{number};
    case dao::dbText:
    case dao::dbMemo:
      return Regional().numberText(number);
    default:
      return number;
  }
}

Variant fromInteger(std::int64_t number, dao::DataType type) {
  switch (type) {
    case dao::dbBoolean:
      return number != 0;
    case dao::dbByte:
    case dao::dbInteger:
    case dao::dbLong:
      return wholeNumber(number, type);
    case dao::dbCurrency:
      if (number > -amountLimit && number < amountLimit) return Currency{number * 10'000};
      return static_cast<double>(number);
    case dao::dbText:
    case dao::dbMemo:
      return toText(number);
    default:
      return fromReal(static_cast<double>(number), type);
  }
}

Variant fromText(std::string_view text, dao::DataType type) {
  if (type == dao::dbDate)
    if (const auto date = isoDate(text)) return *date;
  return wide(text);
}

Stored amount(const Variant& value) {
  const std::int64_t parts = value.toCurrency().tenThousandths;
  if (parts % 10'000 == 0) return parts / 10'000;
  return static_cast<double>(parts) / amountScale;
}

Stored converted(const Variant& value, dao::DataType type) {
  switch (type) {
    case dao::dbBoolean:
      return std::int64_t{value.toBoolean() ? -1 : 0};
    case dao::dbByte:
      return std::int64_t{value.toByte()};
    case dao::dbInteger:
      return std::int64_t{value.toInteger()};
    case dao::dbLong:
      return std::int64_t{value.toLong()};
    case dao::dbCurrency:
      return amount(value);
    case dao::dbSingle:
      return static_cast<double>(static_cast<float>(value.toDouble()));
    case dao::dbDouble:
      return value.toDouble();
    case dao::dbDate:
      return wholeSecond(value.toDate()).days;
    default:
      return toUtf8(value.text());
  }
}

}  // namespace

Text wide(std::string_view utf8) {
  const bool ascii =
      std::none_of(utf8.begin(), utf8.end(), [](char c) { return static_cast<signed char>(c) < 0; });
  return ascii ? Text(utf8.begin(), utf8.end()) : fromUtf8(utf8);
}

Date wholeSecond(Date date) {
  constexpr double secondsADay = 86'400;
  const double whole = std::floor(date.days);
  return {(whole * secondsADay + std::round((date.days - whole) * secondsADay)) / secondsADay};
}

Variant toVariant(const Rows& rows, const Rows::Cell& cell, std::optional<dao::DataType> type) {
  switch (cell.kind) {
    case Rows::Kind::Null:
      return Null;
    case Rows::Kind::Integer:
      return fromInteger(cell.integer, type.value_or(dao::dbLong));
    case Rows::Kind::Real:
      return fromReal(cell.real, type.value_or(dao::dbDouble));
    default:
      return fromText(rows.text(cell), type.value_or(dao::dbText));
  }
}

Stored toStored(const Variant& value, dao::DataType type) {
  if (value.isNull()) return std::monostate{};
  try {
    if (value.isObject()) return toStored(value.toObject() ? value.toObject()->get({}) : Variant(Null), type);
    return converted(value, type);
  } catch (const Failure& failure) {
    throw databaseFailure(dao::failure::conversion, failure.description());
  }
}

}  // namespace ovalia::engines
