#pragma once

#include <cstdint>

#include "platform/Object.h"
#include "platform/Text.h"
#include "platform/Variant.h"
#include "platform/dao.h"

namespace ovalia {

// All but ExisteControl trap their failures, report them under their own names and give what they had
// reached.

// A text of one character gets a "0" in front; any other comes back as it is, the empty one too.
Text CeroPadding(TextView texto);

// Filled with "0" on the left up to `longitud`; a longer text is never cut.
Text Padding(TextView texto, std::int16_t longitud);

// For text out of a fixed buffer: what stands before the first NUL, untrimmed; without a NUL the text without
// the blanks around it.
Text TrimNull(TextView texto);

// Whole number, half away from zero, grouped in thousands by the regional separator; "" for Null.
Text FormatNum(const Variant& valor);

// Whether a field that holds 0 to 255 may keep `valor`, which is trimmed in the caller's variable. Empty is
// fine; a numeric text is rounded to a whole number first; one too large for 32 bits is reported and counts
// as fine. With `mostrar` the user is told of a refusal.
bool ComprobarByte(Variant& valor, bool mostrar);

// Selects the whole text of a control, reached by name; an empty one is not touched.
void Remarcar(const ObjectRef& control);

// Whether a collection's default member knows a name and gives an object for it. Never reports, never throws.
bool ExisteControl(const ObjectRef& controles, TextView nombre);
bool ExisteControl(dao::Fields& campos, TextView nombre);

}  // namespace ovalia
