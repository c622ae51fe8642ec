#include "platform/Variant.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <optional>

#include "platform/Failure.h"
#include "platform/Platform.h"
#include "platform/Regional.h"

namespace ovalia {

namespace {

constexpr double perUnit = 10'000;  // ten-thousandths in an amount of 1

// Days of the first and behind the last date there is.
constexpr double firstDate = -657'434, behindLastDate = 2'958'466;

template <class... Cases>
struct Overloaded : Cases... {
  using Cases::operator()...;
};
template <class... Cases>
Overloaded(Cases...) -> Overloaded<Cases...>;

// Without the clock's year, which only texts of dates need.
const Regional& regional() {
  static const Regional spanish;
  return Platform::installed() ? Platform::current().regional : spanish;
}

template <class T>
T required(const std::optional<T>& converted) {
  if (!converted) throw Failure(failure::typeMismatch);
  return *converted;
}

// The truth value that a word names, in the user's language, in English, or as a literal of the database.
std::optional<bool> word(TextView text) {
  const Text trimmed = trimBlanks(text);
  for (const TextView yes : {TextView(regional().trueWord), TextView(u"True"), TextView(u"#TRUE#")})
    if (sameName(trimmed, yes)) return true;
  for (const TextView no : {TextView(regional().falseWord), TextView(u"False"), TextView(u"#FALSE#")})
    if (sameName(trimmed, no)) return false;
  return std::nullopt;
}

double finite(double number) {
  if (!std::isfinite(number)) throw Failure(failure::overflow);
  return number;
}

Date dateOf(double days) {
  if (!(days > firstDate - 1 && days < behindLastDate)) throw Failure(failure::overflow);
  return Date{days};
}

// To the nearest whole number, half to even.
double halfToEven(double number) {
  const double below = std::floor(number), rest = number - below;
  if (rest != 0.5) return rest < 0.5 ? below : below + 1;
  return std::fmod(below, 2) == 0 ? below : below + 1;
}

double wholeUnits(Currency amount) {
  const std::int64_t unit = 10'000, whole = amount.tenThousandths / unit, rest = amount.tenThousandths % unit;
  const std::int64_t half = rest < 0 ? -rest : rest;
  const bool away = half > unit / 2 || (half == unit / 2 && whole % 2 != 0);
  return double(whole + (away ? (rest < 0 ? -1 : 1) : 0));
}

Currency amountOf(double number) {
  const double scaled = halfToEven(finite(number) * perUnit);
  if (!(std::fabs(scaled) < double(std::numeric_limits<std::int64_t>::max())))
    throw Failure(failure::overflow);
  return Currency{std::int64_t(scaled)};
}

// The digits that name a Single, not those of the double next to it.
Text singleText(float number) {
  if (!std::isfinite(number)) throw Failure(failure::overflow);
  char written[40];
  const auto end = std::to_chars(written, written + sizeof written, number).ptr;
  double shortest = 0;
  std::from_chars(written, end, shortest);
  return regional().numberText(shortest);
}

template <class Whole>
Whole narrow(double whole) {
  if (!(whole >= double(std::numeric_limits<Whole>::min()) &&
        whole <= double(std::numeric_limits<Whole>::max())))
    throw Failure(failure::overflow);
  return Whole(whole);
}

template <class Whole>
Whole toWhole(const Variant& value) {
  if (value.isObject()) return toWhole<Whole>(value.plain());
  if (value.type() == VarType::Currency) return narrow<Whole>(wholeUnits(value.toCurrency()));
  return narrow<Whole>(halfToEven(value.toDouble()));
}

}  // namespace

VarType Variant::type() const {
  constexpr VarType types[] = {VarType::Empty,    VarType::Null, VarType::Boolean, VarType::Byte,
                               VarType::Integer,  VarType::Long, VarType::Single,  VarType::Double,
                               VarType::Currency, VarType::Date, VarType::Text,    VarType::Object};
  static_assert(std::size(types) == std::variant_size_v<decltype(value_)>);
  return types[value_.index()];
}

Variant Variant::plain() const {
  constexpr int mostLinks = 16;
  Variant value = *this;
  for (int link = 0; value.isObject(); ++link) {
    if (link == mostLinks) throw Failure(failure::typeMismatch);
    value = Variant(deref(value.toObject()).get(u""));
  }
  return value;
}

bool Variant::isNumeric() const {
  switch (type()) {
    case VarType::Null:
    case VarType::Date:
      return false;
    case VarType::Text:
      return regional().numberFromText(std::get<Text>(value_)).has_value();
    case VarType::Object:
      return std::get<ObjectRef>(value_) && plain().isNumeric();
    default:
      return true;
  }
}

bool Variant::toBoolean() const {
  if (isObject()) return plain().toBoolean();
  if (const Text* text = std::get_if<Text>(&value_))
    if (const auto named = word(*text)) return *named;
  return toDouble() != 0;
}

std::uint8_t Variant::toByte() const {
  if (const bool* truth = std::get_if<bool>(&value_)) return *truth ? 255 : 0;
  return toWhole<std::uint8_t>(*this);
}

std::int16_t Variant::toInteger() const { return toWhole<std::int16_t>(*this); }

std::int32_t Variant::toLong() const { return toWhole<std::int32_t>(*this); }

double Variant::toDouble() const {
  return std::visit(Overloaded{
                        [](std::monostate) { return 0.0; },
                        [](NullValue) -> double { throw Failure(failure::invalidUseOfNull); },
                        [](bool truth) { return truth ? -1.0 : 0.0; },
                        [](Currency amount) { return double(amount.tenThousandths) / perUnit; },
                        [](Date date) { return date.days; },
                        [](const Text& text) { return finite(required(regional().numberFromText(text))); },
                        [this](const ObjectRef&) { return plain().toDouble(); },
                        [](auto number) { return double(number); },
                    },
                    value_);
}

Currency Variant::toCurrency() const {
  if (isObject()) return plain().toCurrency();
  if (const Currency* amount = std::get_if<Currency>(&value_)) return *amount;
  if (const Text* text = std::get_if<Text>(&value_)) return required(regional().amountFromText(*text));
  return amountOf(toDouble());
}

Date Variant::toDate() const {
  if (isObject()) return plain().toDate();
  if (const Date* date = std::get_if<Date>(&value_)) return *date;
  if (const Text* text = std::get_if<Text>(&value_))
    if (const auto date = regionalNow().dateFromText(*text)) return *date;
  return dateOf(toDouble());
}

Text Variant::toText() const {
  return std::visit(Overloaded{
                        [](std::monostate) { return Text(); },
                        [](NullValue) -> Text { throw Failure(failure::invalidUseOfNull); },
                        [](bool truth) { return truth ? regional().trueWord : regional().falseWord; },
                        [](float number) { return singleText(number); },
                        [](double number) { return regional().numberText(number); },
                        [](Currency amount) { return regional().numberText(amount); },
                        [](Date date) { return regional().dateText(date); },
                        [](const Text& text) { return text; },
                        [this](const ObjectRef&) { return plain().toText(); },
                        [](auto whole) { return ovalia::toText(std::int64_t(whole)); },
                    },
                    value_);
}

Text Variant::text() const {
  if (isObject()) return plain().text();
  return isNull() ? Text() : toText();
}

ObjectRef Variant::toObject() const {
  if (const ObjectRef* object = std::get_if<ObjectRef>(&value_)) return *object;
  throw Failure(failure::typeMismatch);
}

bool Variant::holds() const {
  const Variant value = plain();
  return !value.isNull() && value.toBoolean();
}

}  // namespace ovalia
