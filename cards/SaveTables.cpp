#include "cards/SaveTables.h"

#include <array>

#include "cards/Lookups.h"
#include "cards/RecordToCard.h"
#include "platform/Platform.h"
#include "routines/Reminder.h"
#include "routines/SqlText.h"
#include "routines/TextHelpers.h"

namespace ovalia {

namespace {

constexpr NameTable users{u"Usuario", u"IdUsuario", u"Nombre"};
constexpr NameTable accessTypes{u"TipoAccNota", u"IdTipoAccNota", u"Nombre"};
constexpr NameTable clients{u"Cliente", u"IdCliente", u"Alias"};
constexpr NameTable agencies{u"Agencia", u"IdAgencia", u"Alias"};

// The key of a name; Null when the table does not have it.
Variant keyOf(const NameTable& names, TextView name) {
  const auto rows = database().OpenRecordset(
      join(u"SELECT ", names.key, u" FROM ", names.table, u" WHERE ", names.name, u" = ", ComillaSQL(name)),
      dao::dbOpenSnapshot);
  return rows->isEOF() ? Variant(Null) : rows->value(names.key);
}

Text textOf(forms::CardForm& card, TextView control) { return card.control(control)->value().text(); }

Text dateTextOf(forms::CardForm& card, TextView picker) { return card.as<forms::DTPicker>(picker)->text(); }

bool nullOrZero(const Variant& value) { return value.isNull() || compareEqual(value, 0).holds(); }

// Whether the card shows another name than the list has.
bool nameChanged(Instance& nota, forms::CardForm& card, const SaveRow& row) {
  return nota.crs().value(row.second).text() != textOf(card, row.control);
}

void value(Instance& nota, forms::CardForm& card, const SaveRow& row) {
  nota.crs().setValue(row.field, card.control(row.control)->value());
}

void valueIfPresent(Instance& nota, forms::CardForm& card, const SaveRow& row) {
  if (ExisteControl(nota.crs().fields(), row.field)) value(nota, card, row);
}

void valueIfFilled(Instance& nota, forms::CardForm& card, const SaveRow& row) {
  if (!textOf(card, row.control).empty()) value(nota, card, row);
}

void date(Instance& nota, forms::CardForm& card, const SaveRow& row) {
  FechayHora(nota, row.field, dateTextOf(card, row.control));
}

void moment(Instance& nota, forms::CardForm& card, const SaveRow& row) {
  FechayHora(nota, row.field, join(dateTextOf(card, row.control), u" ", dateTextOf(card, row.second)));
}

// The hour of a visit may lie on another day than day zero: only its time of day counts.
void visitMoment(Instance& nota, forms::CardForm& card, const SaveRow& row) {
  const Date hour = card.control(row.second)->value().toDate();
  FechayHora(nota, row.field,
             join(dateTextOf(card, row.control), u" ", formatDate(hour, u"hh:mm:ss", regionalNow())));
}

// An advertisement that was not sent has no date.
void sentMoment(Instance& nota, forms::CardForm& card, const SaveRow& row) {
  if (card.control(row.control)->value().isNull())
    nota.crs().setValue(row.field, Null);
  else
    moment(nota, card, row);
}

void leadTime(Instance& nota, forms::CardForm& card, const SaveRow& row) {
  nota.crs().setValue(row.field, Tiempo(textOf(card, row.control)));
}

void keyOfName(Instance& nota, forms::CardForm& card, const SaveRow& row) {
  nota.crs().setValue(row.field, keyOf(*row.names, textOf(card, row.control)));
}

void keyOfNameIfFilled(Instance& nota, forms::CardForm& card, const SaveRow& row) {
  if (!textOf(card, row.control).empty()) keyOfName(nota, card, row);
}

void secondSalesperson(Instance& nota, forms::CardForm& card, const SaveRow& row) {
  if (nota.nota.DosComerciales) keyOfName(nota, card, row);
}

// A name that nobody has leaves the field as it is.
void personIfChanged(Instance& nota, forms::CardForm& card, const SaveRow& row) {
  if (!nameChanged(nota, card, row)) return;
  const Variant key = keyOf(*row.names, textOf(card, row.control));
  if (!key.isNull()) nota.crs().setValue(row.field, key);
}

// A name that was taken away, or that nobody has, takes the key away.
void keyIfChanged(Instance& nota, forms::CardForm& card, const SaveRow& row) {
  if (!nameChanged(nota, card, row)) return;
  const Text name = textOf(card, row.control);
  nota.crs().setValue(row.field, name.empty() ? Variant(Null) : keyOf(*row.names, name));
}

void agencyIfChanged(Instance& nota, forms::CardForm& card, const SaveRow& row) {
  if (ExisteControl(nota.crs().fields(), row.second)) keyIfChanged(nota, card, row);
}

// A call hangs on the advertisement that the host's form shows at this moment.
void hostAdvertisement(Instance& nota, forms::CardForm&, const SaveRow& row) {
  nota.crs().setValue(row.field, anuncioDelAnfitrion(objectAt(nota.nota.frmBase, {u"ActiveForm"})));
}

void now(Instance& nota, forms::CardForm&, const SaveRow& row) {
  nota.crs().setValue(row.field, Platform::current().clock->now());
}

// The link to the parent is made by the first save and never changed here.
void parentOnce(Instance& nota, forms::CardForm&, const SaveRow& row) {
  if (nota.nota.Tipo == u"Llamada" || !nullOrZero(nota.crs().value(row.field))) return;
  const ObjectRef controller = objectAt(nota.nota.frmBase, {u"ActiveForm", u"vClase"});
  nota.crs().setValue(row.field, getMember(controller, u"IdRegistro"));
}

void agencyOnce(Instance& nota, forms::CardForm&, const SaveRow& row) {
  if (nota.nota.Tipo == u"Llamada" || !ExisteControl(nota.crs().fields(), row.field)) return;
  if (nullOrZero(nota.crs().value(row.field))) nota.crs().setValue(row.field, nota.nota.IdAgencia);
}

constexpr auto frmNota = std::to_array<SaveRow>({
    {u"Asunto", value, u"txtAsunto"},
    {u"IdTipoAccNota", keyOfNameIfFilled, u"cboAcceso", u"", &accessTypes},
    {u"Categorias", value, u"txtCategorias"},
    {u"FechaAlta", moment, u"dtpFechaAlta", u"dtpHoraAlta"},
    {u"Aviso", value, u"chkAvisoNota"},
    {u"FechaAviso", date, u"dtpFechaAviso"},
    {u"IdUsuarioAviso", personIfChanged, u"cboUsuarioAviso", u"UsuarioAviso", &users},
});

constexpr auto frmVisita = std::to_array<SaveRow>({
    {u"Asunto", value, u"txtAsunto"},
    {u"IdTipoAccNota", keyOfNameIfFilled, u"cboAcceso", u"", &accessTypes},
    {u"Categorias", value, u"txtCategorias"},
    {u"FechaComienzo", visitMoment, u"dtpFechaAlta", u"dtpHoraAlta"},
    {u"Donde", value, u"txtUbicacion"},
    {u"FechaFin", visitMoment, u"dtpFechaFin", u"dtpHoraFin"},
    {u"IdCliente", keyIfChanged, u"txtCliente", u"Cliente", &clients},
    {u"IdComercial", keyOfName, u"cboComercial", u"", &users},
    {u"IdComercial2", secondSalesperson, u"cboComercial2", u"", &users},
    {u"IdOtraAgencia", agencyIfChanged, u"txtOtraAgencia", u"Agencia", &agencies},
    {u"Aviso", value, u"chkAviso"},
    {u"TiempoAviso", leadTime, u"cboTiempoAviso"},
    {u"Confirmada", value, u"chkConfirmada"},
    {u"Realizada", value, u"chkRealizada"},
    {u"Anulada", valueIfPresent, u"chkAnulada"},
});

constexpr auto frmAnuncio = std::to_array<SaveRow>({
    {u"Donde", value, u"txtDonde"},
    {u"IdTipoAccNota", keyOfNameIfFilled, u"cboAcceso", u"", &accessTypes},
    {u"Categorias", value, u"txtCategorias"},
    {u"FechaAlta", moment, u"dtpFechaAlta", u"dtpHoraAlta"},
    {u"FechaInicio", date, u"dtpFechaInicio"},
    {u"NDias", valueIfFilled, u"txtNDias"},
    {u"FechaEnvio", sentMoment, u"dtpFechaEnvio", u"dtpHoraEnvio"},
    {u"Enviar", value, u"chkEnviar"},
});

constexpr auto frmLlamada = std::to_array<SaveRow>({
    {u"FechaAlta", moment, u"dtpFechaAlta", u"dtpHoraAlta"},
    {u"IdAnuncio", hostAdvertisement},
});

constexpr auto allForms = std::to_array<SaveRow>({
    {u"FechaActualizacion", now},
    {u"IdUsuario", personIfChanged, u"cboUsuario", u"Usuario", &users},
    {u"Notas", value, u"txtNotas"},
    {u"Id", parentOnce},
    {u"IdAgencia", agencyOnce},
});

struct FormTable {
  TextView form;
  std::span<const SaveRow> rows;
};

constexpr std::array<FormTable, 4> tables{{
    {u"frmNota", frmNota},
    {u"frmVisita", frmVisita},
    {u"frmAnuncio", frmAnuncio},
    {u"frmLlamada", frmLlamada},
}};

}  // namespace

std::span<const SaveRow> saveTable(TextView form) {
  for (const FormTable& table : tables)
    if (table.form == form) return table.rows;
  return {};
}

std::span<const SaveRow> commonSaveTable() { return allForms; }

}  // namespace ovalia
