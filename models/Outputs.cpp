#include "models/Outputs.h"

#include "cards/Saving.h"
#include "cards/Validation.h"
#include "exchange/PassingMarks.h"
#include "models/TemplateChooser.h"
#include "routines/Trap.h"

namespace ovalia {

namespace {

// Whether the export may go on.
bool cardSettled(Instance& nota) {
  const bool unsaved = nota.EstadoFicha == nueva || nota.EstadoFicha == modificada;
  return !unsaved || !ComprobarCambio(nota, true) || AvisoCambio(nota, u"Preguntar", u"Save");
}

std::int32_t currentKey(const Instance& nota) { return nota.crs().fields().at(0)->Value().toLong(); }

}  // namespace

void ImprimirNota(Instance& nota) {
  procedure(u"ImprimirNota de CNota", [&] {
    constexpr bool printing = true;
    auto chosen = chosenTemplate(nota, join(nota.nota.Tipo, u"\\"), printing);
    if (!chosen) return;
    Text notKept;
    ObjectRef word;
    nota.nota.NuevoDoc(notKept, chosen->path, word);
    Pasa_Datos_Dlg(nota, paraImprimir, word);
  });
}

void EMailNota(Instance& nota) {
  procedure(u"EMailNota de CNota", [&] {
    ObjectRef none;
    Pasa_Datos_Dlg(nota, paraCorreo, none);
  });
}

void ExportarNota(Instance& nota) {
  procedure(u"ExportarNota de CNota", [&] {
    if (cardSettled(nota)) nota.nota.ExportarNotas(currentKey(nota));
  });
}

void ExportarVisita(Instance& nota) {
  procedure(u"ExportarVisita de CNota", [&] {
    if (cardSettled(nota) && nota.crs().AbsolutePosition() != -1) nota.nota.ExportarVisitas(currentKey(nota));
  });
}

}  // namespace ovalia
