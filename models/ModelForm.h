#pragma once

#include "models/SubjectForm.h"

namespace ovalia {

// `frmModelo`: the name of a model to be made, its notes and its subject. The tag of `txtNombre` carries the
// stored name of the source document.
class ModelForm : public SubjectForm {
 public:
  ModelForm();

  Event<> Aceptar;

  // Cancels; nothing is written.
  void cmdCancelar_Click();

 protected:
  void onControl(forms::Control& control, forms::ControlEvent event) override;
};

}  // namespace ovalia
