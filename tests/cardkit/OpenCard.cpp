#include "tests/cardkit/OpenCard.h"

#include <algorithm>

#include "component/OpenAndClose.h"
#include "routines/ModuleValues.h"

namespace ovalia::kit {
namespace {

struct NamedKey {
  TextView name;
  std::int32_t key;
};

constexpr NamedKey users[] = {{u"Ana", 9}, {u"Luis", 8}, {u"Marta", 7}};
constexpr NamedKey accessTypes[] = {{u"Privado", 3}, {u"Público", 2}};
constexpr NamedKey clients[] = {{u"Sr. Pons", 40}, {u"Sra. Gil", 41}};
constexpr NamedKey agencies[] = {{u"Costa", 60}, {u"Sierra", 61}};

// A view without a window, whose modal loop is the test's part.
class ScriptView : public forms::FormView {
 public:
  ScriptView(std::function<void()>& script, int& activations) : script_(script), activations_(activations) {}
  void show() override {}
  void runModal() override {
    if (script_) std::exchange(script_, {})();
  }
  void hide() override {}
  void activate() override { ++activations_; }
  void formChanged(forms::FormProperty) override {}
  void controlChanged(forms::Control&, forms::Property) override {}
  void toolChanged(forms::ActiveToolBars&, TextView) override {}
  void focusChanged() override {}
  void popupMenu(forms::ActiveToolBars&, TextView, const std::optional<forms::Point>&) override {}

