#pragma once

#include <cstdint>

#include "platform/Object.h"
#include "platform/Text.h"
#include "platform/Variant.h"
#include "platform/dao.h"

namespace ovalia {

// Adds to `lista`, a combo box reached by name, the values of a column in their order, Null and empty ones
// left out. `condicion` is a whole clause such as a WHERE, or ""; with a `campoId` each entry's `ItemData`
// takes that column. What the list held before stays. There is no trap: a failure reaches the caller.
void CargarListaCampo(dao::Database& db, const dao::Field& campo, const ObjectRef& lista, TextView condicion,
                      TextView campoId);

// Opens the pick list "Trivane.CTrivane" over a table of `cgDB`, modally; whether the user chose. `resultado`
// is then the choice, else `valor`; `nuevo` is the new element that the window knows. The title is the
// table's name unless `titulo` gives one; `campoValor` and `sql` are handed on only with `usarCampoValor` and
// when not empty. A failure is reported as "VerListadoSimple de RutinasErr"; until the choice has been read
// it gives false and leaves the outputs as they were.
bool VerListadoSimple(Text valor, Text& resultado, TextView tabla, TextView sql, Text& nuevo,
                      const Variant& campoValor, bool usarCampoValor, TextView campo, bool opNuevo,
                      bool opBorrar, bool opModificar, std::int16_t anchura, std::int32_t idSolicitud,
                      TextView titulo, bool opTodos);

}  // namespace ovalia
