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
  constexpr auto select = [](ModelForm& form, Control& box) { form.selectText(box); };
  static constexpr Reaction<ModelForm> reactions[] = {
      {u"cmdAceptar", ControlEvent::Click,
       [](ModelForm& form, Control&) {
         procedure(u"cmdAceptar_Click de frmModelo", [&] { form.Aceptar(); });
       }},
      {u"cmdCancelar", ControlEvent::Click, [](ModelForm& form, Control&) { form.cmdCancelar_Click(); }},
      {u"cmdMateria", ControlEvent::Click,
       [](ModelForm& form, Control&) {
         procedure(u"cmdMateria_Click de frmModelo", [&] { form.askSubject(); });
       }},
      {u"txtMateria", ControlEvent::ShiftEnter,
       [](ModelForm& form, Control&) {
         procedure(u"txtMateria_KeyDown de frmModelo", [&] { form.askSubject(); });
       }},
      {u"cmdSubMateria", ControlEvent::Click,
       [](ModelForm& form, Control&) {
         procedure(u"cmdSubMateria_Click de frmModelo", [&] { form.askPart(); });
       }},
      {u"txtSubMateria", ControlEvent::ShiftEnter,
       [](ModelForm& form, Control&) {
         procedure(u"txtSubMateria_KeyDown de frmModelo", [&] { form.askPart(); });
       }},
      {u"txtNombre", ControlEvent::GotFocus, select},
      {u"txtMateria", ControlEvent::GotFocus, select},
      {u"txtSubMateria", ControlEvent::GotFocus, select},
  };
  react(*this, reactions, control, event);
}

}  // namespace ovalia
