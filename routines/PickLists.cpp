#include "routines/PickLists.h"

#include "routines/ModuleValues.h"
#include "routines/SystemHelpers.h"
#include "routines/Trap.h"

namespace ovalia {
namespace {

// Sorted upwards, Null and empty values come first.
void skipBlankRows(dao::Recordset& rows, TextView column) {
  while (!rows.isEOF() && rows.value(column).text().empty()) rows.MoveNext();
}

}  // namespace

void CargarListaCampo(dao::Database& db, const dao::Field& campo, const ObjectRef& lista, TextView condicion,
                      TextView campoId) {
  const Text column = campo.Name();
  Text sql = u"SELECT " + column;
  if (!campoId.empty()) sql += join(u", ", campoId);
  sql += join(u" FROM ", campo.SourceTable(), u" ", condicion, u" ORDER BY ", column, u" ASC;");

  const dao::RecordsetRef rows = db.OpenRecordset(sql);
  if (!(rows->isBOF() && rows->isEOF())) rows->MoveFirst();
  for (skipBlankRows(*rows, column); !rows->isEOF(); rows->MoveNext()) {
    callMember(lista, u"AddItem", {rows->value(column).text()});
    if (campoId.empty()) continue;
    Variant place[] = {getMember(lista, u"NewIndex")};
    deref(lista).put(u"ItemData", rows->value(campoId).toLong(), place);
  }
  rows->Close();
}

bool VerListadoSimple(Text valor, Text& resultado, TextView tabla, TextView sql, Text& nuevo,
                      const Variant& campoValor, bool usarCampoValor, TextView campo, bool opNuevo,
                      bool opBorrar, bool opModificar, std::int16_t anchura, std::int32_t idSolicitud,
                      TextView titulo, bool opTodos) {
  return procedure(u"VerListadoSimple de RutinasErr", false, [&](bool& result) {
    ModuleValues& module = moduleValues();
    const ObjectRef list = CrearObjeto(u"Trivane.CTrivane");
    putMember(list, u"TipoLista", 0);
    putMember(list, u"TituloForm", titulo.empty() ? tabla : titulo);
    putMember(list, u"tabla", tabla);
    if (usarCampoValor) putMember(list, u"CampoValor", campoValor);
    putMember(list, u"BDatos", module.PathDB);
    if (!module.cgDB) throw Failure(failure::objectNotSet);
    const auto table = module.cgDB->TableDefs(tabla);
    putMember(list, u"Campo", table->Fields().item(campo));
    const auto id = table->Fields().item(join(u"Id", tabla));
    putMember(list, u"IdCampo", id);
    if (!sql.empty()) putMember(list, u"SQLSentencia", sql);
    putMember(list, u"Seleccionar", valor);
    putMember(list, u"NuevoElemento", valor);
    putMember(list, u"NuevoId", (id->Attributes() & dao::dbAutoIncrField) != 0);
    putMember(list, u"Op_Nuevo", opNuevo);
    putMember(list, u"Op_Borrar", opBorrar);
    putMember(list, u"Op_Modificar", opModificar);
    putMember(list, u"Op_Todos", opTodos);
    putMember(list, u"anchura", anchura);
    putMember(list, u"glIdSolicitud", idSolicitud);

    const bool before = module.MensajeEnCurso;
    module.MensajeEnCurso = true;
    const bool chosen = callMember(list, u"mtdMostrar").toBoolean();
    module.MensajeEnCurso = before;

    resultado = chosen ? getMember(list, u"Seleccionar").text() : valor;
    result = chosen;
    nuevo = getMember(list, u"NuevoElemento").text();
  });
}

}  // namespace ovalia
