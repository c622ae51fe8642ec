#include "engines/Failures.h"

#include <array>

namespace ovalia::engines {
namespace {

struct Description {
  std::int32_t number;
  TextView text;
};

// Numbers that the platform has no text for, or one that fits the database less well.
constexpr std::array descriptions{
    Description{failure::selectInExecute,
                u"No se puede ejecutar una consulta de selección. Ábrala como conjunto de registros."},
    Description{failure::validationRule,
                u"El valor no cumple una regla de la tabla. Corríjalo y vuelva a guardar."},
    Description{ovalia::failure::objectNotSet,
                u"El conjunto de registros o la base de datos está cerrado. Ábralo de nuevo."},
    Description{ovalia::failure::pathFileAccess,
                u"Error de acceso al archivo de la base de datos. Compruebe el disco o la red y repita."},
};

}  // namespace

std::int32_t syntaxFailure(StatementKind kind) {
  switch (kind) {
    case StatementKind::Insert:
      return dao::failure::insertSyntax;
    case StatementKind::Update:
      return dao::failure::updateSyntax;
    case StatementKind::Criterion:
      return dao::failure::criterionSyntax;
    default:
      return dao::failure::syntax;
  }
}

Failure databaseFailure(std::int32_t number, TextView detail) {
  Text text;
  for (const Description& row : descriptions)
    if (row.number == number) text = row.text;
  if (text.empty()) text = failureText(number);
  if (!detail.empty()) text.append(u" (").append(detail).append(u")");
  return Failure(number, std::move(text));
}

}  // namespace ovalia::engines
