#include "cards/EditTracking.h"

#include <array>

#include "cards/FieldComparison.h"
#include "cards/Lookups.h"
#include "commands/ToolState.h"
#include "platform/Platform.h"
#include "routines/SqlText.h"
#include "routines/TextHelpers.h"
#include "routines/Trap.h"

namespace ovalia {

namespace {

// A control of the form that the user is on, by name.
ObjectRef onActiveForm(TextView control) {
  return getMember(Platform::current().screen->activeForm(), control).toObject();
}

// A picker as "&" writes it, day zero with hyphens.
Text pickerText(const ObjectRef& control) {
  if (const auto* picker = dynamic_cast<const forms::DTPicker*>(control.get())) return picker->text();
  return Variant(control).text();
}

// A date picker and the time picker beside it; without one the date's value alone.
struct PickerPair {
  TextView date;
  TextView hour;

  Variant value() const {
    if (hour.empty()) return Variant(onActiveForm(date)).plain();
    return join(pickerText(onActiveForm(date)), u" ", pickerText(onActiveForm(hour)));
  }
};

constexpr PickerPair start{u"dtpFechaAlta", u"dtpHoraAlta"};
constexpr PickerPair end{u"dtpFechaFin", u"dtpHoraFin"};
constexpr PickerPair sent{u"dtpFechaEnvio", u"dtpHoraEnvio"};
constexpr PickerPair publication{u"dtpFechaInicio", u""};

// Which field a picker is compared with on taking the focus: the same for every kind, a visit's start too.
struct EnteredRow {
  TextView control;
  const PickerPair& pair;
  TextView field;
};

constexpr std::array<EnteredRow, 7> entered{{
    {u"dtpFechaAlta", start, u"FechaAlta"},
    {u"dtpHoraAlta", start, u"FechaAlta"},
    {u"dtpFechaFin", end, u"FechaFin"},
    {u"dtpHoraFin", end, u"FechaFin"},
    {u"dtpFechaInicio", publication, u"FechaInicio"},
    {u"dtpFechaEnvio", sent, u"FechaEnvio"},
    {u"dtpHoraEnvio", sent, u"FechaEnvio"},
}};

using ShownValue = Variant (*)(forms::Control& control);

template <const PickerPair& pair>
Variant pickers(forms::Control&) {
  return pair.value();
}

Variant value(forms::Control& control) { return control.get(u"Value"); }

Variant text(forms::Control& control) { return control.get(u"Text"); }

// The key of the user whose name is shown, 0 for a name that nobody has.
Variant idOfName(forms::Control& control) {
  const auto rows = database().OpenRecordset(
      join(u"SELECT IdUsuario FROM Usuario WHERE Nombre = ", ComillaSQL(text(control).toText())),
      dao::dbOpenSnapshot);
  return rows->isEOF() ? std::int32_t(0) : rows->value(u"IdUsuario").toLong();
}

// What of a control is compared with its field; the text of those that have no row.
struct ShownRow {
  TextView control;
  ShownValue shown;
};

constexpr std::array<ShownRow, 15> shownRows{{
    {u"dtpFechaAlta", pickers<start>},
    {u"dtpHoraAlta", pickers<start>},
    {u"dtpFechaFin", pickers<end>},
    {u"dtpHoraFin", pickers<end>},
    {u"dtpFechaEnvio", pickers<sent>},
    {u"dtpHoraEnvio", pickers<sent>},
    {u"dtpFechaInicio", value},
    {u"dtpFechaAviso", value},
    {u"chkAviso", value},
    {u"chkAvisoNota", value},
    {u"chkConfirmada", value},
    {u"chkRealizada", value},
    {u"chkEnviar", value},
    {u"chkAnulada", value},
    {u"cboComercial", idOfName},
}};

Variant shownBy(forms::Control& control) {
  for (const ShownRow& row : shownRows)
    if (row.control == control.Name()) return row.shown(control);
  return text(control);
}

// What a reminder's box enables.
struct CompanionRow {
  TextView box;
  TextView companion;
};

constexpr std::array<CompanionRow, 4> companions{{
    {u"chkAviso", u"cboTiempoAviso"},
    {u"chkAvisoNota", u"dtpFechaAviso"},
    {u"chkAvisoNota", u"lblA"},
    {u"chkAvisoNota", u"cboUsuarioAviso"},
}};

void enableCompanions(forms::Control& box) {
  for (const CompanionRow& row : companions) {
    if (row.box != box.Name()) continue;
    const bool ticked = compareEqual(value(box), std::int32_t(1)).holds();
    putMember(onActiveForm(row.companion), u"Enabled", ticked);
  }
}

// The field itself: reading it is part of the comparison.
void compare(Instance& nota, const Variant& shown, TextView campo) {
  const auto field = nota.crs().fields().item(campo);
  nota.EstadoFicha = NuevoEstado(nota, nota.EstadoFicha, shown, field);
}

forms::Control& required(const forms::ControlRef& control) {
  if (!control) throw Failure(failure::objectNotSet);
  return *control;
}

}  // namespace

void dNota_Cambio(Instance& nota, const forms::ControlRef& control, TextView campo) {
  procedure(u"dNota_Cambio de CNota", [&] {
    if (nota.EstadoFicha == cargando) return;
    forms::Control& changed = required(control);
    enableCompanions(changed);
    if (changed.Tag == HacerAlgo) compare(nota, shownBy(changed), campo);
  });
}

void dNota_CogerFoco(Instance& nota, const forms::ControlRef& control) {
  procedure(u"dNota_CogerFoco de CNota", [&] {
    forms::Control& arriving = required(control);
    PrepararTag(nota.EstadoFicha, arriving);
    if (arriving.type() == forms::ControlType::TextBox && arriving.Name() != u"txtNotas") Remarcar(control);
    if (arriving.Tag != HacerAlgo) return;
    for (const EnteredRow& row : entered)
      if (row.control == arriving.Name()) compare(nota, row.pair.value(), row.field);
  });
}

std::int32_t NuevoEstado(Instance& nota, std::int32_t Estado, const Variant& ValorFicha,
                         const Variant& ValorCampo) {
  return procedure(u"NuevoEstado de CNota", limpia, [&](std::int32_t& result) {
    std::int32_t state = Estado;
    if (state == limpia || state == modificada) {
      if (const auto different = differs(ValorFicha.plain(), ValorCampo.plain()))
        state = *different ? modificada : limpia;
      CambiarMenu(nota, u"", state, u"");
    }
    result = state;
  });
}

void PrepararTag(std::int32_t Estado, forms::Control& control) {
  if (control.Tag == HacerAlgo || Estado == nueva) return;
  control.Tag = Estado == modificada ? HacerNada : HacerAlgo;
}

}  // namespace ovalia
