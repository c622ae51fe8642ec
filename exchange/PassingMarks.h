#pragma once

#include "instance/Instance.h"

namespace ovalia {

// What the marks are for. Any other number raises no event.
inline constexpr std::int32_t paraAdjuntar = 0;  // a document that is kept: without the notes
inline constexpr std::int32_t paraImprimir = 1;  // a document that is only printed
inline constexpr std::int32_t paraCorreo = 2;    // a mail

// Hands the marks of the annotation to the host, by PasaDatosaDoc with the word processor's object or by
// PasaDatosEMail: those of the card in use while it is shown, else those of the row of the host's grid that
// has the focus, none where it is another control. A failure is reported and no event raised, but what fails
// with a row or with the additional data only leaves marks out.
void Pasa_Datos_Dlg(Instance& nota, std::int32_t modo, ObjectRef& objW);

}  // namespace ovalia
