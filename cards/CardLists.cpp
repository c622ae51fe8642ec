#include "cards/CardLists.h"

#include <array>

#include "cards/EditTracking.h"
#include "cards/Lookups.h"
#include "cards/PickTables.h"
#include "platform/Platform.h"
#include "routines/PickLists.h"
#include "routines/TextHelpers.h"
#include "routines/Trap.h"

namespace ovalia {

namespace {

using forms::ControlRef;

// The control that a list is for, tracked as on taking the focus: a button may have it in its place.
ControlRef trackedControl(Instance& nota, TextView name) {
  const ControlRef control = nota.card().control(name);
  if (control->Tag == HacerAlgo) return control;
  if (nota.EstadoFicha == limpia) control->Tag = HacerAlgo;
  if (nota.EstadoFicha == modificada) control->Tag = HacerNada;
  return control;
}

void chooseFrom(Instance& nota, const PickTable& list) {
  const ControlRef control = trackedControl(nota, list.control);
  Text Cats;
  nota.nota.VerListadoMx(Cats, control->value().toText(), Text(list.tabla), Text(list.Titulo));
  control->SetFocus();
  control->setValue(Cats);
}

// What the host chose instead of the name in a control.
using HostList = Event<const Text&, Text&>;

Text chosenInstead(const HostList& list, const ControlRef& control) {
  Text chosen;
  list(control->value().toText(), chosen);
  return chosen;
}

void reloadAccessTypes(Instance& nota, const ControlRef& combo) {
  callMember(combo, u"Clear");
  const auto names = database().TableDefs(nota.nota.TipoAccNota)->Fields().item(u"Nombre");
  CargarListaCampo(database(), *names, combo, u"", u"");
}

struct ListRow {
  TextView control;
  void (*list)(Instance& nota);
};

constexpr std::array<ListRow, 8> lists{{
    {u"cmdCategorias", ListaCategorias},
    {u"txtCategorias", ListaCategorias},
    {u"cmdMedioPubli", ListaMedioPubli},
    {u"txtDonde", ListaMedioPubli},
    {u"txtCliente", ListaCliente},
    {u"txtOtraAgencia", ListaAgencia},
    {u"cboAcceso", ListaAcceso},
    {u"cboUsuario", ListaUsuario},
}};

}  // namespace

void dNota_VerLista(Instance& nota) {
  const Text name = getMember(Platform::current().screen->activeControl(), u"Name").toText();
  for (const ListRow& row : lists)
    if (row.control == name) row.list(nota);
}

void ListaCategorias(Instance& nota) {
  procedure(u"ListaCategorias de CNota", [&] { chooseFrom(nota, categories); });
}

void ListaMedioPubli(Instance& nota) {
  procedure(u"ListaMedioPubli de CNota", [&] { chooseFrom(nota, media); });
}

void ListaCliente(Instance& nota) {
  procedure(u"ListaCliente de CNota", [&] {
    const ControlRef control = trackedControl(nota, u"txtCliente");
    const Text CliNew = chosenInstead(nota.nota.VerClientes, control);
    control->SetFocus();
    control->setValue(CliNew);
    if (ExisteControl(nota.card().Controls(), u"txtTfnoCliente"))
      nota.card().control(u"txtTfnoCliente")->setValue(TelefonoCliente(std::int32_t(0), CliNew, u"Cliente"));
  });
}

void ListaAgencia(Instance& nota) {
  procedure(u"ListaAgencia de CNota", [&] {
    const ControlRef control = trackedControl(nota, u"txtOtraAgencia");
    const Text CliNew = chosenInstead(nota.nota.VerAgencias, control);
    control->SetFocus();
    control->setValue(CliNew);
  });
}

void ListaUsuario(Instance& nota) {
  procedure(u"ListaUsuario de CNota", [&] {
    const ControlRef control = trackedControl(nota, u"cboUsuario");
    const Text UsuNew = chosenInstead(nota.nota.VerUsuarios, control);
    control->setValue(UsuNew);
    control->SetFocus();
  });
}

void ListaAcceso(Instance& nota) {
  procedure(u"ListaAcceso de CNota", [&] {
    const ControlRef control = trackedControl(nota, u"cboAcceso");
    bool Ok = false;
    Text NewValor;
    nota.nota.ChkTipoAccNota(Ok, control->value().toText(), NewValor);
    reloadAccessTypes(nota, control);
    if (Ok) control->setValue(NewValor);
    control->SetFocus();
  });
}

}  // namespace ovalia
