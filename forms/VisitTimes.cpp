#include "forms/VisitTimes.h"

#include <array>
#include <cmath>

#include "routines/Messages.h"

namespace ovalia::forms {

namespace {

constexpr TextView startDate = u"dtpFechaAlta", startHour = u"dtpHoraAlta";
constexpr TextView endDate = u"dtpFechaFin", endHour = u"dtpHoraFin";

Date valueOf(CardForm& card, TextView picker) { return card.control(picker)->value().toDate(); }

bool dayIsLater(CardForm& card) { return valueOf(card, startDate).days > valueOf(card, endDate).days; }

bool hourIsLater(CardForm& card) {
  return valueOf(card, startDate) == valueOf(card, endDate) &&
         valueOf(card, startHour).days > valueOf(card, endHour).days;
}

bool dayOrHourIsLater(CardForm& card) { return dayIsLater(card) || hourIsLater(card); }

enum Correction : std::uint8_t { tell = 1, moveDate = 2, moveHour = 4 };

// When the start has got behind the end, what is done about it. The first row of the picker that fits counts.
struct LinkRow {
  TextView changed;
  bool (*startIsLater)(CardForm& card);
  std::uint8_t correction;
};

constexpr std::array<LinkRow, 5> rules{{
    {startDate, dayIsLater, moveDate},
    {startDate, hourIsLater, moveHour},
    {startHour, hourIsLater, moveHour},
    {endDate, dayOrHourIsLater, tell | moveDate | moveHour},
    {endHour, hourIsLater, tell | moveHour},
}};

void correct(CardForm& card, std::uint8_t correction) {
  constexpr std::int32_t information = 64;
  if (correction & tell)
    MostrarMensaje(u"La fecha de finalización indicada es anterior a la fecha de comienzo.", information,
                   u"");
  if (correction & moveDate) card.control(endDate)->setValue(valueOf(card, startDate));
  if (correction & moveHour) card.control(endHour)->setValue(halfHourAfter(valueOf(card, startHour)));
}

}  // namespace

Date halfHourAfter(Date start) {
  constexpr double secondsPerDay = 86'400, halfHour = 1'800;
  const double seconds = std::round(start.days * secondsPerDay) + halfHour;
  const double day = std::floor(seconds / secondsPerDay);
  return {day + (seconds - day * secondsPerDay) / secondsPerDay};
}

void linkVisitTimes(CardForm& card, TextView changed) {
  for (const LinkRow& rule : rules) {
    if (rule.changed != changed || !rule.startIsLater(card)) continue;
    correct(card, rule.correction);
    return;
  }
}

}  // namespace ovalia::forms
