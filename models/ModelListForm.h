#pragma once

#include <cstdint>

#include "models/SubjectForm.h"
#include "platform/dao.h"

namespace ovalia {

// `ListaModelos`: the rows of table Plantilla with their subject and sub-matter, to choose one, narrow and
// sort the list, delete some. Its members trap their failures and report them as "... de ListaModelos".
class ModelListForm : public SubjectForm {
 public:
  ModelListForm();

  // Shows the form modally with a subject and a sub-matter in its boxes; models are below `folder`, a
  // "\"-separated data folder. Gives the chosen model's name and its folder, which can both be "" and, where
  // a choice was refused and the window then closed, name a model that is not there.
  void SelecModelo(TextView Materia, TextView TMateria, TextView folder, Text& name, Text& chosenFolder);

  // Reads the whole list, by the filter and the sort in force.
  void RefrescoRecordset();

  // Sorts by the heading clicked last, in the given direction (" ASC", " DESC") or, with "", upwards, and the
  // other way on the column that is sorted already. Only while the grid has the focus.
  void OrdenarPlantilla(TextView Orden);

  // Deletes the marked models after a question; without. Each document goes to the recycle bin before its
  // row; a row whose document stays is kept and stays marked.
  void AntesBorrarPlatilla();
  void AntesBorrarPlantilla2();

  // Sends the current row's document to the recycle bin; whether it is gone. One that was not there is.
  bool BorrarPlantilla();

  // Whether a subject exists, or the text is empty; otherwise the pick list gives `nuevo`.
  bool ComprobarMateria(TextView texto, Text& nuevo);

  // Whether a subject has that sub-matter; otherwise, with `mostrar`, the host gives `nuevo`.
  bool ComprobarTMateria(TextView materia, TextView tipo, Text& nuevo, bool mostrar);

 protected:
  void onLoad() override;
  void onControl(forms::Control& control, forms::ControlEvent event) override;
  void onValidate(forms::Control& control, bool& cancel) override;
  void onKeyPress(forms::Control& control, int& character) override;
  void onHeadClick(forms::Grid& grid, int column) override;
  void onBeforeDelete(forms::Grid& grid, bool& cancel, bool& prompt) override;

 private:
  void cmdSel_Click();
  void cmdAceptar_Click();
  void cmdCancelar_Click();
  void txtMateria_Validate(bool& cancel);
  void txtTMateria_Validate(bool& cancel);

  std::shared_ptr<forms::Grid> grid() { return as<forms::Grid>(u"grdPlantilla"); }
  dao::Recordset& rows();  // 91 before the list was ever read
  void show(TextView statement);
  void showModelsOf(TextView materia);
  void enablePart(bool enabled);
  void buildFilter();
  void deleteRowAt(const Text& bookmark, std::vector<Text>& kept);
  void deleteReference();
  bool isThere(TextView name) const;

  Text folder_;  // of the models
  Text chosenName_, chosenFolder_;
  Text filter_;
  Text sort_;
  std::int16_t sortedColumn_ = 1;
  std::int16_t clickedColumn_ = 0;
  Text direction_;
};

}  // namespace ovalia
