#pragma once

#include <cstdint>

#include "platform/Text.h"

namespace ovalia {

// Both are modal: the program's events go on meanwhile, with `MensajeEnCurso` true. They trap their own
// failures.

// Shows a message box and gives the code of the button: 1 OK, 2 Cancel, 6 Yes, 7 No; 0 after a failure.
// `botones` is the sum of buttons (0 OK, 1 OK/Cancel, 3 Yes/No/Cancel, 4 Yes/No), icon (16 critical, 32
// question, 48 exclamation, 64 information), 256 (second button is the default) and 4096 (system-modal). With
// an empty title the box bears the application's.
std::int32_t MostrarMensaje(TextView mensaje, std::int32_t botones, TextView titulo);

// Asks for a line of text that starts as `defecto`; "" when the user cancels.
Text PedirMensaje(TextView mensaje, TextView titulo, TextView defecto);

}  // namespace ovalia
