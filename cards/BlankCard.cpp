#include "cards/BlankCard.h"

#include <array>
#include <span>

#include "attachments/AttachmentList.h"
#include "cards/Filling.h"
#include "forms/VisitTimes.h"
#include "platform/Platform.h"
#include "routines/TextHelpers.h"
#include "routines/Trap.h"

namespace ovalia {

namespace {

// Gives a control its value on a blank card; what `argument` means is the rule's own. No trap.
using BlankRule = void (*)(Instance& nota, forms::Control& control, TextView argument);

struct BlankRow {
  TextView control;
  BlankRule rule;
  TextView argument = {};
};

void text(Instance&, forms::Control& control, TextView value) { control.setValue(value); }

void today(Instance&, forms::Control& control, TextView) {
  control.setValue(Platform::current().clock->today());
}

void timeOfDay(Instance&, forms::Control& control, TextView) {
  control.setValue(Platform::current().clock->timeOfDay());
}

void halfHourAfterControl(Instance& nota, forms::Control& control, TextView start) {
  control.setValue(forms::halfHourAfter(nota.card().control(start)->value().toDate()));
}

void none(Instance&, forms::Control& control, TextView) { control.setValue(Null); }

void untick(Instance&, forms::Control& control, TextView) { control.setValue(std::int16_t(0)); }

void untickIfPresent(Instance& nota, forms::Control& control, TextView field) {
  if (ExisteControl(nota.crs().fields(), field))
    control.setValue(std::int16_t(0));
  else
    control.setVisible(false);
}

void disable(Instance&, forms::Control& control, TextView) { control.setEnabled(false); }

void user(Instance& nota, forms::Control& control, TextView) { control.setValue(nota.nota.cUsuario); }

void emptyIfTwoSalespeople(Instance& nota, forms::Control& control, TextView) {
  if (nota.nota.DosComerciales) control.setValue(u"");
}

// What the host has written into the new row stays.
void field(Instance& nota, forms::Control& control, TextView name) {
  control.setValue(nota.crs().value(name).text());
}

constexpr auto frmNota = std::to_array<BlankRow>({
    {u"cboAcceso", text, u""},
    {u"dtpFechaAlta", today},
    {u"dtpHoraAlta", timeOfDay},
    {u"chkAvisoNota", untick},
    {u"dtpFechaAviso", today},
    {u"cboUsuarioAviso", user},
});

constexpr auto frmVisita = std::to_array<BlankRow>({
    {u"txtAsunto", field, u"Asunto"},
    {u"cboAcceso", text, u""},
    {u"dtpFechaAlta", today},
    {u"dtpHoraAlta", timeOfDay},
    {u"txtUbicacion", field, u"Donde"},
    {u"dtpFechaFin", today},
    {u"dtpHoraFin", halfHourAfterControl, u"dtpHoraAlta"},
    {u"cboComercial", user},
    {u"cboComercial2", emptyIfTwoSalespeople},
    {u"chkAviso", untick},
    {u"cboTiempoAviso", text, u"15 minutos"},
    {u"cboTiempoAviso", disable},
    {u"chkConfirmada", untick},
    {u"chkRealizada", untick},
    {u"chkAnulada", untickIfPresent, u"Anulada"},
});

constexpr auto frmAnuncio = std::to_array<BlankRow>({
    {u"cboAcceso", text, u""},
    {u"dtpFechaAlta", today},
    {u"dtpHoraAlta", timeOfDay},
    {u"dtpFechaInicio", today},
    {u"txtNDias", text, u"1"},
    {u"dtpFechaEnvio", none},
    {u"dtpHoraEnvio", text, u"00:00:00"},
    {u"dtpHoraEnvio", disable},
    {u"chkEnviar", untick},
});

constexpr auto frmLlamada = std::to_array<BlankRow>({
    {u"dtpFechaAlta", today},
    {u"dtpHoraAlta", timeOfDay},
});

struct FormTable {
  TextView form;
  std::span<const BlankRow> rows;
};

constexpr std::array<FormTable, 4> tables{{
    {u"frmNota", frmNota},
    {u"frmVisita", frmVisita},
    {u"frmAnuncio", frmAnuncio},
    {u"frmLlamada", frmLlamada},
}};

std::span<const BlankRow> blankTable(TextView form) {
  for (const FormTable& table : tables)
    if (table.form == form) return table.rows;
  return {};
}

// A call is counted under its advertisement, the others under the parent record.
struct BlankCaption {
  TextView tipo;
  TextView ending;
  bool ofAdvertisement = false;
};

constexpr std::array<BlankCaption, 4> captions{{
    {u"Nota", u" - Nueva Nota"},
    {u"Visita", u" - Nueva Visita"},
    {u"Anuncio", u" - Nuevo Anuncio"},
    {u"Llamada", u" - Nueva Llamada", true},
}};

// The parent record may be new itself and have no key yet.
Variant parentNumber(const ObjectRef& vClase) {
  const bool isNew = compareEqual(getMember(vClase, u"cEstado"), std::int32_t(1)).holds();
  return getMember(vClase, isNew ? u"NumNuevo" : u"IdRegistro");
}

void announceNew(Instance& nota, forms::CardForm& card, const Variant& parent) {
  for (const BlankCaption& row : captions) {
    if (row.tipo != nota.nota.Tipo) continue;
    card.setCaption(row.ofAdvertisement ? join(u"Anuncio: ", nota.crs().value(u"IdAnuncio"), row.ending)
                                        : join(nota.nota.Cabecera, parent, row.ending));
  }
}

void fillBlank(Instance& nota, forms::CardForm& card) {
  const Filling filling(card);
  const Variant parent = parentNumber(objectAt(nota.nota.frmBase, {u"ActiveForm", u"vClase"}));
  LimpiarTextos(card);
  card.control(u"lblActualizacion")->setValue(u"");
  card.control(u"cboUsuario")->setValue(nota.nota.cUsuario);
  for (const BlankRow& row : blankTable(card.Name())) {
    const forms::ControlRef control = card.control(row.control);
    row.rule(nota, *control, row.argument);
  }
  announceNew(nota, card, parent);
  RefrescoDocs(nota);
}

}  // namespace

void FichaLimpia(Instance& nota) {
  procedure(u"FichaLimpia de CNota", [&] { fillBlank(nota, nota.card()); });
}

void LimpiarTextos(forms::Form& form) {
  const auto controls = form.controls();  // the changes raise events, which may do anything
  for (const forms::ControlRef& control : controls)
    if (control->type() == forms::ControlType::TextBox) control->setValue(u"");
}

}  // namespace ovalia
