#pragma once

#include <cstdint>
#include <functional>
#include <initializer_list>
#include <type_traits>
#include <utility>

#include "platform/Failure.h"
#include "routines/ErrorReport.h"

// The trap around a procedure's body. Any exception counts: a Failure, a lack of memory (7), any other (51).
// It is reported under the procedure's literal name and goes no further; the procedure ends where it failed,
// and what it had done stays done. What the report itself throws goes on to the next enclosing trap.
namespace ovalia {

// A procedure's name: a text, or a function that makes one when it is needed.
template <class Name>
Text nameOf(const Name& name) {
  if constexpr (std::is_invocable_v<const Name&>)
    return Text(name());
  else
    return Text(TextView(name));
}

template <class Name, class Body>
void procedure(const Name& name, Body&& body) {
  try {
    std::forward<Body>(body)();
  } catch (...) {
    PendingError error(currentFailure());
    GestionarError(nameOf(name), error);
  }
}

// A procedure with a result: `body` gets it by reference, so that the result reached so far survives a
// failure.
template <class Name, class Result, class Body>
Result procedure(const Name& name, Result initial, Body&& body) {
  procedure(name, [&] { std::forward<Body>(body)(initial); });
  return initial;
}

// A procedure that deals with some failures itself: `handler(const Failure&)` says whether it did; what it
// did not is reported. What the handler throws goes on to the next enclosing trap.
template <class Name, class Body, class Handler>
void procedureHandling(const Name& name, Body&& body, Handler&& handler) {
  try {
    std::forward<Body>(body)();
  } catch (...) {
    const Failure failure = currentFailure();
    if (handler(failure)) return;
    PendingError error(failure);
    GestionarError(nameOf(name), error);
  }
}

// The same with a result: `body(Result&)`, `handler(const Failure&, Result&)`.
template <class Name, class Result, class Body, class Handler>
Result procedureHandling(const Name& name, Result initial, Body&& body, Handler&& handler) {
  procedureHandling(
      name, [&] { std::forward<Body>(body)(initial); },
      [&](const Failure& failure) { return handler(failure, initial); });
  return initial;
}

// Runs one statement whose failure is passed over; gives the failure's number, 0 when there was none.
template <class Statement>
std::int32_t resumeNext(Statement&& statement) {
  try {
    std::forward<Statement>(statement)();
    return 0;
  } catch (...) {
    return currentFailure().number();
  }
}

// What happens after a statement of a list has failed.
enum class AfterFailure {
  goOn,      // at the next statement
  leave,     // the remaining statements are not run
  passItOn,  // the failure goes to the enclosing trap
};

using Statements = std::initializer_list<std::function<void()>>;

// Runs statements of which each may fail alone; `decide(const Failure&)` says what follows a failure. Whether
// the end of the list was reached. What `decide` throws takes the failure's place.
template <class Decide>
bool runStatements(Statements statements, Decide&& decide) {
  for (const auto& statement : statements) {
    try {
      statement();
    } catch (...) {
      switch (decide(currentFailure())) {
        case AfterFailure::goOn:
          break;
        case AfterFailure::leave:
          return false;
        case AfterFailure::passItOn:
          throw;
      }
    }
  }
  return true;
}

}  // namespace ovalia
