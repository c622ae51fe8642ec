#include "models/ModelListForm.h"

#include "attachments/StoredPaths.h"
#include "cards/Lookups.h"
#include "models/ModelFolder.h"
#include "routines/Messages.h"
#include "routines/Trap.h"

namespace ovalia {

using forms::Control;
using forms::ControlEvent;
using forms::Grid;

ModelListForm::ModelListForm() : SubjectForm(forms::ListaModelos(), u"txtTMateria") {}

dao::Recordset& ModelListForm::rows() {
  const auto& recordset = as<forms::DataControl>(u"datPlantilla")->Recordset();
  if (!recordset) throw Failure(failure::objectNotSet);
  return *recordset;
}

void ModelListForm::show(TextView statement) {
  as<forms::DataControl>(u"datPlantilla")->setRecordset(database().OpenRecordset(statement));
}

void ModelListForm::enablePart(bool enabled) {
  constexpr std::uint32_t grey = 0xC0C0C0;
  partBox().setEnabled(enabled);
  partBox().setBackColor(enabled ? forms::windowBackground : grey);
  control(u"cmdSubMateria")->setEnabled(enabled);
}

void ModelListForm::onLoad() {
  procedure(u"Form_Load de ListaModelos", [&] {
    if (subjectBox().text().empty()) enablePart(false);
    sort_ = u"Plantilla.Nombre ASC";
    sortedColumn_ = 1;
    RefrescoRecordset();
  });
}

void ModelListForm::SelecModelo(TextView Materia, TextView TMateria, TextView folder, Text& name,
                                Text& chosenFolder) {
  procedure(u"SelecModelo de ListaModelos", [&] {
    subjectBox().setText(Materia);
    partBox().setText(TMateria);
    folder_ = modelFolder(folder);
    Show();
    name = chosenName_;
    chosenFolder = chosenFolder_;
  });
}

bool ModelListForm::isThere(TextView name) const {
  const Text found = storedFileIn(folder_, name);
  return !found.empty() && lowerCase(found) == lowerCase(name);
}

void ModelListForm::cmdAceptar_Click() {
  constexpr std::int32_t okOnly = 0, yesNoExclamation = 52, yes = 6;
  procedure(u"cmdAceptar_Click de ListaModelos", [&] {
    if (grid()->Rows() == 0) {
      MostrarMensaje(u"No existen modelos a asociar.", okOnly, u"");
      return;
    }
    chosenFolder_ = folder_;
    chosenName_ = rows().value(u"nombre").text();
    if (isThere(chosenName_)) {
      Unload();
      return;
    }
    const Text question =
        join(u"El modelo seleccionado no existe.", CRLF, CRLF, u"¿Desea borrar la referencia?");
    if (MostrarMensaje(question, yesNoExclamation, u"Modelo") == yes) deleteReference();
  });
}

void ModelListForm::cmdCancelar_Click() {
  procedure(u"cmdCancelar_Click de ListaModelos", [&] {
    chosenName_.clear();
    chosenFolder_.clear();
    Unload();
  });
}

void ModelListForm::onControl(Control& control, ControlEvent event) {
  constexpr auto chooseSubject = [](ModelListForm& form, Control&) { form.askSubject(); };
  constexpr auto choosePart = [](ModelListForm& form, Control&) { form.askPart(); };
  constexpr auto select = [](ModelListForm& form, Control& box) { form.selectText(box); };
  static constexpr Reaction<ModelListForm> reactions[] = {
      {u"cmdSel", ControlEvent::Click, [](ModelListForm& form, Control&) { form.cmdSel_Click(); }},
      {u"cmdAceptar", ControlEvent::Click, [](ModelListForm& form, Control&) { form.cmdAceptar_Click(); }},
      {u"cmdCancelar", ControlEvent::Click, [](ModelListForm& form, Control&) { form.cmdCancelar_Click(); }},
      {u"cmdMateria", ControlEvent::Click, chooseSubject},
      {u"cmdSubMateria", ControlEvent::Click, choosePart},
      {u"txtMateria", ControlEvent::ShiftEnter,
       [](ModelListForm& form, Control&) {
         procedure(u"txtMateria_KeyDown de ListaModelos", [&] { form.askSubject(); });
       }},
      {u"txtTMateria", ControlEvent::ShiftEnter,
       [](ModelListForm& form, Control&) {
         procedure(u"txtTMateria_KeyDown de ListaModelos", [&] { form.askPart(); });
       }},
      {u"txtMateria", ControlEvent::GotFocus, select},
      {u"txtTMateria", ControlEvent::GotFocus, select},
      {u"txtNotas", ControlEvent::GotFocus, select},
  };
  react(*this, reactions, control, event);
}

void ModelListForm::onValidate(Control& control, bool& cancel) {
  if (control.design().name == u"txtMateria") txtMateria_Validate(cancel);
  if (control.design().name == u"txtTMateria") txtTMateria_Validate(cancel);
}

void ModelListForm::onKeyPress(Control& control, int& character) {
  constexpr int singleQuote = 39;
  static constexpr struct {
    TextView control, name;
  } guarded[] = {
      {u"txtMateria", u"txtMateria_KeyPress de ListaModelos"},
      {u"txtTMateria", u"txtAbogado_Change de ListaModelos"},
  };
  for (const auto& row : guarded)
    if (row.control == control.design().name)
      procedure(row.name, [&] {
        if (character == singleQuote) character = 0;
      });
}

void ModelListForm::onHeadClick(Grid&, int column) {
  procedure(u"grdPlantilla_HeadClick de ListaModelos", [&] {
    clickedColumn_ = static_cast<std::int16_t>(column);
    OrdenarPlantilla(u"");
  });
}

void ModelListForm::onBeforeDelete(Grid& grid, bool& cancel, bool& prompt) {
  procedure(u"grdPlantilla_BeforeDelete de ListaModelos", [&] {
    prompt = false;
    cancel = true;
    if (!grid.SelBookmarks().empty()) AntesBorrarPlatilla();
  });
}

}  // namespace ovalia
