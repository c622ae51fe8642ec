#pragma once

#include "instance/Instance.h"

namespace ovalia {

// How the copy of a document is called: "plano.pdf", "Copia de plano.pdf", "Copia(2) de plano.pdf" ... What
// begins with "Copia" counts as a copy and loses its first nine characters. Failure 5 for "Copia(" without
// ")".
Text copyName(TextView name);

// The first such name that no attachment in the whole of `DocuAsoc` is shown by. A failure is reported and
// gives ""; so does a number so large that the next one is written the same (28).
Text GenerarNombreCopia(const Instance& nota, TextView nombre);

}  // namespace ovalia
