#pragma once

#include <cstdint>

#include "forms/Control.h"
#include "platform/Text.h"
#include "platform/Variant.h"

namespace ovalia {

// The lead time of a reminder in words, from a duration counted from day zero ("15 minutos", "1 hora", "1
// día"). It looks at the day of the month only, so two days, which fall on the first, give "". Minutes are
// left out from one hour on.
Text MuestraTiempo(Date duracion);

// Fills a combo with the times of a day at a step of minutes.
void LlenarHoras(forms::ComboBox& combo, std::int16_t intervalo);

}  // namespace ovalia
