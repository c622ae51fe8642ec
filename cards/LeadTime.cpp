#include "cards/LeadTime.h"

#include "platform/Platform.h"
#include "routines/Trap.h"

namespace ovalia {

Text MuestraTiempo(Date duracion) {
  return procedure(u"MuestraTiempo de CNota", Text(), [&](Text& words) {
    const Text shown = formatDate(duracion, u"DD-MM-YY hh:mm:ss", regionalNow());
    const auto number = [&](std::size_t position) {
      return Variant(shown.substr(position - 1, 2)).toInteger();
    };
    const auto counted = [](std::int16_t count, TextView one, TextView many) {
      return count == 1 ? Text(one) : join(count, many);
    };
    const auto days = static_cast<std::int16_t>(number(1) - 30);
    if (days >= 1) {
      words = counted(days, u"1 día", u" días");
    } else if (const std::int16_t hours = number(10); hours >= 1) {
      words = counted(hours, u"1 hora", u" horas");
    } else if (const std::int16_t minutes = number(13); minutes >= 1) {
      words = counted(minutes, u"1 minuto", u" minutos");
    }
  });
}

void LlenarHoras(forms::ComboBox& combo, std::int16_t intervalo) {
  procedure(u"LlenarHoras de CNota", [&] {
    if (intervalo <= 0) throw Failure(failure::badArgument);
    constexpr double minutesADay = 24 * 60;
    combo.Clear();
    for (int minutes = 0; minutes < minutesADay; minutes += intervalo)
      combo.AddItem(formatDate(Date{minutes / minutesADay}, u"hh:mm", regionalNow()));
  });
}

}  // namespace ovalia
