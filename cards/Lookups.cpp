#include "cards/Lookups.h"

#include "routines/ModuleValues.h"
#include "routines/SqlText.h"
#include "routines/Trap.h"

namespace ovalia {

dao::Database& database() {
  if (!moduleValues().cgDB) throw Failure(failure::objectNotSet);
  return *moduleValues().cgDB;
}

Text nombreDeUsuario(std::int32_t IdUsuario) {
  const auto rows = database().OpenRecordset(
      join(u"SELECT Nombre FROM Usuario WHERE IdUsuario = ", IdUsuario), dao::dbOpenSnapshot);
  return rows->isEOF() ? Text() : rows->value(u"nombre").text();
}

Variant anuncioDelAnfitrion(const ObjectRef& form) {
  return getMember(objectAt(form, {u"datAnuncio", u"Recordset"}), u"", {u"IdAnota"}).plain();
}

Text TelefonoCliente(const Variant& IdCliente, TextView Cliente, TextView) {
  return procedure(u"TelefonoCliente de CNota", Text(), [&](Text& telephone) {
    if (IdCliente.isNull()) return;
    const Text statement = IdCliente.toLong() == 0
                               ? join(u"SELECT Tfno1 FROM Cliente WHERE Alias=", ComillaSQL(Cliente))
                               : join(u"SELECT Tfno1 FROM Cliente WHERE IdCliente=", IdCliente);
    const auto rows = database().OpenRecordset(statement, dao::dbOpenSnapshot);
    if (!rows->isEOF()) telephone = rows->value(u"Tfno1").text();
    rows->Close();
  });
}

}  // namespace ovalia
