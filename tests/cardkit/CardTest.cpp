#include "tests/cardkit/CardTest.h"

#include <algorithm>

#include "routines/ModuleValues.h"
#include "tests/kit/FakeRecordset.h"

namespace ovalia::kit {
namespace {

struct ListNames {
  TextView tipo, table, parent, attachments;
};
constexpr ListNames names[] = {
    {u"Nota", u"NotaIP", u"IdInm", u"DocuNotaIP"},
    {u"Visita", u"VisitaIP", u"IdInm", u"DocuVisitaIP"},
    {u"Anuncio", u"AnuncioIP", u"IdInm", u"DocuAnuncioIP"},
    {u"Llamada", u"LlamadaAIP", u"IdAnuncio", u""},
};

}  // namespace

void OtherUser::writes(TextView field, Variant value) {
  const auto row = static_cast<std::size_t>(deref(nota_->crs).get(u"AbsolutePosition").toLong());
  list_->at(row, field) = std::move(value);
  Variant& stamp = list_->at(row, u"FechaActualizacion");
  stamp = Date{stamp.toDate().days + 1.0 / (24 * 60)};
}

void OtherUser::deletesTheRow() { list_->vanish(static_cast<std::size_t>(nota_->crs->AbsolutePosition())); }

void AgencyTest::SetUp() {
  moduleValues().cgDB = database;
  moduleValues().PathDB = u"\\datos\\agencia.mdb";
  host.connect(surface_);
  otherUser.nota_ = &surface_;
}

void AgencyTest::TearDown() {
  desk.verify();
  LogicTest::TearDown();
}

void AgencyTest::givenList(TextView tipo, std::vector<Fields> rows, const std::vector<Text>& without) {
  const ListNames& named = *std::ranges::find(names, tipo, &ListNames::tipo);
  std::vector<FakeColumn> columns = listColumns(tipo);
  for (const Text& name : without)
    std::erase_if(columns, [&](const FakeColumn& c) { return c.name == name; });
  std::vector<std::vector<Variant>> values;
  for (std::size_t place = 0; place < rows.size(); ++place)
    values.push_back(annotation(tipo, columns, static_cast<int>(place), rows[place]));
  list = otherUser.list_ = database->table(Text(named.table), columns, values);
  surface_.Tipo = tipo;
  surface_.Nota = named.table;
  surface_.IdPr = named.parent;
  surface_.DocuAsoc = named.attachments;
  surface_.crs = database->OpenRecordset(named.table);
}

void AgencyTest::standOn(int row) { surface_.crs->setAbsolutePosition(row - 1); }

Variant AgencyTest::stored(TextView field, int row) const {
  return list->at(static_cast<std::size_t>(row) - 1, field);
}

void CardTest::openCard(Desk::Script whileShown) {
  desk.whileShown([&, whileShown = std::move(whileShown)] {
    if (state() == limpia)
      for (const std::string& guilty : guiltyControls(instance)) ADD_FAILURE() << guilty;
    if (whileShown) whileShown();
  });
  AbreNota(instance);
}

void CardTest::openCard(TextView tipo, Fields fields, Desk::Script whileShown) {
  givenList(tipo, {std::move(fields)});
  openCard(std::move(whileShown));
}

void CardTest::putAway() {
  instance.EstadoFicha = limpia;
  EXPECT_TRUE(form().Unload());
}

bool CardTest::enabled(TextView toolOrControl) const {
  if (toolOrControl.starts_with(u"ID_")) return form().toolbars().tool(toolOrControl)->Enabled();
  return form().control(toolOrControl)->Enabled();
}

void CardTest::TearDown() {
  Class_Terminate(instance);
  AgencyTest::TearDown();
}

}  // namespace ovalia::kit
