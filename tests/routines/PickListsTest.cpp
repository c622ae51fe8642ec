#include "routines/PickLists.h"

#include <gtest/gtest.h>

#include "routines/ModuleValues.h"
#include "tests/kit/FakeDatabase.h"
#include "tests/kit/FakeObject.h"
#include "tests/kit/TestPlatform.h"

namespace ovalia {
namespace {

using kit::FakeObject;
using Lines = std::vector<Text>;

class WithDatabase : public kit::LogicTest {
 protected:
  std::shared_ptr<kit::FakeDatabase> database = std::make_shared<kit::FakeDatabase>(here.faults);
};

class ColumnList : public WithDatabase {
 protected:
  static constexpr TextView plainSql = u"SELECT Nombre FROM Usuario  ORDER BY Nombre ASC;";

  ColumnList() {
    database->table(u"Usuario", {{u"IdUsuario", dao::dbLong}, {u"Nombre"}});
    combo->giving(u"AddItem", {}).with(u"NewIndex", 0);
    combo->answering(u"AddItem", [this](Arguments) {
      combo->with(u"NewIndex", added++);
      return Variant{};
    });
  }
  void load(TextView condition = u"", TextView idColumn = u"") {
    const auto field = database->TableDefs(u"Usuario")->Fields().item(u"Nombre");
    CargarListaCampo(*database, *field, combo, condition, idColumn);
  }

  std::shared_ptr<FakeObject> combo = std::make_shared<FakeObject>();
  std::int32_t added = 0;
};

TEST_F(ColumnList, takes_the_columns_values_in_their_order) {
  database->answers(Text(plainSql), {{u"Nombre"}}, {{u"Ana"}, {u"Íñigo"}, {u"Zoe"}});
  load();
  EXPECT_EQ(combo->journal, (Lines{u"AddItem(Ana)", u"AddItem(Íñigo)", u"AddItem(Zoe)"}));
}

TEST_F(ColumnList, leaves_leading_null_and_empty_values_out) {
  database->answers(Text(plainSql), {{u"Nombre"}}, {{Null}, {Null}, {u""}, {u""}, {u"Ana"}});
  load();
  EXPECT_EQ(combo->journal, (Lines{u"AddItem(Ana)"}));
}

TEST_F(ColumnList, of_nulls_alone_is_empty_without_a_failure) {
  database->answers(Text(plainSql), {{u"Nombre"}}, {{Null}, {Null}});
  load();
  EXPECT_TRUE(combo->journal.empty());
}

TEST_F(ColumnList, of_empty_texts_alone_or_of_no_rows_is_empty) {
  const auto rows = database->answers(Text(plainSql), {{u"Nombre"}}, {{Null}, {u""}});
  load();
  rows->rows.clear();
  load();
  EXPECT_TRUE(combo->journal.empty());
}

TEST_F(ColumnList, puts_the_condition_between_table_and_order) {
  database->answers(u"SELECT Nombre FROM Usuario WHERE Activo = 1 ORDER BY Nombre ASC;", {{u"Nombre"}},
                    {{u"Ana"}});
  load(u"WHERE Activo = 1");
  EXPECT_EQ(combo->journal, (Lines{u"AddItem(Ana)"}));
}

TEST_F(ColumnList, keeps_the_key_of_each_entry_where_a_key_column_is_given) {
  database->answers(u"SELECT Nombre, IdUsuario FROM Usuario  ORDER BY Nombre ASC;",
                    {{u"Nombre"}, {u"IdUsuario", dao::dbLong}}, {{Null, 1}, {u"Ana", 7}, {u"Zoe", 3}});
  load(u"", u"IdUsuario");
  EXPECT_EQ(combo->journal,
            (Lines{u"AddItem(Ana)", u"ItemData(0) = 7", u"AddItem(Zoe)", u"ItemData(1) = 3"}));
}

TEST_F(ColumnList, adds_to_what_the_list_holds) {
  database->answers(Text(plainSql), {{u"Nombre"}}, {{u"Ana"}});
  load();
  load();
  EXPECT_EQ(combo->journal, (Lines{u"AddItem(Ana)", u"AddItem(Ana)"}));
}

TEST_F(ColumnList, goes_to_the_first_of_its_rows_and_closes_them) {
  database->answers(Text(plainSql), {{u"Nombre"}}, {{u"Ana"}});
  load();
  EXPECT_EQ(here.faults.visits("Recordset.MoveFirst"), 1);
  EXPECT_EQ(here.faults.visits("Recordset.Close"), 1);
}

TEST_F(ColumnList, hands_a_failure_to_its_caller) {
  database->answers(Text(plainSql), {{u"Nombre"}}, {{u"Ana"}});
  here.faults.failNext("Database.OpenRecordset", 3078);
  EXPECT_THROW(load(), Failure);
  combo->failing(u"AddItem", 7);
  EXPECT_THROW(load(), Failure);
}

class PickList : public WithDatabase {
 protected:
  PickList() {
    database->table(u"Materia", {{u"IdMateria", dao::dbLong, dao::dbAutoIncrField}, {u"Nombre"}});
    moduleValues().cgDB = database;
    moduleValues().PathDB = u"\\datos\\agencia.mdb";
    list->answering(u"mtdMostrar", [this](Arguments) {
      flagMeanwhile = moduleValues().MensajeEnCurso;
      list->with(u"Seleccionar", chosen.value_or(u"otra"));
      list->with(u"NuevoElemento", u"recién creada");
      return Variant(chosen.has_value());
    });
    here.objects.add(u"Trivane.CTrivane", [this] { return list; });
  }

