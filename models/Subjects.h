#pragma once

#include "instance/Instance.h"

namespace ovalia {

// Look-ups of subjects and sub-matters by name, in tables Materia and TipoMateria. Without a row the snapshot
// is empty, and reading its key is failure 3021. A sub-matter is looked for among those of all subjects. No
// trap.
dao::RecordsetRef findMateria(TextView nombre);      // IdMateria
dao::RecordsetRef findTipoMateria(TextView nombre);  // IdTipoMateria

}  // namespace ovalia
