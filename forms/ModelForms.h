#pragma once

#include "forms/Design.h"

namespace ovalia::forms {

// The designs of the two forms about models: making one, choosing one.
const FormDesign& frmModelo();
const FormDesign& ListaModelos();

}  // namespace ovalia::forms
