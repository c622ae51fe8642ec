#include "routines/Reminder.h"

#include <cmath>

#include "routines/Trap.h"

namespace ovalia {
namespace {

constexpr std::int64_t minutesADay = 24 * 60;

// The order of the rows is the order of the search.
constexpr struct {
  TextView word;
  std::int64_t minutes;
} units[] = {{u"minuto", 1}, {u"hora", 60}, {u"día", minutesADay}, {u"dia", minutesADay}};

// Before day zero the time of day still counts forwards.
Date minutesFromDayZero(std::int64_t minutes) {
  const double exact = static_cast<double>(minutes) / minutesADay;
  const double day = std::floor(exact);
  const double time = exact - day;
  return {day < 0 ? day - time : day + time};
}

}  // namespace

Date Tiempo(TextView texto) {
  return procedure(u"Tiempo() de RutinasErr", Date{}, [&](Date& result) {
    const Text text = lowerCase(texto);
    TextView number = text;
    std::int64_t minutes = 1;
    for (const auto& unit : units) {
      const auto place = text.find(unit.word);
      if (place == Text::npos) continue;
      number = number.substr(0, place);
      minutes = unit.minutes;
      break;
    }
    result = minutesFromDayZero(Variant(val(number)).toInteger() * minutes);
  });
}

}  // namespace ovalia
