#include "cards/Navigation.h"

namespace ovalia {

void dNota_KeyDown(Instance&, std::int16_t, std::int16_t) {}

void CNota_BuscaElemento(Instance&, std::int16_t, TextView, bool&) {}

}  // namespace ovalia
