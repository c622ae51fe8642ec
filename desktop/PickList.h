#pragma once

#include "platform/Object.h"

namespace ovalia::desktop {

// The pick list as the outside component of that name. Set before `mtdMostrar`: `TituloForm`, `tabla`,
// `Campo` and `IdCampo` (fields, whose connection it works on), `SQLSentencia` (a statement of one's own, ""
// lists the table), `Seleccionar` (the name selected at first), `NuevoElemento`, `NuevoId` (the table numbers
// its rows), `Op_Nuevo`, `Op_Modificar`, `Op_Borrar`, `Op_Todos`, `anchura` (twips); `TipoLista`,
// `CampoValor`, `BDatos` and `glIdSolicitud` are kept and not looked at. `mtdMostrar` is true when the user
// chose: `Seleccionar` is then the name, and `NuevoElemento`, in both cases, the last name added, if any was.
ObjectRef makePickList();

}  // namespace ovalia::desktop
