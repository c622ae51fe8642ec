#include "desktop/PickList.h"

#include "desktop/DialogOwner.h"
#include "desktop/PickListDialog.h"
#include "platform/Platform.h"

namespace ovalia::desktop {

namespace {

struct PropertyRow {
  TextView name;
  Variant (*initial)();
};

Variant number() { return std::int32_t(0); }
Variant text() { return Text(); }
Variant truth() { return false; }
Variant nothing() { return {}; }

constexpr PropertyRow properties[] = {
    {u"TipoLista", number},     {u"TituloForm", text},    {u"tabla", text},      {u"CampoValor", nothing},
    {u"BDatos", text},          {u"Campo", nothing},      {u"IdCampo", nothing}, {u"SQLSentencia", text},
    {u"Seleccionar", text},     {u"NuevoElemento", text}, {u"NuevoId", truth},   {u"Op_Nuevo", truth},
    {u"Op_Borrar", truth},      {u"Op_Modificar", truth}, {u"Op_Todos", truth},  {u"anchura", number},
    {u"glIdSolicitud", number},
};

std::shared_ptr<dao::Field> fieldOf(const Variant& value) {
  return value.isObject() ? std::dynamic_pointer_cast<dao::Field>(value.toObject()) : nullptr;
}

bool show(Object& list) {
  const auto value = [&](TextView name) { return list.get(name); };
  ListSource source({.name = value(u"tabla").text(),
                     .column = fieldOf(value(u"Campo")),
                     .key = fieldOf(value(u"IdCampo")),
                     .select = value(u"SQLSentencia").text(),
                     .numbersItself = value(u"NuevoId").toBoolean()});
  PickListDialog dialog(source, {.title = value(u"TituloForm").text(),
                                 .chosen = value(u"Seleccionar").text(),
                                 .width = value(u"anchura").toDouble(),
                                 .mayAdd = value(u"Op_Nuevo").toBoolean(),
                                 .mayRename = value(u"Op_Modificar").toBoolean(),
                                 .mayDelete = value(u"Op_Borrar").toBoolean(),
                                 .offersAll = value(u"Op_Todos").toBoolean()});
  standOver(dialog, dialogOwner());
  dialog.load();
  const bool chosen = dialog.exec() == QDialog::Accepted;
  if (chosen) list.put(u"Seleccionar", dialog.chosen());
  if (!dialog.added().empty()) list.put(u"NuevoElemento", dialog.added());
  return chosen;
}

}  // namespace

ObjectRef makePickList() {
  auto list = std::make_shared<MemberTable>();
  for (const PropertyRow& row : properties) list->value(row.name, row.initial());
  list->method(u"mtdMostrar", [self = std::weak_ptr<MemberTable>(list)](Arguments) -> Variant {
    return show(*self.lock());
  });
  return list;
}

}  // namespace ovalia::desktop
