#include "tests/cardkit/OpenCard.h"

namespace ovalia::kit {

void OpenCardTest::SetUp() {
  CardTest::SetUp();
  const auto advertisements = std::make_shared<FakeObject>(), data = std::make_shared<FakeObject>();
  advertisements->answering(u"", [](Arguments field) -> Variant {
    if (field.size() != 1 || !sameName(field[0].toText(), u"IdAnota"))
      throw Failure(dao::failure::notInCollection);
    return 321;
  });
  data->with(u"Recordset", advertisements);
  host.FichaInm->with(u"datAnuncio", data);
  host.vClase().with(u"IdRegistro", 777);
}

void OpenCardTest::listOf(TextView kind, int count, const std::vector<Text>& without) {
  std::vector<Fields> rows;
  for (int row = 1; row <= count; ++row) rows.push_back({{u"Notas", u"Texto " + toText(row)}});
  givenList(kind, std::move(rows), without);
}

void OpenCardTest::open(int row, const std::function<void()>& whileOpen) {
  standOn(row);
  openCard([&] {
    ASSERT_TRUE(user.enters(u"txtNotas"));
    instance.EstadoFicha = limpia;
    here.screen.pointers.clear();
    desk.windows.clear();
    database->opened.clear();
    host.events.clear();
    host.FichaInm->journal.clear();
    whileOpen();
    instance.EstadoFicha = limpia;
  });
}

void OpenCardTest::openOn(TextView kind, const std::function<void()>& whileOpen) {
  listOf(kind);
  open(2, whileOpen);
}

void OpenCardTest::put(TextView name, const Variant& value) {
  const std::int32_t state = std::exchange(instance.EstadoFicha, cargando);
  form().setFilling(true);
  control(name).setValue(value);
  form().setFilling(false);
  instance.EstadoFicha = state;
}

void OpenCardTest::change(std::initializer_list<std::pair<TextView, Variant>> values) {
  for (const auto& [name, value] : values) put(name, value);
  instance.EstadoFicha = modificada;
}

void OpenCardTest::command(TextView group, TextView id) {
  form().userAction([&] {
    Text tab(group), tool(id);
    form().Menu(tab, tool);
  });
}

}  // namespace ovalia::kit
