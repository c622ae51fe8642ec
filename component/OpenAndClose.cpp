#include "component/OpenAndClose.h"

#include "cards/NewAnnotation.h"
#include "cards/RecordToCard.h"
#include "cards/Saving.h"
#include "cards/Validation.h"
#include "component/EventRouting.h"
#include "instance/Kinds.h"
#include "platform/Platform.h"
#include "routines/TextHelpers.h"
#include "routines/Trap.h"
#include "routines/WindowPlace.h"

namespace ovalia {

namespace {

// Makes the card of the kind the one in use. Nothing for a `Tipo` outside the four.
CardRef takeForm(Instance& nota) {
  const Kind* kind = kindOf(nota.nota.Tipo);
  if (!kind) return nullptr;
  CardRef& form = nota.*(kind->form);
  if (!form) {
    form = std::make_shared<forms::CardForm>(kind->design());
    connectCard(nota, *form);
  }
  nota.dNota = form;
  return form;
}

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

void CreaNota(Instance& nota) {
  procedure(u"CreaNota de CNota", [&] {
    if (nota.nota.IdAnota > 0) nota.nota.bPermitirCreacion = false;
    const CardRef form = takeForm(nota);
    if (form && Nuevo(nota)) form->Show();
  });
}

void AbreNota(Instance& nota) {
  procedure(u"AbreNota de CNota", [&] {
    nota.FormActiva = getMember(nota.nota.frmBase, u"ActiveForm").toObject();
    const CardRef form = takeForm(nota);
    if (!form) return;
    RefrescoFicha(nota, u"");
    form->Show();
  });
}

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

void Class_Terminate(Instance& nota) {
  procedure(u"Class_Terminate de CNota", [&] {
    for (const Kind& kind : kinds()) {
      CardRef& form = nota.*(kind.form);
      if (!form) continue;
      form->Unload();
      form.reset();
    }
    nota.dNota.reset();
  });
}

}  // namespace ovalia
