#include "cards/FieldComparison.h"

#include "platform/Platform.h"

namespace ovalia {

namespace {

bool unequal(const Variant& shown, const Variant& number) {
  if (shown.type() == VarType::Text) {
    const auto typed = regionalNow().numberFromText(shown.toText());
    return !typed || *typed != number.toDouble();
  }
  const Variant same = compareEqual(shown, number);
  return !same.isNull() && !same.holds();
}

Text dateText(const Variant& date) { return date.toDate().days > 0 ? trimBlanks(date.text()) : Text(); }

}  // namespace

std::optional<bool> differs(const Variant& ValorFicha, const Variant& ValorCampo) {
  switch (ValorCampo.type()) {
    case VarType::Null:
      return !trimBlanks(ValorFicha.text()).empty();
    case VarType::Integer:
    case VarType::Long:
    case VarType::Currency:
    case VarType::Boolean:
    case VarType::Byte:
      return unequal(ValorFicha, ValorCampo);
    case VarType::Date:
      return dateText(ValorCampo) != trimBlanks(ValorFicha.text());
    case VarType::Text:
      return trimBlanks(ValorCampo.toText()) != trimBlanks(ValorFicha.text());
    default:
      return std::nullopt;
  }
}

}  // namespace ovalia
