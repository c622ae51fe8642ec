#pragma once

#include "instance/Instance.h"

namespace ovalia {

// Makes a model of a stored document of the current annotation, by its stored name and the name it is shown
// by: opens `frmModelo` on it and returns when that has closed. Nothing opens where the annotation counts no
// documents or the file is not there under exactly that name; the user is told.
void CrearModelo(Instance& nota, TextView NArch, TextView NOrg);

// Makes the model that the form describes: the file into "\Plantillas\", then a row of table Plantilla. A
// file that is there is never replaced. Nothing is undone: a model whose row failed leaves its file, and its
// name is taken from then on. The form stays open unless the row was tried.
void dlgModelo_Aceptar(Instance& nota);

// The form asks for a subject, for a sub-matter: the host is asked. No trap.
void dlgModelo_VerMateria(Instance& nota, bool& Ok, const Text& ValInicial, Text& ValFinal);
void dlgModelo_VerTMateria(Instance& nota, bool& Ok, const Variant& Materia, const Text& ValInicial,
                           Text& ValFinal);

}  // namespace ovalia
