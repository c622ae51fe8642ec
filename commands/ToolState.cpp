#include "commands/ToolState.h"

#include <algorithm>
#include <iterator>

#include "platform/Platform.h"
#include "routines/Trap.h"

namespace ovalia {

namespace {

void enable(Instance& nota, TextView id, bool enabled) {
  nota.card().toolbars().tool(id)->setEnabled(enabled);
}

// What is done to the record tools after an action; others leave them.
struct ActionRow {
  TextView accion;
  bool activo;
  TextView disabled;  // a tool of its own, "" for none
};

constexpr ActionRow actions[] = {
    {u"OrdenAscendente", true, u""}, {u"OrdenDescendente", true, u""},
    {u"Guardar", true, u""},         {u"Borrar", true, u""},
    {u"Lista", true, u""},           {u"Ficha", true, u"ID_mnuOrden"},
    {u"Nada", false, u""},
};

struct StateRow {
  std::int32_t estado;
  bool unsaved;
};

constexpr StateRow states[] = {{limpia, false}, {nueva, true}, {modificada, true}};

enum class Rule { follows, never, followsIfCreating };

struct RecordTool {
  TextView id;
  Rule rule;
};

constexpr RecordTool recordTools[] = {
    {u"ID_Imprimir", Rule::follows},      {u"ID_Aniadir", Rule::followsIfCreating},
    {u"ID_Borrar", Rule::follows},        {u"ID_Guardar", Rule::never},
    {u"ID_DeshacerCambios", Rule::never}, {u"ID_Buscar", Rule::follows},
    {u"ID_Primero", Rule::follows},       {u"ID_Anterior", Rule::follows},
    {u"ID_Siguiente", Rule::follows},     {u"ID_Ultimo", Rule::follows},
};

// The first row that fits decides.
struct PlaceRow {
  bool (*fits)(std::int32_t position, std::int32_t count);
  bool back, forward;
};

constexpr PlaceRow places[] = {
    {[](std::int32_t p, std::int32_t) { return p == -1; }, false, false},
    {[](std::int32_t p, std::int32_t n) { return p == 0 && p + 1 == n; }, false, false},
    {[](std::int32_t p, std::int32_t) { return p == 0; }, false, true},
    {[](std::int32_t p, std::int32_t n) { return p + 1 == n; }, true, false},
    {[](std::int32_t, std::int32_t) { return true; }, true, true},
};

void byAction(Instance& nota, TextView accion) {
  const auto row = std::find_if(std::begin(actions), std::end(actions),
                                [&](const ActionRow& candidate) { return candidate.accion == accion; });
  if (row == std::end(actions)) return;
  DatosGuardados(nota, row->activo);
  if (!row->disabled.empty()) enable(nota, row->disabled, false);
}

void byState(Instance& nota, std::int32_t estado) {
  for (const StateRow& row : states) {
    if (row.estado != estado) continue;
    enable(nota, u"ID_Guardar", row.unsaved);
    enable(nota, u"ID_DeshacerCambios", row.unsaved);
  }
}

void byPlace(Instance& nota) {
  const std::int32_t position = nota.crs().AbsolutePosition();
  const std::int32_t count = nota.crs().RecordCount();
  const PlaceRow& row = *std::find_if(std::begin(places), std::end(places), [=](const PlaceRow& candidate) {
    return candidate.fits(position, count);
  });
  enable(nota, u"ID_Primero", row.back);
  enable(nota, u"ID_Anterior", row.back);
  enable(nota, u"ID_Siguiente", row.forward);
  enable(nota, u"ID_Ultimo", row.forward);
}

constexpr TextView attachmentTools[] = {u"ID_Abrir", u"ID_Quitar", u"ID_CrearModelo", u"ID_Copiar"};

}  // namespace

void CambiarMenu(Instance& nota, TextView Accion, std::int32_t Estado, TextView) {
  procedure(u"CambiarMenu de CNota", [&] {
    byAction(nota, Accion);
    byState(nota, Estado);
    byPlace(nota);
  });
}

void DatosGuardados(Instance& nota, bool activo) {
  procedure(u"DatosGuardados de CNota", [&] {
    for (const RecordTool& tool : recordTools) {
      if (tool.rule == Rule::followsIfCreating && !nota.nota.bPermitirCreacion) continue;
      enable(nota, tool.id, tool.rule == Rule::never ? false : activo);
    }
  });
}

void CambiarMenuNotas(Instance& nota) {
  procedure(u"CambiarMenuNotas de CNota", [&] {
    forms::CardForm& card = nota.card();
    const auto list = card.as<forms::ListView>(u"LsvDocu");
    const bool seleccion = card.ActiveControl() == list && list->selectedIndex() > 0;
    for (const TextView id : attachmentTools) enable(nota, id, seleccion);
    enable(nota, u"ID_Pegar", Platform::current().clipboard->has(Clipboard::filesFormat));
  });
}

}  // namespace ovalia
