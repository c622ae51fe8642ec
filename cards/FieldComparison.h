#pragma once

#include <optional>

#include "platform/Variant.h"

namespace ovalia {

// Whether what a card shows differs from its field; nothing where fields of that type are not compared. The
// type of the field decides:
//   Null                                     the trimmed text on the card is not empty
//   whole numbers, amounts, truth values     by value; a text that is no number differs
//   dates                                    trimmed texts; a date not after day zero counts as ""
//   texts                                    trimmed, exact
// So a ticked box (1) differs from True (-1), and a picker pair "07/03/2005 0:00:00" from a field at
// midnight, whose text has no time.
std::optional<bool> differs(const Variant& ValorFicha, const Variant& ValorCampo);

}  // namespace ovalia
