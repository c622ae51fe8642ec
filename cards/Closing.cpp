#include "cards/Closing.h"

#include "cards/Saving.h"
#include "cards/Validation.h"
#include "platform/Platform.h"
#include "routines/TextHelpers.h"
#include "routines/Trap.h"
#include "routines/WindowPlace.h"

namespace ovalia {

namespace {

void storePaneWidth(Instance& nota) {
  forms::CardForm& card = nota.card();
  if (!ExisteControl(card.Controls(), u"splitDocumentos")) return;
  const auto splitter = card.as<forms::Splitter>(u"splitDocumentos");
  const Text width =
      card.control(u"LsvDocu")->Visible() ? Variant(splitter->PaneWidth()).text() : splitter->Tag;
  Platform::current().settings->save(getMember(nota.nota.cApp, u"title").toText(), card.Name(), u"DocsWidth",
                                     width);
}

}  // namespace

void dNota_UnLoad(Instance& nota, bool& Cancel) {
  procedure(u"dNota_UnLoad de CNota", [&] {
    if (nota.EstadoFicha != limpia) {
      if (!ComprobarCambio(nota, true) || !AvisoCambio(nota, u"Preguntar", u"UnLoad")) Cancel = true;
    }
    if (Cancel) return;
    GuardarVentana(nota.dNota);
    storePaneWidth(nota);
  });
}

}  // namespace ovalia