  bool show(TextView sql = u"", TextView title = u"", bool useValue = false) {
    return VerListadoSimple(u"Ventas", result, u"Materia", sql, created, 12, useValue, u"Nombre", true, false,
                            true, 2500, 4, title, false);
  }

  std::shared_ptr<FakeObject> list = std::make_shared<FakeObject>();
  std::optional<Text> chosen;
  bool flagMeanwhile = false;
  Text result = u"marca", created = u"marca";
};

TEST_F(PickList, is_given_its_properties_in_order_and_then_shown) {
  show(u"SELECT 1", u"Materias", true);
  EXPECT_EQ(list->journal, (Lines{u"TipoLista = 0", u"TituloForm = Materias", u"tabla = Materia",
                                  u"CampoValor = 12", u"BDatos = \\datos\\agencia.mdb", u"Campo = <object>",
                                  u"IdCampo = <object>", u"SQLSentencia = SELECT 1", u"Seleccionar = Ventas",
                                  u"NuevoElemento = Ventas", u"NuevoId = Verdadero", u"Op_Nuevo = Verdadero",
                                  u"Op_Borrar = Falso", u"Op_Modificar = Verdadero", u"Op_Todos = Falso",
                                  u"anchura = 2500", u"glIdSolicitud = 4", u"mtdMostrar()"}));
}

TEST_F(PickList, without_title_statement_and_value_is_titled_after_the_table_and_not_given_the_others) {
  show();
  EXPECT_EQ(list->property(u"TituloForm").text(), u"Materia");
  for (const Text& line : list->journal) {
    EXPECT_FALSE(line.starts_with(u"CampoValor"));
    EXPECT_FALSE(line.starts_with(u"SQLSentencia"));
  }
}

TEST_F(PickList, gets_the_columns_of_the_tables_definition_themselves) {
  show();
  EXPECT_EQ(getMember(list->property(u"Campo").toObject(), u"Name").text(), u"Nombre");
  EXPECT_EQ(getMember(list->property(u"IdCampo").toObject(), u"Name").text(), u"IdMateria");
}

TEST_F(PickList, knows_whether_the_key_numbers_itself) {
  database->table(u"Materia", {{u"IdMateria", dao::dbLong, 1 + 32}, {u"Nombre"}});
  show();
  EXPECT_FALSE(list->property(u"NuevoId").toBoolean());
  database->table(u"Materia", {{u"IdMateria", dao::dbLong, 1 + 16}, {u"Nombre"}});
  show();
  EXPECT_TRUE(list->property(u"NuevoId").toBoolean());
}

TEST_F(PickList, gives_the_choice_and_the_new_element) {
  chosen = u"Alquileres";
  EXPECT_TRUE(show());
  EXPECT_EQ(result, u"Alquileres");
  EXPECT_EQ(created, u"recién creada");
}

TEST_F(PickList, without_a_choice_gives_the_value_back_and_the_new_element_all_the_same) {
  EXPECT_FALSE(show());
  EXPECT_EQ(result, u"Ventas");
  EXPECT_EQ(created, u"recién creada");
}

TEST_F(PickList, may_put_its_choice_into_the_variable_that_gave_the_value) {
  result = u"Ventas";
  EXPECT_FALSE(VerListadoSimple(result, result, u"Materia", u"", created, {}, false, u"Nombre", true, true,
                                true, 2500, 0, u"", false));
  EXPECT_EQ(result, u"Ventas");
}

TEST_F(PickList, raises_the_message_flag_meanwhile_and_puts_it_back) {
  for (const bool before : {false, true}) {
    moduleValues().MensajeEnCurso = before;
    show();
    EXPECT_TRUE(flagMeanwhile);
    EXPECT_EQ(moduleValues().MensajeEnCurso, before);
  }
}

// The routine lies in the data module; its name in reports is meant.
TEST_F(PickList, that_fails_is_reported_under_the_name_of_the_other_module) {
  list->failing(u"mtdMostrar", 5);
  expectReport(u"VerListadoSimple de RutinasErr", 5);
  EXPECT_FALSE(show());
  EXPECT_EQ(result, u"marca");
  EXPECT_EQ(created, u"marca");
}

TEST_F(PickList, whose_choice_cannot_be_read_counts_as_none) {
  list->answering(u"mtdMostrar", [this](Arguments) {
    list->failing(u"Seleccionar", 5);
    return Variant(true);
  });
  expectReport(u"VerListadoSimple de RutinasErr", 5);
  EXPECT_FALSE(show());
  EXPECT_EQ(result, u"marca");
  EXPECT_EQ(created, u"marca");
}

TEST_F(PickList, whose_new_element_cannot_be_read_keeps_the_choice) {
  list->answering(u"mtdMostrar", [this](Arguments) {
    list->with(u"Seleccionar", u"Alquileres").failing(u"NuevoElemento", 5);
    return Variant(true);
  });
  expectReport(u"VerListadoSimple de RutinasErr", 5);
  EXPECT_TRUE(show());
  EXPECT_EQ(result, u"Alquileres");
  EXPECT_EQ(created, u"marca");
}

TEST_F(PickList, over_an_unknown_table_is_reported) {
  expectReport(u"VerListadoSimple de RutinasErr", 3265);
  EXPECT_FALSE(VerListadoSimple(u"x", result, u"Nada", u"", created, {}, false, u"Nombre", true, true, true,
                                2500, 0, u"", false));
}

TEST_F(PickList, without_a_connection_is_reported) {
  moduleValues().cgDB = nullptr;
  expectReport(u"VerListadoSimple de RutinasErr", 91);
  EXPECT_FALSE(show());
}

TEST_F(PickList, that_is_not_registered_is_reported_twice) {
  here.objects.add(u"Trivane.CTrivane", []() -> ObjectRef { throw Failure(429); });
  expectReport(u"La librería Trivane.CTrivane no está registrada correctamente.", 429);
  expectReport(u"VerListadoSimple de RutinasErr", 91);
  EXPECT_FALSE(show());
}

}  // namespace
}  // namespace ovalia
