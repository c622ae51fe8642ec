#include "cards/CardToRecord.h"

#include "cards/SaveTables.h"
#include "routines/Trap.h"

namespace ovalia {

bool GrabaRegistro(Instance& nota) {
  return procedure(u"GrabaRegistro de CNota", false, [&](bool& result) {
    nota.crs().Edit();
    forms::CardForm& card = nota.card();
    for (const SaveRow& row : saveTable(card.Name())) row.rule(nota, card, row);
    for (const SaveRow& row : commonSaveTable()) row.rule(nota, card, row);
    nota.crs().Update(1, false);
    result = true;
  });
}

}  // namespace ovalia
