#include "cards/Validation.h"

#include <array>

#include "cards/LeadTime.h"
#include "cards/Lookups.h"
#include "cards/NameChecks.h"
#include "cards/PickTables.h"
#include "routines/Reminder.h"
#include "routines/SqlText.h"
#include "routines/TextHelpers.h"
#include "routines/Trap.h"

namespace ovalia {

namespace {

using forms::ControlRef;

// A check of one control; `ok` is true when it starts. No trap.
using Check = void (*)(Instance& nota, const ControlRef& control, bool ask, bool& ok);

template <const PickTable& list>
void inHostsList(Instance& nota, const ControlRef& control, bool, bool& ok) {
  bool Ok = false;
  nota.nota.ChkListadoMx(Ok, control, Text(list.tabla), Text(list.Titulo));
  ok = Ok;
}

// The telephone follows the name that stands there now, accepted or not.
void client(Instance& nota, const ControlRef& control, bool, bool& ok) {
  Text name = control->value().toText();
  ok = ComprobarCliFicha(nota, name);
  control->setValue(name);
  nota.card().control(u"txtTfnoCliente")->setValue(TelefonoCliente(std::int32_t(0), name, u"Cliente"));
}

void agency(Instance& nota, const ControlRef& control, bool, bool& ok) {
  Text name = control->value().toText();
  ok = ComprobarAgeFicha(nota, name);
  control->setValue(name);
}

void accessType(Instance& nota, const ControlRef& control, bool ask, bool& ok) {
  const Text name = control->value().toText();
  if (name.empty()) return;
  const auto rows = database().OpenRecordset(
      join(u"SELECT IdTipoAccNota FROM TipoAccNota WHERE Nombre = ", ComillaSQL(name)), dao::dbOpenSnapshot);
  if (!rows->isEOF()) return;
  ok = false;
  if (!ask) return;
  bool Ok = false;
  Text NewValor;
  nota.nota.ChkTipoAccNota(Ok, name, NewValor);
  if (Ok) control->setValue(NewValor);
}

void leadTime(Instance&, const ControlRef& control, bool, bool&) {
  const Text words = control->value().toText();
  if (!words.empty()) control->setValue(MuestraTiempo(Tiempo(words)));
}

void salesperson(Instance&, const ControlRef& control, bool, bool& ok) {
  Text name = control->value().toText();
  ok = ComprobarComercial(name);
  control->setValue(name);
}

void days(Instance&, const ControlRef& control, bool, bool& ok) {
  Variant typed = control->value();
  if (typed.toText().empty()) return;
  ok = ComprobarByte(typed, true);
  if (!ok) Remarcar(control);
}

struct CheckRow {
  TextView control;
  Check check;
};

constexpr std::array<CheckRow, 9> checks{{
    {categories.control, inHostsList<categories>},
    {media.control, inHostsList<media>},
    {u"txtCliente", client},
    {u"txtOtraAgencia", agency},
    {u"cboAcceso", accessType},
    {u"cboTiempoAviso", leadTime},
    {u"cboComercial", salesperson},
    {u"cboComercial2", salesperson},
    {u"txtNDias", days},
}};

}  // namespace

bool ComprobarCambio(Instance& nota, bool Preguntar) {
  return procedure(u"ComprobarCambio de CNota", true, [&](bool& ok) {
    if (nota.EstadoFicha == limpia) return;
    const ControlRef active = nota.card().ActiveControl();
    if (!active) return;
    if (active->type() == forms::ControlType::TextBox) active->setValue(trimBlanks(active->value().toText()));
    for (const CheckRow& row : checks)
      if (row.control == active->Name()) return row.check(nota, active, Preguntar, ok);
  });
}

}  // namespace ovalia