 private:
  std::function<void()>& script_;
  int& activations_;
};

struct Column {
  TextView name;
  dao::DataType type;
  Variant (*value)(std::size_t row);
};

Variant key(std::size_t row) { return static_cast<std::int32_t>(10 + row); }
template <std::int32_t fixed>
Variant number(std::size_t) {
  return fixed;
}
Variant null(std::size_t) { return Null; }
Variant no(std::size_t) { return false; }
Variant created(std::size_t) { return moment(2005, 3, 7, 9, 5); }

const std::vector<Column> common = {
    {u"IdAnota", dao::dbLong, key},
    {u"IdUsuario", dao::dbLong, number<7>},
    {u"Usuario", dao::dbText, [](std::size_t) -> Variant { return u"Marta"; }},
    {u"FechaAlta", dao::dbDate, created},
    {u"FechaActualizacion", dao::dbDate, [](std::size_t) -> Variant { return moment(2026, 3, 1, 8, 0, 0); }},
    {u"Notas", dao::dbMemo, [](std::size_t row) -> Variant { return u"Texto " + toText(std::int64_t(row)); }},
    {u"NArchivos", dao::dbLong, number<0>},
};

const std::vector<Column> ofAParent = {
    {u"Id", dao::dbLong, number<120>},
    {u"IdAgencia", dao::dbLong, number<5>},
    {u"TipoAccNota", dao::dbText, [](std::size_t) -> Variant { return u"Público"; }},
    {u"IdTipoAccNota", dao::dbLong, number<2>},
    {u"Categorias", dao::dbText, [](std::size_t) -> Variant { return u"Varias"; }},
};

Variant subject(std::size_t row) { return u"Asunto " + toText(std::int64_t(row)); }

struct KindColumns {
  TextView kind;
  TextView key;
  std::vector<Column> columns;
  bool hasParent;
};

const std::vector<KindColumns> kindColumns = {
    {u"Nota",
     u"IdNota",
     {{u"Asunto", dao::dbText, subject},
      {u"Aviso", dao::dbBoolean, no},
      {u"FechaAviso", dao::dbDate, [](std::size_t) -> Variant { return moment(2026, 4, 1); }},
      {u"UsuarioAviso", dao::dbText, [](std::size_t) -> Variant { return u"Luis"; }},
      {u"IdUsuarioAviso", dao::dbLong, number<8>}},
     true},
    {u"Visita",
     u"IdVisita",
     {{u"Asunto", dao::dbText, subject},
      {u"FechaComienzo", dao::dbDate, created},
      {u"FechaFin", dao::dbDate, [](std::size_t) -> Variant { return moment(2005, 3, 7, 10, 0); }},
      {u"Donde", dao::dbText, [](std::size_t) -> Variant { return u"En el piso"; }},
      {u"Cliente", dao::dbText, [](std::size_t) -> Variant { return u"Sr. Pons"; }},
      {u"IdCliente", dao::dbLong, number<40>},
      {u"IdComercial", dao::dbLong, number<8>},
      {u"IdComercial2", dao::dbLong, number<9>},
      {u"Agencia", dao::dbText, [](std::size_t) -> Variant { return u"Costa"; }},
      {u"IdOtraAgencia", dao::dbLong, number<60>},
      {u"Aviso", dao::dbBoolean, no},
      {u"TiempoAviso", dao::dbDate, null},
      {u"Confirmada", dao::dbBoolean, no},
      {u"Realizada", dao::dbBoolean, no},
      {u"Anulada", dao::dbBoolean, no}},
     true},
    {u"Anuncio",
     u"IdAnuncio",
     {{u"Donde", dao::dbText,
       [](std::size_t row) -> Variant { return u"Diario " + toText(std::int64_t(row)); }},
      {u"FechaInicio", dao::dbDate, [](std::size_t) -> Variant { return moment(2026, 3, 15); }},
      {u"NDias", dao::dbByte, [](std::size_t) -> Variant { return std::uint8_t(5); }},
      {u"FechaEnvio", dao::dbDate, [](std::size_t) -> Variant { return moment(2026, 3, 2, 12, 30); }},
      {u"Enviar", dao::dbBoolean, no}},
     true},
    {u"Llamada", u"IdLlamada", {{u"IdAnuncio", dao::dbLong, number<300>}}, false},
};

std::vector<Column> columnsOf(TextView kind) {
  for (const KindColumns& row : kindColumns) {
    if (row.kind != kind) continue;
    std::vector<Column> columns{{row.key, dao::dbLong, key}};
    columns.insert(columns.end(), common.begin(), common.end());
    if (row.hasParent) columns.insert(columns.end(), ofAParent.begin(), ofAParent.end());
    columns.insert(columns.end(), row.columns.begin(), row.columns.end());
    return columns;
  }
  throw std::logic_error("no such kind");
}

void announceNames(FakeDatabase& agency, TextView table, TextView idColumn, TextView nameColumn,
                   std::span<const NamedKey> names) {
  const auto sql = [&](TextView wanted, TextView column, const Variant& value) {
    return join(u"SELECT ", wanted, u" FROM ", table, u" WHERE ", column, u" = ", value);
  };
  for (const NamedKey& row : names)
    agency.answers(sql(idColumn, nameColumn, u"'" + Text(row.name) + u"'"), {{Text(idColumn), dao::dbLong}},
                   {{row.key}});
  for (const TextView unknown : {u"Nadie", u""})
    agency.answers(sql(idColumn, nameColumn, u"'" + Text(unknown) + u"'"), {{Text(idColumn), dao::dbLong}});
}

// What a card reads when it loads: the names of a table.
void announceList(FakeDatabase& agency, TextView table, std::span<const NamedKey> names) {
  std::vector<std::vector<Variant>> rows;
  for (const NamedKey& row : names) rows.push_back({row.name});
  agency.table(Text(table), {{u"Nombre"}}, rows);
  agency.answers(join(u"SELECT Nombre FROM ", table, u"  ORDER BY Nombre ASC;"), {{u"Nombre"}}, rows);
}

}  // namespace

Date moment(int year, int month, int day, int hour, int minute, int second) {
  return *dateFrom({year, month, day, hour, minute, second});
}

OpenCardTest::OpenCardTest() : agency(std::make_shared<FakeDatabase>(here.faults)) {
  forms::Runtime::current().setViewFactory(
      [this](forms::Form&) { return std::make_shared<ScriptView>(script_, activations); });
  here.screen.activeFormOf = [this]() -> ObjectRef {
    if (const auto form = forms::Runtime::current().activeForm()) return form;
    return hostForm;
  };

  announceList(*agency, u"Usuario", users);
  announceList(*agency, u"TipoAccNota", accessTypes);
  announceNames(*agency, u"Usuario", u"IdUsuario", u"Nombre", users);
  announceNames(*agency, u"TipoAccNota", u"IdTipoAccNota", u"Nombre", accessTypes);
  announceNames(*agency, u"Cliente", u"IdCliente", u"Alias", clients);
  announceNames(*agency, u"Agencia", u"IdAgencia", u"Alias", agencies);
  for (const NamedKey& user : users)
    agency->answers(join(u"SELECT Nombre FROM Usuario WHERE IdUsuario = ", user.key), {{u"Nombre"}},
                    {{user.name}});
  for (const NamedKey& client : clients)
    agency->answers(join(u"SELECT Tfno1 FROM Cliente WHERE IdCliente=", client.key), {{u"Tfno1"}},
                    {{u"971 00 00 00"}});
  moduleValues().cgDB = agency;

  shownAdvertisement = std::make_shared<FakeObject>();
  shownAdvertisement->answering(u"", [](Arguments asked) {
    if (asked.size() == 1 && asked[0].text() == u"IdAnota") return Variant(321);
    throw Failure(dao::failure::notInCollection);
  });
  const auto list = std::make_shared<FakeObject>();
  list->with(u"Recordset", shownAdvertisement);
  controller = std::make_shared<FakeObject>();
  controller->with(u"IdRegistro", 777).with(u"cEstado", 0);
  hostForm = named(u"FichaInm");
  hostForm->with(u"vClase", controller).with(u"datAnuncio", list);
  for (const TextView counter : {u"Ajuste_N_Notas", u"Ajuste_N_Visitas", u"Ajuste_N_Anuncios"})
    hostForm->giving(counter, {});
  mainForm = std::make_shared<FakeObject>();
  mainForm->with(u"ActiveForm", hostForm);
  const auto application = std::make_shared<FakeObject>();
  application->with(u"title", u"Agencia");

  surface.frmBase = mainForm;
  surface.cApp = application;
  surface.cUsuario = u"Marta";
  surface.IdAgencia = 5;
  surface.TipoAccNota = u"TipoAccNota";
  surface.bPermitirCreacion = true;
}

OpenCardTest::~OpenCardTest() {
  nota.EstadoFicha = limpia;
  Class_Terminate(nota);
  forms::Runtime::current().setViewFactory({});
}

void OpenCardTest::listOf(TextView kind, std::size_t count, std::initializer_list<TextView> without) {
  std::vector<Column> columns = columnsOf(kind);
  std::erase_if(columns, [&](const Column& column) {
    return std::find(without.begin(), without.end(), column.name) != without.end();
  });
  rows = std::make_shared<FakeTable>();
  for (const Column& column : columns) rows->columns.push_back({Text(column.name), column.type});
  for (std::size_t row = 1; row <= count; ++row) {
    std::vector<Variant> values;
    for (const Column& column : columns) values.push_back(column.value(row));
    rows->add(std::move(values));
  }
  crs = std::make_shared<WatchedRecordset>(rows, agency, here.faults);
  surface.crs = crs;
  surface.Tipo = kind;
  surface.Nota = Text(kind) + u"IP";
}

void OpenCardTest::open(std::size_t row, const std::function<void()>& whileOpen) {
  crs->Requery();
  for (std::size_t at = 1; at < row; ++at) crs->MoveNext();
  bool ran = false;
  script_ = [&] {
    focus(u"txtNotas");
    nota.EstadoFicha = limpia;
    here.screen.pointers.clear();
    ran = true;
    whileOpen();
  };
  AbreNota(nota);
  EXPECT_TRUE(ran) << "the card was never shown";
}

void OpenCardTest::openOn(TextView kind, const std::function<void()>& whileOpen) {
  listOf(kind);
  open(2, whileOpen);
}

void OpenCardTest::put(TextView name, const Variant& value) {
  const std::int32_t state = std::exchange(nota.EstadoFicha, cargando);
  card().setFilling(true);
  control(name)->setValue(value);
  card().setFilling(false);
  nota.EstadoFicha = state;
}

void OpenCardTest::change(std::initializer_list<std::pair<TextView, Variant>> values) {
  for (const auto& [name, value] : values) put(name, value);
  nota.EstadoFicha = modificada;
}

void OpenCardTest::focus(TextView name) { ASSERT_TRUE(card().userFocuses(*control(name))); }

}  // namespace ovalia::kit
