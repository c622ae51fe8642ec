#include "models/ModelList.h"

#include "models/ModelListForm.h"
#include "platform/Platform.h"

namespace ovalia {

namespace {

std::shared_ptr<ModelListForm> makeForm(Instance& nota) {
  const auto form = std::make_shared<ModelListForm>();
  form->VerMateria.connect([&nota](bool& ok, const Text& initial, Text& chosen) {
    dlgListaModelos_VerMateria(nota, ok, initial, chosen);
  });
  form->VerTMateria.connect([&nota](bool& ok, const Variant& subject, const Text& initial, Text& chosen) {
    dlgListaModelos_VerTMateria(nota, ok, subject, initial, chosen);
  });
  return form;
}

}  // namespace

void SelecModelo(Instance& nota, const Text& Materia, const Text& TMateria, const Text& folder, Text& name,
                 Text& chosenFolder) {
  name.clear();
  chosenFolder.clear();
  const auto form = makeForm(nota);
  form->load();
  nota.dlgListaModelos = form;
  form->SelecModelo(Materia, TMateria, logicPath(folder), name, chosenFolder);
  nota.dlgListaModelos.reset();
}

void dlgListaModelos_VerMateria(Instance& nota, bool& Ok, const Text& ValInicial, Text& ValFinal) {
  nota.nota.VerMateria(Ok, ValInicial, ValFinal);
}

void dlgListaModelos_VerTMateria(Instance& nota, bool& Ok, const Variant& Materia, const Text& ValInicial,
                                 Text& ValFinal) {
  nota.nota.VerTMateria(Ok, Materia, ValInicial, ValFinal);
}

}  // namespace ovalia
