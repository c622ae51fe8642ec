#include "cards/FillTables.h"

#include <array>
#include <cmath>

#include "cards/LeadTime.h"
#include "cards/Lookups.h"
#include "platform/Platform.h"
#include "routines/TextHelpers.h"

namespace ovalia {

namespace {

constexpr TextView noDate = u"30-12-99";
constexpr TextView noTime = u"00:00:00";

// Day zero is written with hyphens: with slashes it would be a day of 1999.
Text dateText(Date date) {
  return std::floor(date.days) == 0 ? Text(noDate) : formatDate(date, u"dd/MM/yy", regionalNow());
}

Text timeText(Date date) { return formatDate(date, u"hh:mm:ss", regionalNow()); }

void showMoment(forms::CardForm& card, const FillRow& row, const Variant& moment) {
  card.control(row.control)->setValue(moment.isNull() ? Text(noDate) : dateText(moment.toDate()));
  card.control(row.second)->setValue(moment.isNull() ? Text(noTime) : timeText(moment.toDate()));
}

std::int16_t tick(const Variant& condition) { return condition.holds() ? 1 : 0; }

void text(Instance& nota, forms::CardForm& card, const FillRow& row) {
  card.control(row.control)->setValue(nota.crs().value(row.field).text());
}

void moment(Instance& nota, forms::CardForm& card, const FillRow& row) {
  showMoment(card, row, nota.crs().value(row.field));
}

// An end that is not after day zero counts as none.
void endMoment(Instance& nota, forms::CardForm& card, const FillRow& row) {
  const Variant end = nota.crs().value(row.field);
  showMoment(card, row, !end.isNull() && end.toDouble() > 0 ? end : Variant(Null));
}

void dateOrNone(Instance& nota, forms::CardForm& card, const FillRow& row) {
  const Variant date = nota.crs().value(row.field);
  card.control(row.control)->setValue(date.isNull() ? Text(noDate) : dateText(date.toDate()));
}

void dateOrToday(Instance& nota, forms::CardForm& card, const FillRow& row) {
  const Variant date = nota.crs().value(row.field);
  const Date shown = date.isNull() ? Platform::current().clock->today() : date.toDate();
  card.control(row.control)->setValue(dateText(shown));
}

// An advertisement that was not sent has an unticked date and an hour that cannot be set.
void sentMoment(Instance& nota, forms::CardForm& card, const FillRow& row) {
  const Variant sent = nota.crs().value(row.field);
  card.control(row.control)->setValue(sent.isNull() ? Variant(Null) : Variant(dateText(sent.toDate())));
  card.control(row.second)->setValue(sent.isNull() ? Text(noTime) : timeText(sent.toDate()));
  card.control(row.second)->setEnabled(!sent.isNull());
}

void check(Instance& nota, forms::CardForm& card, const FillRow& row) {
  card.control(row.control)->setValue(tick(nota.crs().value(row.field)));
}

void enable(Instance& nota, forms::CardForm& card, const FillRow& row) {
  card.control(row.control)->setEnabled(nota.crs().value(row.field).holds());
}

void checkAndEnable(Instance& nota, forms::CardForm& card, const FillRow& row) {
  const bool set = nota.crs().value(row.field).holds();
  card.control(row.control)->setValue(std::int16_t(set ? 1 : 0));
  card.control(row.second)->setEnabled(set);
}

// A list without the column has no use for the box.
void checkIfPresent(Instance& nota, forms::CardForm& card, const FillRow& row) {
  if (ExisteControl(nota.crs().fields(), row.field))
    check(nota, card, row);
  else
    card.control(row.control)->setVisible(false);
}

void textIfPresent(Instance& nota, forms::CardForm& card, const FillRow& row) {
  if (ExisteControl(nota.crs().fields(), row.field)) text(nota, card, row);
}

void textOrUser(Instance& nota, forms::CardForm& card, const FillRow& row) {
  const Variant name = nota.crs().value(row.field);
  card.control(row.control)->setValue(name.isNull() ? Variant(nota.nota.cUsuario) : name);
}

void clientTelephone(Instance& nota, forms::CardForm& card, const FillRow& row) {
  const Text client = nota.crs().value(u"Cliente").text();
  card.control(row.control)->setValue(TelefonoCliente(nota.crs().value(row.field), client, u"Cliente"));
}

Text userName(const Variant& id) { return id.isNull() ? Text() : nombreDeUsuario(id.toLong()); }

// With one salesperson the user stands in where the visit has none.
void salesperson(Instance& nota, forms::CardForm& card, const FillRow& row) {
  forms::Control& control = *card.control(row.control);
  const Variant id = nota.crs().value(row.field);
  if (!nota.nota.DosComerciales) {
    control.setValue(nota.nota.cUsuario);
    if (id.isNull()) return;
  }
  control.setValue(userName(id));
}

void secondSalesperson(Instance& nota, forms::CardForm& card, const FillRow& row) {
  if (nota.nota.DosComerciales) card.control(row.control)->setValue(userName(nota.crs().value(row.field)));
}

void leadTime(Instance& nota, forms::CardForm& card, const FillRow& row) {
  const Variant duration = nota.crs().value(row.field);
  card.control(row.control)->setValue(duration.isNull() ? Text() : MuestraTiempo(duration.toDate()));
}

constexpr auto frmNota = std::to_array<FillRow>({
    {u"txtAsunto", u"Asunto", text},
    {u"cboAcceso", u"TipoAccNota", text},
    {u"txtCategorias", u"Categorias", text},
    {u"dtpFechaAlta", u"FechaAlta", moment, u"dtpHoraAlta"},
    {u"chkAvisoNota", u"Aviso", check},
    {u"dtpFechaAviso", u"Aviso", enable},
    {u"lblA", u"Aviso", enable},
    {u"cboUsuarioAviso", u"Aviso", enable},
    {u"dtpFechaAviso", u"FechaAviso", dateOrToday},
    {u"cboUsuarioAviso", u"UsuarioAviso", textOrUser},
});

constexpr auto frmVisita = std::to_array<FillRow>({
    {u"txtAsunto", u"Asunto", text},
    {u"cboAcceso", u"TipoAccNota", text},
    {u"txtCategorias", u"Categorias", text},
    {u"dtpFechaAlta", u"FechaComienzo", moment, u"dtpHoraAlta"},
    {u"txtUbicacion", u"Donde", text},
    {u"dtpFechaFin", u"FechaFin", endMoment, u"dtpHoraFin"},
    {u"txtCliente", u"Cliente", text},
    {u"txtTfnoCliente", u"IdCliente", clientTelephone},
    {u"cboComercial", u"IdComercial", salesperson},
    {u"cboComercial2", u"IdComercial2", secondSalesperson},
    {u"txtOtraAgencia", u"Agencia", textIfPresent},
    {u"chkAviso", u"Aviso", checkAndEnable, u"cboTiempoAviso"},
    {u"cboTiempoAviso", u"TiempoAviso", leadTime},
    {u"chkConfirmada", u"Confirmada", check},
    {u"chkRealizada", u"Realizada", check},
    {u"chkAnulada", u"Anulada", checkIfPresent},
});

constexpr auto frmAnuncio = std::to_array<FillRow>({
    {u"txtDonde", u"Donde", text},
    {u"cboAcceso", u"TipoAccNota", text},
    {u"txtCategorias", u"Categorias", text},
    {u"dtpFechaAlta", u"FechaAlta", moment, u"dtpHoraAlta"},
    {u"dtpFechaInicio", u"FechaInicio", dateOrNone},
    {u"txtNDias", u"NDias", text},
    {u"dtpFechaEnvio", u"FechaEnvio", sentMoment, u"dtpHoraEnvio"},
    {u"chkEnviar", u"Enviar", check},
});

constexpr auto frmLlamada = std::to_array<FillRow>({
    {u"dtpFechaAlta", u"FechaAlta", moment, u"dtpHoraAlta"},
});

struct FormTable {
  TextView form;
  std::span<const FillRow> rows;
};

constexpr std::array<FormTable, 4> tables{{
    {u"frmNota", frmNota},
    {u"frmVisita", frmVisita},
    {u"frmAnuncio", frmAnuncio},
    {u"frmLlamada", frmLlamada},
}};

}  // namespace

std::span<const FillRow> fillTable(TextView form) {
  for (const FormTable& table : tables)
    if (table.form == form) return table.rows;
  return {};
}

}  // namespace ovalia
