#pragma once

#include "instance/Instance.h"

namespace ovalia {

// A document from a template of the annotation's kind, which is printed and not kept: the host makes it
// (NuevoDoc without a path) and fills it from the marks (PasaDatosaDoc), the notes included. A failure is
// reported.
void ImprimirNota(Instance& nota);

// Hands the marks to the host for a mail (PasaDatosEMail).
void EMailNota(Instance& nota);

// Hands the key of the current row of `crs` to the host's export. A new or changed card is saved first if the
// user wants it; cancelling ends it, and one whose control in focus does not pass its check is not asked
// about. An empty list is reported (3021) by the export of a note and does nothing in that of a visit.
void ExportarNota(Instance& nota);
void ExportarVisita(Instance& nota);

}  // namespace ovalia
