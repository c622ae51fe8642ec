#include "component/OpenAndClose.h"

#include "cards/NewAnnotation.h"
#include "cards/RecordToCard.h"
#include "component/EventRouting.h"
#include "instance/Kinds.h"
#include "routines/Trap.h"

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
