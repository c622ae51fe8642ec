#pragma once

#include "platform/Object.h"

namespace ovalia::desktop {

struct SearchWish;

// The search dialog as the outside component of that name. Set before `Mostrar`: `VentanaJefa` (the card,
// whose `BuscarElemento(Modo, Criterio)` is called for each step), `BuscarEn` (an array of texts with indexes
// from 0: a row of labels, one of fields, one of types, "Fecha" for dates; a column without a label is left
// out); `ErrLogPath` is the log of the program, where a step that fails is noted. `Mostrar` returns when the
// user closes the dialog or the card; where a dialog searches for that card already it brings that one to the
// front and returns at once. It fails with 91 without a card, with 13 without an array and with 5 when the
// array offers no field. The dialog begins with what was looked for last, and leaves what was looked for, in
// `wish`.
ObjectRef makeSearchDialog(std::shared_ptr<SearchWish> wish);

}  // namespace ovalia::desktop
