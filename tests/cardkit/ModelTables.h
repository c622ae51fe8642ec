#pragma once

#include "tests/cardkit/CardTest.h"

namespace ovalia::kit {

// The tables about models, for tests without an engine. The statements that read one of them are answered
// like others of one table, counting included; the list of all models with their subjects is answered
// whatever its condition and its order, in the order of the table.
//
//   Materia      1 Ventas, 2 Alquiler, 3 D'Ors
//   TipoMateria  11 Oferta (1), 12 Fianza (2), 13 Oferta (2)
//   Plantilla    empty
void putModelTables(FakeDatabase& database);

// A row of Plantilla; its key is the number of rows then.
void putModel(FakeDatabase& database, Variant name, Variant notes = Null, Variant subject = Null,
              Variant part = Null);

// The rows of Plantilla: "1: carta.doc < Notas, 1, 11".
std::vector<Text> models(const FakeDatabase& database);

}  // namespace ovalia::kit
