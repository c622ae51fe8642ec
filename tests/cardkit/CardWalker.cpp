#include "tests/cardkit/CardWalker.h"

#include <cmath>

#include "platform/Platform.h"
#include "routines/ModuleValues.h"

namespace ovalia::kit {
namespace {

Text twoDigits(int number) { return (number < 10 ? u"0" : u"") + toText(number); }

Text dayOf(Date date) {
  if (std::floor(date.days) == 0) return u"-";
  const DateParts parts = partsOf(date);
  return twoDigits(parts.day) + u"/" + twoDigits(parts.month) + u"/" + twoDigits(parts.year % 100);
}

Text hourOf(Date date) {
  const DateParts parts = partsOf(date);
  return twoDigits(parts.hour) + u":" + twoDigits(parts.minute) + u":" + twoDigits(parts.second);
}

enum class Shows {
  text,
  day,
  hour,
  dayOfEnd,
  hourOfEnd,
  dayOrToday,
  dayOrUnticked,
  tick,
  orUser,
  lead,
  phone,
  salesperson,
  second
};

struct Rule {
  TextView forms;  // initials of the forms
  TextView control;
  TextView field;
  Shows shows;
};

constexpr Rule rules[] = {
    {u"NV", u"txtAsunto", u"Asunto", Shows::text},
    {u"NVA", u"cboAcceso", u"TipoAccNota", Shows::text},
    {u"NVA", u"txtCategorias", u"Categorias", Shows::text},
    {u"NAL", u"dtpFechaAlta", u"FechaAlta", Shows::day},
    {u"NAL", u"dtpHoraAlta", u"FechaAlta", Shows::hour},
    {u"V", u"dtpFechaAlta", u"FechaComienzo", Shows::day},
    {u"V", u"dtpHoraAlta", u"FechaComienzo", Shows::hour},
    {u"V", u"dtpFechaFin", u"FechaFin", Shows::dayOfEnd},
    {u"V", u"dtpHoraFin", u"FechaFin", Shows::hourOfEnd},
    {u"N", u"chkAvisoNota", u"Aviso", Shows::tick},
    {u"N", u"dtpFechaAviso", u"FechaAviso", Shows::dayOrToday},
    {u"N", u"cboUsuarioAviso", u"UsuarioAviso", Shows::orUser},
    {u"V", u"txtUbicacion", u"Donde", Shows::text},
    {u"V", u"txtCliente", u"Cliente", Shows::text},
    {u"V", u"txtTfnoCliente", u"IdCliente", Shows::phone},
    {u"V", u"cboComercial", u"IdComercial", Shows::salesperson},
    {u"V", u"cboComercial2", u"IdComercial2", Shows::second},
    {u"V", u"txtOtraAgencia", u"Agencia", Shows::text},
    {u"V", u"chkAviso", u"Aviso", Shows::tick},
    {u"V", u"cboTiempoAviso", u"TiempoAviso", Shows::lead},
    {u"V", u"chkConfirmada", u"Confirmada", Shows::tick},
    {u"V", u"chkRealizada", u"Realizada", Shows::tick},
    {u"V", u"chkAnulada", u"Anulada", Shows::tick},
    {u"A", u"txtDonde", u"Donde", Shows::text},
    {u"A", u"dtpFechaInicio", u"FechaInicio", Shows::day},
    {u"A", u"txtNDias", u"NDias", Shows::text},
    {u"A", u"dtpFechaEnvio", u"FechaEnvio", Shows::dayOrUnticked},
    {u"A", u"dtpHoraEnvio", u"FechaEnvio", Shows::hour},
    {u"A", u"chkEnviar", u"Enviar", Shows::tick},
    {u"NVAL", u"lblActualizacion", u"FechaActualizacion", Shows::text},
    {u"NVAL", u"cboUsuario", u"Usuario", Shows::text},
    {u"NVAL", u"txtNotas", u"Notas", Shows::text},
};

Text lookedUp(TextView sql) {
  const auto rows = moduleValues().cgDB->OpenRecordset(sql, dao::dbOpenSnapshot);
  return rows->isEOF() ? Text() : rows->fields().at(0)->Value().text();
}

Text userOf(const Variant& id) {
  return id.isNull() ? Text() : lookedUp(join(u"SELECT Nombre FROM Usuario WHERE IdUsuario = ", id));
}

// Whole minutes, hours or days up to one day; what lies beyond shows nothing.
Text leadTime(const Variant& value) {
  if (value.isNull()) return {};
  const auto minutes = std::lround(value.toDouble() * 24 * 60);
  const auto words = [](long count, TextView one, TextView many) {
    return toText(count) + u" " + Text(count == 1 ? one : many);
  };
  if (minutes == 0 || minutes >= 2 * 24 * 60) return {};
  if (minutes < 60) return words(minutes, u"minuto", u"minutos");
  if (minutes < 24 * 60) return words(minutes / 60, u"hora", u"horas");
  return words(1, u"día", u"días");
}

Text wanted(const Instance& nota, const Rule& rule, const Variant& field) {
  const bool none = field.isNull();
  const Date moment = !none && field.type() == VarType::Date ? field.toDate() : Date{};
  const bool two = nota.nota.DosComerciales;
  switch (rule.shows) {
    case Shows::text:
      return field.text();
    case Shows::day:
      return dayOf(moment);
    case Shows::dayOfEnd:
      return dayOf(moment.days > 0 ? moment : Date{});
    case Shows::hour:
      return hourOf(moment);
    case Shows::hourOfEnd:
      return hourOf(moment.days > 0 ? moment : Date{});
    case Shows::dayOrToday:
      return dayOf(none ? Platform::current().clock->today() : moment);
    case Shows::dayOrUnticked:
      return none ? Text(u"unticked") : dayOf(moment);
    case Shows::tick:
      return !none && field.toBoolean() ? u"1" : u"0";
    case Shows::orUser:
      return none ? nota.nota.cUsuario : field.text();
    case Shows::lead:
      return leadTime(field);
    case Shows::phone:
      return none ? Text() : lookedUp(join(u"SELECT Tfno1 FROM Cliente WHERE IdCliente=", field));
    case Shows::salesperson:
      return none && !two ? nota.nota.cUsuario : userOf(field);
    case Shows::second:
      return two ? userOf(field) : Text();
  }
  return {};
}

}  // namespace

Text onCard(forms::Control& control) {
  const auto* picker = dynamic_cast<forms::DTPicker*>(&control);
  if (!picker) return control.value().text();
  if (picker->Value().isNull()) return u"unticked";
  const Date moment = picker->Value().toDate();
  return control.has(forms::timeOfDay) ? hourOf(moment) : dayOf(moment);
}

std::vector<std::string> guiltyControls(const Instance& nota) {
  std::vector<std::string> guilty;
  const char16_t initial = nota.card().Name().at(3);
  for (const Rule& rule : rules) {
    if (rule.forms.find(initial) == TextView::npos) continue;
    if (!nota.crs().fields().contains(rule.field)) continue;
    const Text shown = onCard(*nota.card().control(rule.control));
    const Variant field = nota.crs().value(rule.field);
    const Text expected = wanted(nota, rule, field);
    if (shown != expected)
      guilty.push_back(toUtf8(join(rule.control, u" shows \"", shown, u"\" and not \"", expected, u"\": ",
                                   rule.field, u" holds ", field.isNull() ? Text(u"Null") : field.text())));
  }
  return guilty;
}

}  // namespace ovalia::kit
