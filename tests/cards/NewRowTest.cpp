#include <gtest/gtest.h>

#include <vector>

#include "tests/cards/NewRows.h"

namespace ovalia {
namespace {

// The row of a new annotation: what it is inserted with and recognised by.
using NewRow = kit::NewRows;

const Text moment = u"#03/09/26 10:20:30#";

TEST_F(NewRow, the_statement_has_the_columns_that_the_list_shows) {
  struct Row {
    TextView tipo;
    std::vector<Text> without;
    Text statement;
  };
  const std::vector<Row> rows = {
      {u"Nota",
       {},
       u"INSERT INTO NotaIP (IdInm, IdAgencia, NAgencia, IdUsuario, FechaAlta) VALUES (120,1,4,3," + moment +
           u")"},
      {u"Visita",
       {},
       u"INSERT INTO VisitaIP (IdInm, IdAgencia, NAgencia, IdComercial, IdUsuario, FechaAlta) VALUES "
       u"(120,1,4,3,3," +
           moment + u")"},
      {u"Anuncio",
       {},
       u"INSERT INTO AnuncioIP (IdInm, IdAgencia, NAgencia, IdUsuario, FechaAlta) VALUES (120,1,4,3," +
           moment + u")"},
      {u"Visita",
       {u"IdAgencia"},
       u"INSERT INTO VisitaIP (IdInm, NAgencia, IdComercial, IdUsuario, FechaAlta) VALUES (120,4,3,3," +
           moment + u")"},
      {u"Visita",
       {u"NAgencia"},
       u"INSERT INTO VisitaIP (IdInm, IdAgencia, IdComercial, IdUsuario, FechaAlta) VALUES (120,1,3,3," +
           moment + u")"},
      {u"Nota",
       {u"IdAgencia", u"NAgencia"},
       u"INSERT INTO NotaIP (IdInm, IdUsuario, FechaAlta) VALUES (120,3," + moment + u")"},
      {u"Llamada",
       {},
       u"INSERT INTO LlamadaAIP (IdAnuncio, IdUsuario, FechaAlta) VALUES (77,3," + moment + u")"},
  };
  for (const Row& row : rows) {
    givenNewRows(row.tipo, row.without);
    database->executed.clear();
    create(true, [&] { EXPECT_EQ(database->executed, std::vector<Text>{row.statement}); });
  }
}

TEST_F(NewRow, a_query_without_the_salesperson_leaves_the_column_out_even_if_the_table_has_it) {
  givenNewRows(u"Visita");
  auto columns = kit::listColumns(u"Visita");
  std::erase_if(columns, [](const kit::FakeColumn& column) { return column.name == u"IdComercial"; });
  const auto narrow = std::make_shared<kit::FakeTable>(kit::FakeTable{columns, {}});
  openCard([&] {
    nota.crs = std::make_shared<kit::FakeRecordset>(narrow, database, here.faults);
    expectBox(u"Por favor, guarde los cambios antes de generar una nueva anotación.", 64);
    EXPECT_FALSE(Nuevo(instance));
    EXPECT_EQ(database->executed.at(0),
              u"INSERT INTO VisitaIP (IdInm, IdAgencia, NAgencia, IdUsuario, FechaAlta) VALUES (120,1,4,3," +
                  moment + u")");
  });
}

TEST_F(NewRow, a_preset_key_goes_into_the_first_column_of_the_list) {
  nota.IdAnota = 4711;
  for (const TextView tipo : {u"Nota", u"Visita", u"Anuncio"}) {
    givenNewRows(tipo);
    database->executed.clear();
    create(true, [&] {
      const Text statement = database->executed.at(0);
      EXPECT_NE(statement.find(u" (IdInm, Id" + Text(tipo) + u", IdAgencia,"), Text::npos)
          << toUtf8(statement);
      EXPECT_NE(statement.find(u"VALUES (120,4711,1,4,"), Text::npos) << toUtf8(statement);
    });
  }
}

TEST_F(NewRow, only_a_key_above_zero_is_preset) {
  for (const std::int32_t key : {0, -1}) {
    nota.IdAnota = key;
    givenNewRows(u"Nota");
    database->executed.clear();
    create(true, [&] {
      EXPECT_TRUE(database->executed.at(0).starts_with(u"INSERT INTO NotaIP (IdInm, IdAgencia,")) << key;
    });
  }
}

TEST_F(NewRow, a_call_takes_neither_a_preset_key_nor_the_parents_column) {
  nota.IdAnota = 4711;
  givenNewRows(u"Llamada");
  nota.IdPr = u"IdInm";
  create(true, [&] {
    EXPECT_EQ(database->executed.at(0),
              u"INSERT INTO LlamadaAIP (IdAnuncio, IdUsuario, FechaAlta) VALUES (77,3," + moment + u")");
  });
}

TEST_F(NewRow, the_row_is_recognised_by_parent_user_and_the_same_moment) {
  for (const TextView tipo : {u"Nota", u"Visita", u"Anuncio", u"Llamada"}) {
    const Text parent = tipo == u"Llamada" ? u"IdAnuncio = 77" : u"Id = 120";
    givenNewRows(tipo);
    nota.IdPr = u"IdPrincipal";  // whatever the table calls it
    create(true, [&] {
      EXPECT_EQ(criteria(), std::vector<Text>{parent + u" AND IdUsuario = 3 AND FechaAlta = " + moment});
    });
  }
}

TEST_F(NewRow, the_moment_is_one_even_when_the_clock_goes_on) {
  givenNewRows(u"Nota");
  here.faults.onNext("Database.Execute", [&] { here.clock.time.second = 31; });
  create(true, [&] {
    EXPECT_NE(database->executed.at(0).find(moment), Text::npos);
    EXPECT_NE(criteria().at(0).find(moment), Text::npos);
  });
}

TEST_F(NewRow, the_users_name_is_quoted) {
  database->tableNamed(u"Usuario")->add({44, u"Sonia O'Dea"});
  nota.cUsuario = u"Sonia O'Dea";
  givenNewRows(u"Nota");
  create(true, [&] {
    EXPECT_NE(database->executed.at(0).find(u",44,#"), Text::npos);
    EXPECT_NE(criteria().at(0).find(u"IdUsuario = 44"), Text::npos);
  });
}

}  // namespace
}  // namespace ovalia
