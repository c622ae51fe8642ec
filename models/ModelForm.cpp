#include "models/ModelForm.h"

#include "routines/Trap.h"

namespace ovalia {

using forms::Control;
using forms::ControlEvent;

ModelForm::ModelForm() : SubjectForm(forms::frmModelo(), u"txtSubMateria") {}

void ModelForm::cmdCancelar_Click() {
  procedure(u"cmdCancelar_Click de frmModelo", [&] { Unload(); });
}

void ModelForm::onControl(Control& control, ControlEvent event) {
  constexpr auto chooseSubject = [](ModelForm& form, Control&) { form.askSubject(); };
  constexpr auto choosePart = [](ModelForm& form, Control&) { form.askPart(); };
  constexpr auto select = [](ModelForm& form, Control& box) { form.selectText(box); };
  static constexpr Reaction<ModelForm> reactions[] = {
      {u"cmdAceptar", ControlEvent::Click, [](ModelForm& form, Control&) { form.Aceptar(); }},
      {u"cmdCancelar", ControlEvent::Click, [](ModelForm& form, Control&) { form.cmdCancelar_Click(); }},
      {u"cmdMateria", ControlEvent::Click, chooseSubject},
      {u"txtMateria", ControlEvent::ShiftEnter, chooseSubject},
      {u"cmdSubMateria", ControlEvent::Click, choosePart},
      {u"txtSubMateria", ControlEvent::ShiftEnter, choosePart},
      {u"txtNombre", ControlEvent::GotFocus, select},
      {u"txtMateria", ControlEvent::GotFocus, select},
      {u"txtSubMateria", ControlEvent::GotFocus, select},
  };
  react(*this, reactions, control, event);
}

}  // namespace ovalia
