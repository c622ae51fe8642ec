// What leaving the boxes of `ListaModelos` does.
#include "cards/Lookups.h"
#include "models/ModelListForm.h"
#include "models/Subjects.h"
#include "routines/PickLists.h"
#include "routines/SqlText.h"
#include "routines/Trap.h"

namespace ovalia {

namespace {

constexpr TextView modelsWithoutSubject = u"SELECT Nombre, Notas FROM Plantilla";

bool countsAny(const Text& statement) {
  return database().OpenRecordset(statement, dao::dbOpenSnapshot)->value(u"N").toLong() != 0;
}

}  // namespace

bool ModelListForm::ComprobarMateria(TextView texto, Text& nuevo) {
  return procedure(u"ComprobarMateria de ListaModelos", false, [&](bool& valid) {
    constexpr std::int16_t width = 2500;
    valid =
        texto.empty() || countsAny(join(u"Select Count(IdMateria) As N", u" From Materia  Where Nombre = ",
                                        ComillaSQL(trimBlanks(texto))));
    if (valid) return;
    Text element;
    VerListadoSimple(Text(texto), nuevo, u"Materia", u"", element, {}, false, u"Nombre", true, true, true,
                     width, 0, u"", false);
  });
}

bool ModelListForm::ComprobarTMateria(TextView materia, TextView tipo, Text& nuevo, bool mostrar) {
  return procedure(u"ComprobarTMateria de ListaModelos", false, [&](bool& valid) {
    const Variant subject = findMateria(materia)->value(u"IdMateria");
    valid = countsAny(join(u"Select Count(IdTipoMateria) As N", u" From TipoMateria  Where Nombre = ",
                           ComillaSQL(tipo), u" And IdMateria = ", subject));
    if (valid || !mostrar) return;
    bool ok = false;
    VerTMateria(ok, Text(materia), Text(tipo), nuevo);
  });
}

void ModelListForm::showModelsOf(TextView materia) {
  show(join(modelsWithoutSubject, u" WHERE IdMateria = ", findMateria(materia)->value(u"IdMateria")));
}

void ModelListForm::txtMateria_Validate(bool& cancel) {
  procedure(u"txtMateria_Validate de ListaModelos", [&] {
    const auto subject = as<forms::TextBox>(u"txtMateria");
    partBox().setText(u"");
    const bool empty = trimBlanks(subject->text()).empty();
    enablePart(!empty);
    if (empty) return show(modelsWithoutSubject);
    Text better;
    if (ComprobarMateria(subject->text(), better)) return showModelsOf(subject->text());
    cancel = true;
    if (better == subject->text()) return;
    subject->setText(better);
    partBox().setText(u"");
    if (!better.empty()) showModelsOf(better);
  });
}

void ModelListForm::txtTMateria_Validate(bool& cancel) {
  procedure(u"txtTMateria_Validate de ListaModelos", [&] {
    const auto part = as<forms::TextBox>(u"txtTMateria");
    if (part->text().empty()) return;
    const auto keys = [&] {
      const Variant subject = findMateria(subjectBox().text())->value(u"IdMateria");
      const Variant type = findTipoMateria(part->text())->value(u"IdTipoMateria");
      return join(u" WHERE IdMateria = ", subject, u" AND IdTipoMateria = ", type);
    };
    Text better;
    if (ComprobarTMateria(subjectBox().text(), part->text(), better, true))
      return show(join(modelsWithoutSubject, keys()));
    cancel = true;
    if (better == part->text()) return;
    part->setText(better);
    if (!better.empty()) keys();
  });
}

}  // namespace ovalia
