#pragma once

#include <concepts>
#include <cstdint>
#include <string>
#include <variant>

#include "platform/Object.h"
#include "platform/Text.h"

namespace ovalia {

// The classic runtime's type numbers.
enum class VarType : std::int16_t {
  Empty = 0,
  Null = 1,
  Integer = 2,
  Long = 3,
  Single = 4,
  Double = 5,
  Currency = 6,
  Date = 7,
  Text = 8,
  Object = 9,
  Boolean = 11,
  Byte = 17,
};

// Days since 1899-12-30 with the time of day as the fraction; day zero stands for "no date".
struct Date {
  double days = 0;
  friend bool operator==(Date, Date) = default;
};

// An exact amount with four decimals, held in ten-thousandths.
struct Currency {
  std::int64_t tenThousandths = 0;
  friend bool operator==(Currency, Currency) = default;
};

struct NullValue {
  friend bool operator==(NullValue, NullValue) = default;
};
inline constexpr NullValue Null{};

// The dynamic value of the runtime. Conversions follow the classic rules: to a whole number half to even, out
// of range 6, a text that is no number or date 13, Null into anything but a Variant 94; True is -1 as a
// number. Texts of numbers and dates follow the installed platform's regional settings.
class Variant {
 public:
  Variant() = default;
  Variant(NullValue) : value_(NullValue{}) {}
  Variant(bool v) : value_(v) {}
  Variant(std::uint8_t v) : value_(v) {}
  Variant(std::int16_t v) : value_(v) {}
  Variant(std::int32_t v) : value_(v) {}
  Variant(float v) : value_(v) {}
  Variant(double v) : value_(v) {}
  Variant(Currency v) : value_(v) {}
  Variant(Date v) : value_(v) {}
  Variant(Text v) : value_(std::move(v)) {}
  Variant(TextView v) : value_(Text(v)) {}
  Variant(const char16_t* v) : value_(Text(v)) {}
  Variant(ObjectRef v) : value_(std::move(v)) {}
  template <class T>
  requires std::derived_from<T, Object> Variant(std::shared_ptr<T> v) : value_(ObjectRef(std::move(v))) {}
  Variant(const void*) = delete;

  VarType type() const;
  bool isEmpty() const { return type() == VarType::Empty; }
  bool isNull() const { return type() == VarType::Null; }
  bool isObject() const { return type() == VarType::Object; }

  // Whether the value is a number or a text that converts to one ("1,5", "1e2", "&H10", " 12 ").
  bool isNumeric() const;

  // The value itself; of an object its default member, and that one's where it is an object again. Failures:
  // 91 for an empty reference, 438 without a default member, 13 where objects lead on to objects for ever.
  Variant plain() const;

  // An object gives its plain value. Infinite doubles are out of range.
  bool toBoolean() const;
  std::uint8_t toByte() const;
  std::int16_t toInteger() const;
  std::int32_t toLong() const;
  double toDouble() const;
  Currency toCurrency() const;
  Date toDate() const;
  Text toText() const;         // CStr: Null is 94
  Text text() const;           // "" & value: Null and Empty are ""
  ObjectRef toObject() const;  // 13 when it is no object; an empty reference comes back empty

  // Whether a condition on the value is met; Null is not met, a text that is no number or word is 13.
  bool holds() const;

 private:
  std::variant<std::monostate, NullValue, bool, std::uint8_t, std::int16_t, std::int32_t, float, double,
               Currency, Date, Text, ObjectRef>
      value_;
};

// The runtime's "=": numbers by value, texts exactly by code unit, a text against a number by value (13 when
// it is no number), a date as its number. Null on a side gives Null, else a Boolean.
Variant compareEqual(const Variant& a, const Variant& b);

// The runtime's "<" by the same rules.
Variant compareLess(const Variant& a, const Variant& b);

// a + b of numbers, dates and Null (Null spreads), joining where both are texts.
Variant add(const Variant& a, const Variant& b);

// "a & b & c": Null and Empty count as nothing.
template <class... Parts>
Text join(const Parts&... parts) {
  Text all;
  (all.append(Variant(parts).text()), ...);
  return all;
}

// The numeric reading of a text's beginning (`Val`): blanks inside are passed over, the point is the decimal
// sign, an exponent and &H / &O are read, anything else ends it; 0 when there is no number.
double val(TextView text);

// Conveniences over late binding; arguments are passed as copies, and the object lives at least until its
// member has ended.
Variant getMember(const ObjectRef& object, TextView member, std::initializer_list<Variant> arguments = {});
void putMember(const ObjectRef& object, TextView member, const Variant& value);
Variant callMember(const ObjectRef& object, TextView member, std::initializer_list<Variant> arguments = {});

}  // namespace ovalia
