#pragma once

#include "platform/Failure.h"
#include "platform/dao.h"

namespace ovalia::engines {

// Numbers of the database model that only the engines name.
namespace failure {
inline constexpr std::int32_t selectInExecute = 3065;
inline constexpr std::int32_t validationRule = 3317;
}  // namespace failure

// What a statement does decides the number of some failures.
enum class StatementKind { Select, Insert, Update, Delete, Criterion, Other };

// The number of a syntax failure in a statement of the kind.
std::int32_t syntaxFailure(StatementKind kind);

// The failure with a Spanish description that says what to do; `detail` (a name, a statement, an engine's own
// words) is worked into it.
Failure databaseFailure(std::int32_t number, TextView detail = {});

}  // namespace ovalia::engines
