#pragma once

#include "instance/Instance.h"

namespace ovalia {

// Each says whether a name may stay on the card, and may put another in its place. A failure is reported and
// gives the answer reached, which is true at the start.

// By the host. A name equal to the record's, which on a new card is "", is not even asked about. Where the
// host refuses, a name that it proposes takes the place.
bool ComprobarCliFicha(Instance& nota, Text& Cliente);
bool ComprobarAgeFicha(Instance& nota, Text& Agencia);

// A user's name, which takes the spelling of the table; the user is told when there is none of that name. ""
// may stay.
bool ComprobarTrabajadores(Text& Nombre);
bool ComprobarComercial(Text& Nombre);

}  // namespace ovalia
