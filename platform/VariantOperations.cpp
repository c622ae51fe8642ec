#include <algorithm>
#include <cmath>
#include <compare>
#include <limits>

#include "platform/Failure.h"
#include "platform/NumberText.h"
#include "platform/Variant.h"

namespace ovalia {

namespace {

// The value that a text has beside one of another type.
double numberBeside(const Variant& value, VarType other) {
  if (value.type() == VarType::Text) {
    if (other == VarType::Date) return value.toDate().days;
    if (other == VarType::Boolean && !value.isNumeric()) return value.toBoolean() ? -1 : 0;
  }
  return value.toDouble();
}

bool isOneOf(VarType type, VarType a, VarType b) { return type == a || type == b; }

// Of two plain values, none of them Null.
std::partial_ordering order(const Variant& a, const Variant& b) {
  const VarType left = a.type(), right = b.type();
  const bool texts =
      isOneOf(left, VarType::Text, VarType::Empty) && isOneOf(right, VarType::Text, VarType::Empty);
  if (texts) return a.toText() <=> b.toText();
  if (left == VarType::Currency && right == VarType::Currency)
    return a.toCurrency().tenThousandths <=> b.toCurrency().tenThousandths;
  const double x = numberBeside(a, right), y = numberBeside(b, left);
  const bool bySingle = (left == VarType::Single && right == VarType::Double) ||
                        (left == VarType::Double && right == VarType::Single);
  return bySingle ? float(x) <=> float(y) : x <=> y;
}

template <class Test>
Variant compared(const Variant& a, const Variant& b, Test test) {
  const Variant left = a.plain(), right = b.plain();
  if (left.isNull() || right.isNull()) return Null;
  return bool(test(order(left, right)));
}

// Types of a sum, each taking in those before it.
enum class Width { Byte, Integer, Long, Single, Double, Currency, Date };

Width widthOf(VarType type) {
  switch (type) {
    case VarType::Byte:
      return Width::Byte;
    case VarType::Boolean:
    case VarType::Integer:
      return Width::Integer;
    case VarType::Long:
      return Width::Long;
    case VarType::Single:
      return Width::Single;
    case VarType::Currency:
      return Width::Currency;
    case VarType::Date:
      return Width::Date;
    default:
      return Width::Double;
  }
}

Width widthOf(const Variant& a, const Variant& b) {
  const Width left = widthOf(a.type()), right = widthOf(b.type()), wider = std::max(left, right);
  return wider == Width::Single && std::min(left, right) == Width::Long ? Width::Double : wider;
}

template <class Whole>
bool fits(std::int64_t sum) {
  return sum >= std::numeric_limits<Whole>::min() && sum <= std::numeric_limits<Whole>::max();
}

// In the narrowest type from `width` on that holds it.
Variant wholeSum(std::int64_t sum, Width width) {
  if (width == Width::Byte && fits<std::uint8_t>(sum)) return std::uint8_t(sum);
  if (width <= Width::Integer && fits<std::int16_t>(sum)) return std::int16_t(sum);
  if (fits<std::int32_t>(sum)) return std::int32_t(sum);
  return double(sum);
}

Variant realSum(double sum, Width width) {
  if (!std::isfinite(sum)) throw Failure(failure::overflow);
  if (width == Width::Single && std::fabs(sum) <= std::numeric_limits<float>::max()) return float(sum);
  return sum;
}

Variant amountSum(Currency a, Currency b) {
  Currency sum;
  if (__builtin_add_overflow(a.tenThousandths, b.tenThousandths, &sum.tenThousandths))
    throw Failure(failure::overflow);
  return sum;
}

Variant sumOf(const Variant& a, const Variant& b) {
  const Width width = widthOf(a, b);
  if (width <= Width::Long) return wholeSum(std::int64_t(a.toLong()) + b.toLong(), width);
  if (width == Width::Currency) return amountSum(a.toCurrency(), b.toCurrency());
  const double sum = numberBeside(a, b.type()) + numberBeside(b, a.type());
  return width == Width::Date ? Variant(Variant(sum).toDate()) : realSum(sum, width);
}

}  // namespace

Variant compareEqual(const Variant& a, const Variant& b) {
  return compared(a, b, [](std::partial_ordering result) { return result == 0; });
}

Variant compareLess(const Variant& a, const Variant& b) {
  return compared(a, b, [](std::partial_ordering result) { return result < 0; });
}

Variant add(const Variant& a, const Variant& b) {
  const Variant left = a.plain(), right = b.plain();
  if (left.isNull() || right.isNull()) return Null;
  if (left.isEmpty()) return right.isEmpty() ? Variant(std::int16_t(0)) : right;
  if (right.isEmpty()) return left;
  if (left.type() == VarType::Text && right.type() == VarType::Text) return left.toText() + right.toText();
  return sumOf(left, right);
}

double val(TextView text) {
  const Text digits = replaceAll(text, u" ", u"");
  std::size_t at = 0;
  if (const auto number = readRadixNumber(digits, at)) return *number;
  const bool negative = !digits.empty() && digits[0] == u'-';
  if (negative || (!digits.empty() && digits[0] == u'+')) at = 1;
  const auto number = readDecimal(digits, at, {u'.', 0});
  if (!number) return 0;
  const double value = number->toDouble();
  if (!std::isfinite(value)) throw Failure(failure::overflow);
  return negative && value != 0 ? -value : value;
}

}  // namespace ovalia
