// Which models `ListaModelos` shows, and in which order.
#include "models/ModelListForm.h"
#include "models/Subjects.h"
#include "routines/SqlText.h"
#include "routines/Trap.h"

namespace ovalia {

namespace {

constexpr TextView ascending = u" ASC", descending = u" DESC";

// What a column is sorted by where its name does not say it.
constexpr struct {
  TextView column, field;
} sortFields[] = {
    {u"Nombre", u"Plantilla.Nombre"},
    {u"Materia", u"Materia.Nombre"},
    {u"TipoMateria", u"TipoMateria.Nombre"},
};

TextView sortField(TextView column) {
  for (const auto& row : sortFields)
    if (row.column == column) return row.field;
  return column;
}

}  // namespace

void ModelListForm::RefrescoRecordset() {
  procedure(u"RefrescoRecordset de ListaModelos", [&] {
    Text statement =
        u"SELECT IdPlantilla, Plantilla.Nombre, Notas, Materia.Nombre As Materia, "
        u"TipoMateria.Nombre As TipoMateria FROM "
        u"((Plantilla LEFT JOIN Materia ON Plantilla.IdMateria = Materia.IdMateria) "
        u" LEFT JOIN TipoMateria ON Plantilla.IdTipoMateria = TipoMateria.IdTipoMateria) ";
    if (!filter_.empty()) statement += join(u"WHERE ", filter_, u" ");
    show(join(statement, u"ORDER BY ", sort_));
  });
}

// In the order of the boxes; a name that is none ends it with what it has so far.
void ModelListForm::buildFilter() {
  const Text subject = subjectBox().text(), part = partBox().text(), notes = box(u"txtNotas").text();
  if (!subject.empty()) filter_ = join(u" Plantilla.IdMateria = ", findMateria(subject)->value(u"IdMateria"));
  if (!part.empty()) {
    const TextView beginning = filter_.empty() ? u" IdTipoMateria = " : u" AND Plantilla.IdTipoMateria = ";
    filter_ += join(beginning, findTipoMateria(part)->value(u"IdTipoMateria"));
  }
  if (!notes.empty())
    filter_ += join(filter_.empty() ? u"" : u" AND ", u"Notas Like '*", Comilla(notes), u"*'");
}

void ModelListForm::cmdSel_Click() {
  procedure(u"cmdSel_Click de ListaModelos", [&] {
    const auto button = control(u"cmdSel");
    if (filter_.empty()) {
      button->setCaption(u"Quitar Selec.");
      buildFilter();
    } else {
      filter_.clear();
      button->setCaption(u"Seleccionar");
    }
    RefrescoRecordset();
  });
}

void ModelListForm::OrdenarPlantilla(TextView Orden) {
  procedure(u"OrdenarPlantilla de ListaModelos", [&] {
    const auto grid = this->grid();
    if (ActiveControl() != grid) return;
    grid->Update();
    const forms::WithoutRedraw unseen(*grid);
    if (Orden.empty() && clickedColumn_ == sortedColumn_)
      direction_ = direction_ == descending ? ascending : descending;
    else
      direction_ = Orden.empty() ? ascending : Orden;
    sort_ = join(sortField(grid->columns()[static_cast<std::size_t>(clickedColumn_)].name), direction_);
    if (grid->Rows() > 0) RefrescoRecordset();
    grid->setHeadStyle(sortedColumn_, u"");
    grid->setHeadStyle(clickedColumn_, direction_ == ascending ? forms::styleAsc : forms::styleDesc);
    sortedColumn_ = clickedColumn_;
  });
}

}  // namespace ovalia
