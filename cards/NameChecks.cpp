#include "cards/NameChecks.h"

#include "cards/Lookups.h"
#include "routines/Messages.h"
#include "routines/SqlText.h"
#include "routines/Trap.h"

namespace ovalia {

namespace {

struct HostCheck {
  TextView procedureName;
  TextView field;
  Event<const Text&, Text&, bool&> NotaSurface::*event;
};

constexpr HostCheck clients{u"ComprobarCliFicha de CNota", u"Cliente", &NotaSurface::ChkClientes};
constexpr HostCheck agencies{u"ComprobarAgeFicha de CNota", u"Agencia", &NotaSurface::ChkAgencias};

bool byHost(Instance& nota, Text& name, const HostCheck& check) {
  return procedure(check.procedureName, true, [&](bool& result) {
    const Text before = nota.EstadoFicha == nueva ? Text() : nota.crs().value(check.field).text();
    if (trimBlanks(name) == before) return;
    Text CliNew;
    bool Ok = false;
    (nota.nota.*check.event)(name, CliNew, Ok);
    if (Ok) return;
    result = false;
    if (!CliNew.empty() && CliNew != name) name = CliNew;
  });
}

}  // namespace

bool ComprobarCliFicha(Instance& nota, Text& Cliente) { return byHost(nota, Cliente, clients); }

bool ComprobarAgeFicha(Instance& nota, Text& Agencia) { return byHost(nota, Agencia, agencies); }

bool ComprobarTrabajadores(Text& Nombre) {
  return procedure(u"ComprobarTrabajadores de CNota", true, [&](bool& result) {
    constexpr std::int32_t information = 64;
    if (Nombre.empty()) return;
    const auto rows = database().OpenRecordset(
        join(u"SELECT Nombre FROM Usuario WHERE Nombre = ", ComillaSQL(Nombre)), dao::dbOpenSnapshot);
    if (rows->isEOF()) {
      result = false;
      MostrarMensaje(u"Introduzca una persona de la lista.", information, u"Comercial");
      return;
    }
    Nombre = rows->value(u"nombre").toText();
  });
}

bool ComprobarComercial(Text& Nombre) {
  return procedure(u"ComprobarComercial de CNota", true,
                   [&](bool& result) { result = ComprobarTrabajadores(Nombre); });
}

}  // namespace ovalia
