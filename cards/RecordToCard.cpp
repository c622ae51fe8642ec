#include "cards/RecordToCard.h"

#include "attachments/AttachmentList.h"
#include "cards/BlankCard.h"
#include "cards/FillTables.h"
#include "cards/Filling.h"
#include "commands/ToolState.h"
#include "routines/Trap.h"

namespace ovalia {

namespace {

void setTagOfActiveControl(forms::CardForm& card, TextView tag) {
  if (const forms::ControlRef active = card.ActiveControl()) active->Tag = tag;
}

void fill(Instance& nota) {
  forms::CardForm& card = nota.card();
  for (const FillRow& row : fillTable(card.Name())) row.rule(nota, card, row);
  dao::Recordset& crs = nota.crs();
  card.control(u"lblActualizacion")->setValue(crs.value(u"FechaActualizacion").text());
  card.control(u"cboUsuario")->setValue(crs.value(u"Usuario"));
  card.control(u"txtNotas")->setValue(crs.value(u"Notas").text());
}

}  // namespace

void RefrescoFicha(Instance& nota, TextView Accion) {
  procedure(u"RefrescoFicha de CNota", [&] {
    nota.EstadoFicha = cargando;
    forms::CardForm& card = nota.card();
    card.setKeyPreview(true);
    const Filling filling(card);
    setTagOfActiveControl(card, u"");
    if (nota.crs().isBOF() || nota.crs().isEOF()) {
      FichaLimpia(nota);
      return;
    }
    fill(nota);
    RefrescoCaption(nota);
    RefrescoDocs(nota);
    setTagOfActiveControl(card, u"HacerAlgo");
    nota.EstadoFicha = limpia;
    CambiarMenu(nota, Accion, nota.EstadoFicha, u"");
  });
}

void FechayHora(Instance& nota, TextView Campo, TextView Valor) {
  procedure(join(u"FechayHora de CNota (", Campo, u", ", Valor, u") "), [&] {
    if (!trimBlanks(Valor).empty()) nota.crs().setValue(Campo, Variant(Valor).toDate());
  });
}

}  // namespace ovalia
