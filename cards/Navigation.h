#pragma once

#include "instance/Instance.h"

namespace ovalia {

// The card's keys, and a step of the search over the list. They have no effect yet; nothing is found.
void dNota_KeyDown(Instance& nota, std::int16_t keyCode, std::int16_t shift);
void CNota_BuscaElemento(Instance& nota, std::int16_t modo, TextView criterio, bool& encontrado);

}  // namespace ovalia
