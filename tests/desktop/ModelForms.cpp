#include "tests/desktop/ModelForms.h"

#include <algorithm>

namespace ovalia::desktop {

void NotingForm::onResize() {
  stretch(std::max(0.0, Width() - design().minimumWidth), std::max(0.0, Height() - design().minimumHeight));
}

void NotingForm::onControl(forms::Control& control, forms::ControlEvent event) {
  if (event == forms::ControlEvent::Click) log.push_back("Click " + toUtf8(control.Name()));
  if (event == forms::ControlEvent::ShiftEnter) log.push_back("ShiftEnter " + toUtf8(control.Name()));
}

void NotingForm::onValidate(forms::Control&, bool& cancel) { validating(cancel); }

void NotingForm::onKeyPress(forms::Control&, int& character) {
  if (character == refusedSign) character = 0;
}

void NotingForm::onHeadClick(forms::Grid&, int column) { log.push_back("Heading " + std::to_string(column)); }

void NotingForm::onBeforeDelete(forms::Grid& grid, bool& cancel, bool&) {
  log.push_back("Delete");
  cancel = true;
  deleting(grid);
}

void ModelForms::fill(int count) {
  models->rows.clear();
  for (int i = 1; i <= count; ++i)
    models->add({i, join(u"Modelo ", i, u".doc"),
                 i == 2 ? Variant(u"Contrato de arras con señal penitencial\r\npara la vivienda habitual")
                        : Variant(join(u"Notas ", i)),
                 i % 3 ? Variant(u"Alquiler de vivienda") : Variant(Null),
                 i % 2 ? Variant(u"Fianza") : Variant(Null)});
}

void ModelForms::list(const std::function<void()>& actions) {
  form = std::make_shared<NotingForm>(forms::ListaModelos());
  form->load();
  form->as<forms::DataControl>(u"datPlantilla")->setRecordset(database->OpenRecordset(u"Lista"));
  whileShown(*form, [&] {
    QCoreApplication::processEvents();
    actions();
  });
}

void ModelForms::making(const std::function<void()>& actions) {
  form = std::make_shared<NotingForm>(forms::frmModelo());
  whileShown(*form, [&] {
    QCoreApplication::processEvents();
    actions();
  });
}

void ModelForms::clickRow(int row, Qt::KeyboardModifiers modifiers) {
  QTest::mouseClick(view().viewport(), Qt::LeftButton, modifiers, at(row));
}

void ModelForms::clickHeading(int column) {
  QTest::mouseClick(view().horizontalHeader()->viewport(), Qt::LeftButton, {}, heading(column));
}

std::vector<int> ModelForms::marked() {
  std::vector<int> rows;
  for (const QModelIndex& index : view().selectionModel()->selectedRows(1)) rows.push_back(index.row());
  std::ranges::sort(rows);
  return rows;
}

int ModelForms::count(const std::string& entry) const {
  return static_cast<int>(std::ranges::count(form->log, entry));
}

}  // namespace ovalia::desktop
