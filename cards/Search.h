#pragma once

#include <cstdint>

#include "instance/Instance.h"

namespace ovalia {

// Opens the search dialog "Mosken.CMosken" over the list; it calls `BuscarElemento` of the card for each of
// its steps. Unsaved work of the host's own form is settled first; that of the card is not.
void Buscar_Nota(Instance& nota);

// One step of the search: `Modo` 1 goes to the first match of a criterion, 2 to the next, 3 to the one
// before; any other does not search. The card is filled again in every case, over changes that were not
// saved; without a match it is the row the step started from. An empty list or criterion does nothing.
void CNota_BuscaElemento(Instance& nota, std::int16_t Modo, TextView Criterio, bool& Encontrado);

}  // namespace ovalia
