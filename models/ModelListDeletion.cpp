// Deleting models from `ListaModelos`.
#include "attachments/StoredPaths.h"
#include "models/ModelListForm.h"
#include "routines/FileHelpers.h"
#include "routines/Messages.h"
#include "routines/Trap.h"

namespace ovalia {

namespace {

void backOntoARow(dao::Recordset& rows) {
  if (rows.isEOF()) rows.MoveLast();
  if (rows.isEOF()) rows.MoveFirst();
}

}  // namespace

void ModelListForm::AntesBorrarPlatilla() {
  constexpr std::int32_t yesNoInformation = 68, yes = 6;
  procedure(u"AntesBorrarPlatilla de ListaModelos", [&] {
    const Text question =
        grid()->SelBookmarks().size() == 1
            ? Text(u"¿Desea borrar el modelo marcado?")
            : join(u"Ha seleccionado varios modelos.", CRLF, CRLF, u"¿Desea borrar los modelos marcados?");
    if (MostrarMensaje(question, yesNoInformation, u"Borrar") == yes) AntesBorrarPlantilla2();
  });
}

// The row could have been deleted by another user since its cell was read: then no other goes in its place.
void ModelListForm::deleteRowAt(const Text& bookmark, std::vector<Text>& kept) {
  const std::int32_t key = Variant(grid()->CellText(u"IdPlantilla", bookmark)).toLong();
  rows().FindFirst(join(u"IdPlantilla = ", key));
  if (rows().NoMatch()) throw Failure(dao::failure::recordDeleted);
  if (BorrarPlantilla())
    rows().Delete();
  else
    kept.push_back(bookmark);
}

void ModelListForm::AntesBorrarPlantilla2() {
  const auto grid = this->grid();
  const forms::WithoutRedraw unseen(*grid);
  procedure(u"AntesBorrarPlantilla2 de ListaModelos", [&] {
    std::vector<Text> kept;
    const std::vector<Text> marked = grid->SelBookmarks();
    for (const Text& bookmark : marked) deleteRowAt(bookmark, kept);
    grid->removeMarks();
    for (const Text& bookmark : kept) grid->addMark(bookmark);
    if (grid->Rows() == 0) return;
    rows().MoveNext();
    if (!kept.empty()) backOntoARow(rows());
  });
}

bool ModelListForm::BorrarPlantilla() {
  constexpr std::int32_t okOnly = 0;
  return procedure(u"BorrarPlantilla de ListaModelos", false, [&](bool& gone) {
    const Text name = rows().value(u"nombre").text();
    // A name that no file can have stands for none, and does not keep its row.
    if (isStoredName(name)) {
      EnviarAPapelera(storedPathIn(folder_, name));
      if (isThere(name)) {
        MostrarMensaje(join(u"No se pudo borrar el archivo [", folder_, name, u"]."), okOnly, u"");
        return;
      }
    }
    gone = true;
  });
}

void ModelListForm::deleteReference() {
  const auto grid = this->grid();
  const forms::WithoutRedraw unseen(*grid);
  rows().Delete();
  if (grid->Rows() == 0) return;
  rows().MoveNext();
  backOntoARow(rows());
}

}  // namespace ovalia
