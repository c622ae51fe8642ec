#pragma once

#include "instance/Instance.h"

namespace ovalia {

// Lets the user choose a model: makes the form `ListaModelos`, loads it, shows it modally and lets it go. The
// subject and the sub-matter are proposed in its boxes; `folder` is the user's data folder, in either form.
// `name` becomes the model's name as table Plantilla has it and `chosenFolder` the folder of the models, in
// full, "\"-separated, with its final "\"; both are "" when the user cancels. The path of the model comes
// from `storedPathIn` of attachments/StoredPaths.h: a table can hold anything. Failures inside the form are
// reported there; one of making, loading or showing it goes to the caller.
void SelecModelo(Instance& nota, const Text& Materia, const Text& TMateria, const Text& folder, Text& name,
                 Text& chosenFolder);

// The form asks for a subject, for a sub-matter: the host is asked. No trap.
void dlgListaModelos_VerMateria(Instance& nota, bool& Ok, const Text& ValInicial, Text& ValFinal);
void dlgListaModelos_VerTMateria(Instance& nota, bool& Ok, const Variant& Materia, const Text& ValInicial,
                                 Text& ValFinal);

}  // namespace ovalia
