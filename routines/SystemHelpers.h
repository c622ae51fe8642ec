#pragma once

#include <cstdint>

#include "platform/Object.h"
#include "platform/Text.h"

namespace ovalia {

// Each traps its failures and reports them under its own name.

// The application's version, as "3.05.12" with two digits for the second and third number.
Text VersionPrograma(std::int16_t digitos);

// An outside component by its class name; an empty reference after a failure. A class that is not registered
// (429) is reported with a sentence that says so in the place of the routine's name.
ObjectRef CrearObjeto(TextView clase);

// The system's line, its version numbers and its service pack, in three lines.
Text MirarVersionOS();

// The first three numbers of a file's version; "" without a report for a file that has none or that cannot be
// read.
Text VersionFichero(TextView ruta);

}  // namespace ovalia
