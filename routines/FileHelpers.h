#pragma once

#include "platform/Text.h"

namespace ovalia {

// Paths are "\"-separated. Unless said otherwise a routine traps its failures and reports them under its own
// name, and gives the empty text or false then.

// The component's folder inside the user's temporary one, with its final "\"; made silently when it is
// missing.
Text rutaCarpetaTemporal();

// The same without a trap, for the log writer, whose failures must not be reported.
Text componentFolder();

// Whether `ruta` is a folder. Only a failure other than "not found" (53, 76) is reported.
bool ExisteDirectorio(TextView ruta);

// Makes sure that a folder is there and gives its path with a final "\"; "" when the user does not want it
// made or it lies on a CD-ROM or on a drive that does not exist. With `preguntar` the user is asked before
// anything is made. No failure is reported, that of making a level included: the path is given back all the
// same.
Text ComprobarDirectorio(TextView ruta, bool preguntar);

// Whether there is anything at `ruta`, a folder included. Never reports.
bool ExisteFichero(TextView ruta);

// Splits a path behind its last "\": gives the folder with its final "\" and puts the rest into `nombre`.
// Without a "\" the folder is "". An empty path leaves `nombre` as it is.
Text PathFichero(TextView ruta, Text& nombre);

// Deletes a file; true also when there is none. A failure is not reported, but told by a message if `avisar`.
bool BorrarFichero(TextView ruta, bool avisar);

// Folder and name, with a "\" put between them where the folder does not end with one. One "\" at the name's
// beginning is cut off, in the caller's variable too.
Text UnirRuta(TextView carpeta, Text& nombre);

// A name without the characters that cannot stand in one: " ' * ? : / \ | < >. Blanks and points stay.
Text filtrarNombreArchivo(TextView nombre);

// Sends a file to the recycle bin. What hinders it is told by a message; callers go on as if the file had
// gone.
void EnviarAPapelera(TextView archivo);

}  // namespace ovalia
