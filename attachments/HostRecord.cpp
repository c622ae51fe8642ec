#include "attachments/HostRecord.h"

#include "routines/TextHelpers.h"

namespace ovalia {

bool keepsAttachments(const Instance& nota) { return ExisteControl(nota.crs().fields(), u"NArchivos"); }

std::int32_t hostRecord(const Instance& nota) {
  return getMember(objectAt(nota.nota.frmBase, {u"ActiveForm", u"vClase"}), u"IdRegistro").toLong();
}

std::int32_t hostRecordOrNew(Instance& nota) {
  constexpr std::int32_t adding = 1;
  nota.FormActiva = getMember(nota.nota.frmBase, u"ActiveForm").toObject();
  const ObjectRef controller = objectAt(nota.FormActiva, {u"vClase"});
  const bool isNew = getMember(controller, u"cEstado").toLong() == adding;
  const Variant newNumber = getMember(controller, u"NumNuevo");
  const Variant key = getMember(controller, u"Registros", {u"Id"}).plain();
  return (isNew ? newNumber : key).toLong();
}

}  // namespace ovalia
