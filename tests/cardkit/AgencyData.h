#pragma once

#include <memory>
#include <utility>
#include <vector>

#include "tests/kit/FakeDatabase.h"

namespace ovalia::kit {

// Values by field name.
using Fields = std::vector<std::pair<Text, Variant>>;

// A moment, as tests write it.
Date on(int year, int month, int day, int hour = 0, int minute = 0, int second = 0);

// The agency's own tables, small enough to know by heart:
//
//   Usuario      1 Ana Ruiz, 2 Benito Gil, 3 Carmen Soler
//   Cliente      21 Luis Pérez (600 111 222, 910 000 111), 22 Eva Núñez (no telephone)
//   Agencia      31 Casas del Sur, 32 Fincas López
//   TipoAccNota  1 Correo, 2 Teléfono, 3 Visita
//
// Besides the statements that a test announces, it answers SELECTs of columns of one table, with one
// comparison `column = literal` and an ORDER BY at most: texts without regard to case, Null first in the
// order. Rows that a test changes or adds are found at once.
std::shared_ptr<FakeDatabase> agencyDatabase(FaultPanel& faults);

// The columns that the host's query of a list of that kind delivers, in their order; field 0 is the key.
std::vector<FakeColumn> listColumns(TextView tipo);

// A believable annotation, `given` in place of its values. The `place`th (from 0) of its list has a key of
// its own: 501, 502 ... Everything else is equal.
std::vector<Variant> annotation(TextView tipo, const std::vector<FakeColumn>& columns, int place,
                                const Fields& given);

}  // namespace ovalia::kit
