#include "host/Contract.h"

#include "host/CommonDialog.h"
#include "host/HostCard.h"

namespace ovalia::host {

namespace {

using MembersRef = std::shared_ptr<MemberTable>;

MembersRef members() { return std::make_shared<MemberTable>(); }

MembersRef named(TextView name) {
  auto object = members();
  object->value(u"Name", name);
  return object;
}

std::function<Variant(Arguments)> constant(Variant value) {
  return [value = std::move(value)](Arguments) { return value; };
}

// A property that gives an object, or with arguments that object's element.
void collection(MemberTable& owner, TextView name, std::function<ObjectRef()> object) {
  owner.property(name, [object = std::move(object)](Arguments arguments) -> Variant {
    const ObjectRef whole = object();
    return arguments.empty() ? Variant(whole) : deref(whole).get(u"", arguments);
  });
}

// The card behind a contract, while it is there.
using CardLink = std::weak_ptr<HostCard>;
HostCard& cardOf(const CardLink& link) {
  const auto card = link.lock();
  if (!card) throw Failure(failure::objectNotSet);
  return *card;  // kept by its owner: contracts are only called while the card is on the screen
}

AnnotationList& listOf(const CardLink& link, TextView grid) {
  AnnotationList* list = cardOf(link).list(grid);
  if (!list) throw Failure(failure::noSuchMember);
  return *list;
}

// ---- controls ----

const FieldDesign* fieldOf(HostCard& card, TextView control) {
  for (const FieldDesign& field : card.form().fields)
    if (sameName(field.control, control)) return &field;
  return nullptr;
}

MembersRef textBox(const CardLink& link, const FieldDesign& field) {
  auto box = named(field.control);
  const auto get = [link, &field](Arguments) -> Variant { return cardOf(link).shown(field); };
  const auto put = [link, &field](const Variant& value, Arguments) {
    cardOf(link).userEdits(field, value.text());
    cardOf(link).refreshed();
  };
  box->property(u"Text", get, put).property(u"", get, put);
  return box;
}

// Rows that the user has marked: their keys serve as bookmarks.
MembersRef markedRows(const CardLink& link, Text grid) {
  auto marks = members();
  const auto item = [link, grid](Arguments arguments) -> Variant {
    const auto keys = cardOf(link).marked(grid);
    const auto at = arguments.empty() ? -1 : arguments[0].toLong();
    if (at < 0 || at >= std::int32_t(keys.size())) throw Failure(failure::indexOutOfRange);
    return toText(keys[std::size_t(at)]);
  };
  marks->property(u"Count", [link, grid](Arguments) -> Variant {
    return static_cast<std::int32_t>(cardOf(link).marked(grid).size());
  });
  marks->property(u"", item).property(u"Item", item);
  return marks;
}

Variant cellAt(AnnotationList& list, TextView column, const Text& bookmark) {
  if (sameName(column, u"IdAnota")) return bookmark;
  const std::int32_t key = Variant(bookmark).toLong(), before = list.currentKey();
  if (!list.goTo(key)) throw Failure(dao::failure::recordDeleted);
  const Text cell = list.recordset()->value(column).text();
  if (before) list.goTo(before);
  return cell;
}

MembersRef gridColumn(const CardLink& link, Text grid, Text column) {
  auto object = named(column);
  const auto cell = [link, grid, column](Arguments arguments) -> Variant {
    if (arguments.size() != 1) throw Failure(failure::wrongArguments);
    return cellAt(listOf(link, grid), column, arguments[0].toText());
  };
  object->method(u"CellText", cell).method(u"CellValue", cell);
  object->property(u"Text", [link, grid, column](Arguments) -> Variant {
    return listOf(link, grid).recordset()->value(column).text();
  });
  return object;
}

MembersRef grid(const CardLink& link, Text name) {
  auto object = named(name);
  collection(*object, u"SelBookmarks", [link, name]() -> ObjectRef { return markedRows(link, name); });
  object->property(u"Columns", [link, name](Arguments arguments) -> Variant {
    if (arguments.size() != 1) throw Failure(failure::wrongArguments);
    return gridColumn(link, name, arguments[0].toText());
  });
  object->property(u"Rows", [link, name](Arguments) -> Variant { return listOf(link, name).count(); });
  return object;
}

MembersRef dataControl(const CardLink& link, Text name) {
  auto object = named(name);
  collection(*object, u"Recordset", [link, name]() -> ObjectRef { return listOf(link, name).recordset(); });
  return object;
}

Variant controlNamed(const CardLink& link, TextView name) {
  HostCard& card = cardOf(link);
  if (const FieldDesign* field = fieldOf(card, name)) return textBox(link, *field);
  if (AnnotationList* list = card.list(name))
    return sameName(list->design().grid, name) ? grid(link, Text(name)) : dataControl(link, Text(name));
  throw Failure(failure::noSuchControl);
}

MembersRef controls(const CardLink& link) {
  auto object = members();
  const auto item = [link](Arguments arguments) -> Variant {
    if (arguments.size() != 1) throw Failure(failure::wrongArguments);
    return controlNamed(link, arguments[0].toText());
  };
  object->property(u"", item).property(u"Item", item);
  object->property(u"Count", [link](Arguments) -> Variant {
    HostCard& card = cardOf(link);
    return static_cast<std::int32_t>(card.form().fields.size() + 2 * card.lists().size());
  });
  return object;
}

// ---- the card ----

// The controller that hosts of the component keep on every form.
MembersRef controller(const CardLink& link) {
  auto vClase = members();
  MemberTable& members = *vClase;
  members.property(u"cEstado", [link](Arguments) -> Variant { return std::int16_t(cardOf(link).state()); });
  members.property(u"NumNuevo", [link](Arguments) -> Variant { return cardOf(link).newNumber(); });
  members.property(u"IdRegistro", [link](Arguments) -> Variant { return cardOf(link).parentRecord(); });
  members.property(u"NumFicha", [link](Arguments) -> Variant { return cardOf(link).record(); });
  members.property(u"tabla", [link](Arguments) -> Variant { return cardOf(link).parentForm().table; });
  members.property(u"IdTabla", [link](Arguments) -> Variant { return cardOf(link).parentForm().key; });
  collection(members, u"Registros", [link]() -> ObjectRef { return cardOf(link).parentRows(); });
  members.method(u"AvisoCambio", [link](Arguments arguments) -> Variant {
    const bool ask = arguments.empty() || arguments[0].text() == u"Preguntar";
    return ask ? cardOf(link).settle() : cardOf(link).save();
  });
  members.method(u"CargaRegistros", [link](Arguments) -> Variant {
    cardOf(link).reload();
    return {};
  });
  return vClase;
}

// Which form has which method of its own.
struct CounterMethod {
  TextView form, method, grid;
};
constexpr CounterMethod counterMethods[] = {
    {u"FichaInm", u"Ajuste_N_Notas", u"grdNota"},
    {u"FichaInm", u"Ajuste_N_Visitas", u"grdVisita"},
    {u"FichaInm", u"Ajuste_N_Anuncios", u"grdAnuncio"},
    {u"FichaUsuario", u"RellenaVisita", u"grdVisita"},
};

}  // namespace

ObjectRef applicationContract(TextView title) {
  auto cApp = members();
  cApp->value(u"title", title);
  return cApp;
}

ObjectRef cardContract(const std::shared_ptr<HostCard>& card) {
  const CardLink link = card;
  auto form = members();
  const HostForm& design = card->form();
  form->property(u"Name", constant(design.form));
  form->property(u"Caption", [link](Arguments) -> Variant { return cardOf(link).caption(); });
  form->property(u"vClase", constant(controller(link)));
  form->property(u"ActiveControl", [link](Arguments) -> Variant {
    const Text name = cardOf(link).activeControl();
    return name.empty() ? Variant(ObjectRef()) : Variant(named(name));
  });
  collection(*form, u"Controls", [link]() -> ObjectRef { return controls(link); });
  for (const FieldDesign& field : design.fields)
    form->property(field.control, constant(textBox(link, field)));
  for (const auto& list : card->lists()) {
    const Text grid(list->design().grid), data(list->design().data);
    form->property(grid, constant(host::grid(link, grid)));
    form->property(data, constant(dataControl(link, data)));
  }
  for (const CounterMethod& row : counterMethods)
    if (row.form == design.form)
      form->method(row.method, [link, grid = row.grid](Arguments) -> Variant {
        cardOf(link).counted(listOf(link, grid));
        return {};
      });
  form->method(u"ComprobarCambio", [link](Arguments) -> Variant { return cardOf(link).checkChanges(); });
  return form;
}

ObjectRef listContract(ListFacts facts) {
  auto form = named(facts.name);
  auto vClase = members();
  vClase->value(u"cEstado", std::int16_t(0)).value(u"NumNuevo", std::int32_t(0));
  const auto record = [record = facts.record](Arguments) -> Variant { return record(); };
  vClase->property(u"IdRegistro", record).property(u"NumFicha", record);
  vClase->value(u"tabla", facts.table).value(u"IdTabla", facts.key);
  collection(*vClase, u"Registros", facts.rows);
  vClase->method(u"AvisoCambio", constant(true));
  vClase->method(u"CargaRegistros", [reload = facts.reload](Arguments) -> Variant {
    reload();
    return {};
  });
  form->value(u"Caption", facts.caption).property(u"vClase", constant(vClase));
  form->property(u"ActiveControl", constant(ObjectRef()));
  form->method(u"ComprobarCambio", constant(true));
  return form;
}

ObjectRef mainFormContract(const std::shared_ptr<MainFrame>& frame, Dialogs& dialogs) {
  const std::weak_ptr<MainFrame> link = frame;
  const auto window = [link]() {
    auto there = link.lock();
    if (!there) throw Failure(failure::objectNotSet);
    return there;
  };
  auto panel = members();
  panel->property(
      u"Text", [window](Arguments) -> Variant { return window()->statusText(); },
      [window](const Variant& text, Arguments) { window()->setStatusText(text.text()); });
  auto panels = members();
  panels->property(u"", [panel](Arguments arguments) -> Variant {
    if (arguments.size() != 1) throw Failure(failure::wrongArguments);
    if (arguments[0].toLong() != 1) throw Failure(failure::indexOutOfBounds);
    return panel;
  });
  auto statusBar = named(u"StatusBar1");
  collection(*statusBar, u"Panels", [panels]() -> ObjectRef { return panels; });

  auto form = named(u"frmBase");
  form->property(u"ActiveForm", [window](Arguments) -> Variant { return window()->activeForm(); });
  form->property(u"StatusBar1", constant(statusBar));
  form->property(u"dlgfrmbase", constant(commonDialog(dialogs)));
  return form;
}

}  // namespace ovalia::host
