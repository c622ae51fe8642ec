#include "models/Subjects.h"

#include "cards/Lookups.h"
#include "routines/SqlText.h"

namespace ovalia {

dao::RecordsetRef findMateria(TextView nombre) {
  return database().OpenRecordset(join(u"SELECT IdMateria FROM Materia WHERE Nombre = ", ComillaSQL(nombre)),
                                  dao::dbOpenSnapshot);
}

dao::RecordsetRef findTipoMateria(TextView nombre) {
  return database().OpenRecordset(
      join(u"SELECT IdTipoMateria FROM TipoMateria WHERE Nombre = ", ComillaSQL(nombre)),
      dao::dbOpenSnapshot);
}

}  // namespace ovalia
