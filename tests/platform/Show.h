#pragma once

#include <exception>
#include <string>

#include "platform/Failure.h"
#include "platform/Regional.h"
#include "platform/Variant.h"

namespace ovalia::test {

// Values as the tables of these tests write them.
inline std::string shown(bool truth) { return truth ? "true" : "false"; }
inline std::string shown(double number) { return toUtf8(Regional{.decimal = u'.'}.numberText(number)); }
inline std::string shown(std::int32_t number) { return std::to_string(number); }
inline std::string shown(Currency amount) { return std::to_string(amount.tenThousandths); }
inline std::string shown(Date date) { return shown(date.days); }
inline std::string shown(const Text& text) { return "'" + toUtf8(text) + "'"; }
inline std::string shown(const ObjectRef& object) { return object ? "object" : "nothing"; }

// With the type's name in front.
inline std::string shown(const Variant& value) {
  switch (value.type()) {
    case VarType::Empty:
      return "Empty";
    case VarType::Null:
      return "Null";
    case VarType::Integer:
      return "Integer " + shown(value.toLong());
    case VarType::Long:
      return "Long " + shown(value.toLong());
    case VarType::Single:
      return "Single " + shown(value.toDouble());
    case VarType::Double:
      return "Double " + shown(value.toDouble());
    case VarType::Currency:
      return "Currency " + shown(value.toCurrency());
    case VarType::Date:
      return "Date " + shown(value.toDate());
    case VarType::Text:
      return shown(value.toText());
    case VarType::Object:
      return shown(value.toObject());
    case VarType::Boolean:
      return "Boolean " + shown(value.toBoolean());
    case VarType::Byte:
      return "Byte " + shown(value.toLong());
  }
  return "no type";
}

// What an action gives, or "!" and the number it fails with.
template <class Action>
std::string outcome(Action action) {
  try {
    return shown(action());
  } catch (const Failure& failure) {
    return "!" + std::to_string(failure.number());
  }
}

// The number an action fails with, 0 when it does not.
template <class Action>
std::int32_t failureOf(Action action) {
  try {
    action();
    return 0;
  } catch (const Failure& failure) {
    return failure.number();
  }
}

}  // namespace ovalia::test
