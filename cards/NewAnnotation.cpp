#include "cards/NewAnnotation.h"

#include "cards/BlankCard.h"
#include "cards/Lookups.h"
#include "cards/Saving.h"
#include "cards/Validation.h"
#include "commands/ToolState.h"
#include "platform/Platform.h"
#include "routines/Messages.h"
#include "routines/SqlText.h"
#include "routines/TextHelpers.h"
#include "routines/Trap.h"

namespace ovalia {

namespace {

constexpr TextView telephoneCall = u"Llamada";

// What the row is inserted with and recognised by.
struct Creation {
  std::int32_t parent;
  Text moment;  // one literal for the statement and the search
  Variant idUsuario;
};

Variant idOfUser(TextView name) {
  return database()
      .OpenRecordset(join(u"SELECT IdUsuario FROM Usuario WHERE Nombre = ", name), dao::dbOpenSnapshot)
      ->value(u"IdUsuario");
}

Text callStatement(Instance& nota, const Creation& row) {
  return join(u"INSERT INTO ", nota.nota.Nota, u" (IdAnuncio, IdUsuario, FechaAlta) VALUES (",
              anuncioDelAnfitrion(nota.FormActiva), u",", row.idUsuario, u",", row.moment, u")");
}

// The columns that the host's query shows decide, not those of the table.
Text statement(Instance& nota, const Creation& row) {
  const NotaSurface& host = nota.nota;
  Text names = host.IdPr, values = join(row.parent);
  const auto add = [&](TextView name, const Variant& value) {
    names += join(u", ", name);
    values += join(u",", value);
  };
  const auto addIfShown = [&](TextView name, const Variant& value) {
    if (ExisteControl(nota.crs().fields(), name)) add(name, value);
  };
  if (host.IdAnota > 0) add(nota.crs().fields().at(0)->Name(), host.IdAnota);
  addIfShown(u"IdAgencia", host.IdAgencia);
  addIfShown(u"NAgencia", host.NAgencia);
  addIfShown(u"IdComercial", row.idUsuario);
  add(u"IdUsuario", row.idUsuario);
  add(u"FechaAlta", row.moment);
  return join(u"INSERT INTO ", host.Nota, u" (", names, u") VALUES (", values, u")");
}

void insert(Instance& nota, const Creation& row) {
  constexpr std::int32_t critical = 16;
  database().Execute(nota.nota.Tipo == telephoneCall ? callStatement(nota, row) : statement(nota, row));
  if (database().RecordsAffected() == 0) MostrarMensaje(u"Error en nueva nota.", critical, u"");
}

bool find(Instance& nota, const Creation& row) {
  constexpr std::int32_t information = 64;
  const Text parent = nota.nota.Tipo == telephoneCall
                          ? join(u"IdAnuncio = ", anuncioDelAnfitrion(nota.FormActiva))
                          : join(u"Id = ", row.parent);
  nota.crs().FindFirst(join(parent, u" AND IdUsuario = ", row.idUsuario, u" AND FechaAlta = ", row.moment));
  if (!nota.crs().NoMatch()) return true;
  MostrarMensaje(u"Por favor, guarde los cambios antes de generar una nueva anotación.", information, u"");
  return false;
}

void putOnCard(Instance& nota) {
  nota.EstadoFicha = cargando;
  FichaLimpia(nota);
  nota.EstadoFicha = nueva;
  CambiarMenu(nota, u"NuevoDato", nota.EstadoFicha, u"");
}

bool userKeepsCard(Instance& nota) {
  const bool unsaved = nota.EstadoFicha == nueva || nota.EstadoFicha == modificada;
  return unsaved && ComprobarCambio(nota, true) && !AvisoCambio(nota, u"Preguntar", u"Save");
}

}  // namespace

bool Nuevo(Instance& nota) {
  return procedure(u"Nuevo de CNota", false, [&](bool& created) {
    if (userKeepsCard(nota)) return;
    nota.FormActiva = getMember(nota.nota.frmBase, u"ActiveForm").toObject();
    const std::int32_t parent = getMember(objectAt(nota.FormActiva, {u"vClase"}), u"IdRegistro").toLong();
    const Text moment = VDate(Platform::current().clock->now(), false);
    const Creation row{parent, moment, idOfUser(ComillaSQL(nota.nota.cUsuario))};
    insert(nota, row);
    nota.nota.CargaRegistros(nota.nota.Tipo, nota.nota.Nota);
    if (!find(nota, row)) return;
    nota.nota.CompletarNueva(nota.nota.Tipo, nota.nota.crs);
    putOnCard(nota);
    created = true;
  });
}

}  // namespace ovalia
