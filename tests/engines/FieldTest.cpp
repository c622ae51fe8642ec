#include "tests/engines/EngineFixture.h"

namespace ovalia::engines::test {
namespace {

namespace f = dao::failure;

class FieldsOf : public EngineTest {};
INSTANTIATE_TEST_SUITE_P(On, FieldsOf, ::testing::Values(sqliteEngine()),
                         [](const auto& info) { return info.param.name; });

struct TypedField {
  TextView name;
  dao::DataType type;
  Variant value;
};

TEST_P(FieldsOf, a_row_come_in_their_declared_types) {
  const TypedField rows[] = {{u"IdNotaIP", dao::dbLong, std::int32_t{1}},
                             {u"Id", dao::dbLong, std::int32_t{120}},
                             {u"Usuario", dao::dbText, u"Ana"},
                             {u"Asunto", dao::dbText, u"Llaves"},
                             {u"Notas", dao::dbMemo, u"En la agencia"},
                             {u"FechaAlta", dao::dbDate, *dateFrom({2005, 3, 1, 10, 0, 0})},
                             {u"Aviso", dao::dbBoolean, true},
                             {u"Narchivos", dao::dbInteger, std::int16_t{0}},
                             {u"Precio", dao::dbCurrency, Currency{1'500'002'500}},
                             {u"Nivel", dao::dbByte, std::uint8_t{3}},
                             {u"Peso", dao::dbDouble, 1.5}};
  for (const auto type : {dao::dbOpenDynaset, dao::dbOpenSnapshot}) {
    const auto set = mine->OpenRecordset(notesOfProperty120, type);
    for (const TypedField& row : rows) {
      const auto field = set->fields().item(row.name);
      EXPECT_EQ(field->Type(), row.type) << toUtf8(row.name);
      EXPECT_EQ(field->Value(), row.value) << toUtf8(row.name);
    }
    set->MoveLast();
    EXPECT_TRUE(set->value(u"Usuario").isNull());
    EXPECT_TRUE(set->value(u"Aviso").isNull());
    EXPECT_EQ(set->fields().item(u"Aviso")->Type(), dao::dbBoolean);
  }
}

TEST_P(FieldsOf, aggregates_keep_the_type_of_what_they_count) {
  const auto set = mine->OpenRecordset(
      u"SELECT Count(*) AS N, Max(FechaAlta) AS Ultima, Max(IdNotaIP) AS Mayor, Max(Precio) AS Caro, "
      u"Min(Asunto) AS Primero "
      u"FROM NotaIP",
      dao::dbOpenSnapshot);
  EXPECT_EQ(set->value(u"n"), Variant(std::int32_t{4}));
  EXPECT_EQ(set->value(u"Ultima"), Variant(*dateFrom({2005, 3, 4})));
  EXPECT_EQ(set->value(u"Mayor"), Variant(std::int32_t{4}));
  EXPECT_EQ(set->value(u"Caro"), Variant(Currency{1'500'002'500}));
  EXPECT_EQ(set->value(u"Primero"), Variant(u"Ático"));
  EXPECT_EQ(set->fields().item(u"Ultima")->Type(), dao::dbDate);
  EXPECT_EQ(set->fields().item(u"N")->SourceTable(), u"");
}

TEST_P(FieldsOf, aggregates_over_nothing_give_one_row) {
  EXPECT_TRUE(agency.one(u"SELECT Max(IdDocu) AS N FROM DocuNotaIP WHERE IdNota = 99").isNull());
  EXPECT_EQ(agency.one(u"SELECT Count(IdDocu) AS N FROM DocuNotaIP WHERE IdNota = 99"),
            Variant(std::int32_t{0}));
}

TEST_P(FieldsOf, names_match_without_case_and_the_unknown_is_not_in_the_collection) {
  const auto set = agency.notes();
  auto& fields = set->fields();
  EXPECT_EQ(fields.count(), 17u);
  EXPECT_EQ(fields.item(u"NARCHIVOS")->Name(), u"Narchivos");
  EXPECT_EQ(fields.item(u"idanota")->SourceTable(), u"NotaIP");
  EXPECT_EQ(fields.item(u"Usuario")->SourceTable(), u"Usuario");
  EXPECT_EQ(fields.at(0)->Name(), u"IdNotaIP");
  EXPECT_TRUE(fields.contains(u"tipoaccnota"));
  EXPECT_FALSE(fields.contains(u"Anulada"));
  EXPECT_EQ(failureOf([&] { fields.item(u"Anulada"); }), f::notInCollection);
  EXPECT_EQ(failureOf([&] { fields.at(17); }), f::notInCollection);
}

TEST_P(FieldsOf, a_whole_table_come_in_its_order) {
  const auto set = mine->OpenRecordset(u"SELECT * FROM DocuNotaIP", dao::dbOpenSnapshot);
  EXPECT_EQ(set->fields().at(0)->Name(), u"IdDocu");
  EXPECT_EQ(set->fields().at(5)->Name(), u"NombreArch");
  EXPECT_EQ(mine->OpenRecordset(u"[docunotaip]")->fields().count(), 6u);
}

TEST_P(FieldsOf, a_row_outlive_other_references_to_it) {
  auto field = agency.notes()->fields().item(u"Asunto");
  EXPECT_EQ(field->Value().text(), u"Llaves");
  EXPECT_EQ(field->database(), mine);
  auto set = agency.notes();
  const auto late = set->fields().item(u"Asunto");
  set->Requery();
  EXPECT_EQ(late->Value().text(), u"Llaves");
}

TEST_P(FieldsOf, a_row_fail_where_there_is_no_row) {
  const auto set = agency.notes();
  set->MovePrevious();
  EXPECT_EQ(failureOf([&] { set->value(u"Asunto"); }), f::noCurrentRecord);
  EXPECT_EQ(failureOf([&] { set->Edit(); }), f::noCurrentRecord);
}

TEST_P(FieldsOf, a_table_have_names_and_types_and_no_value) {
  const auto table = mine->TableDefs(u"MATERIA");
  EXPECT_EQ(table->Name(), u"Materia");
  auto& fields = table->Fields();
  const auto key = fields.item(u"IdMateria");
  const auto name = fields.item(u"nombre");
  EXPECT_EQ(key->Attributes() & dao::dbAutoIncrField, dao::dbAutoIncrField);
  EXPECT_EQ(name->Attributes() & dao::dbAutoIncrField, 0);
  EXPECT_EQ(name->Name(), u"Nombre");
  EXPECT_EQ(name->SourceTable(), u"Materia");
  EXPECT_EQ(name->Type(), dao::dbText);
  EXPECT_EQ(name->database(), mine);
  EXPECT_EQ(failureOf([&] { name->Value(); }), f::noCurrentRecord);
  EXPECT_EQ(failureOf([&] { fields.item(u"Nada"); }), f::notInCollection);
  EXPECT_EQ(failureOf([&] { mine->TableDefs(u"Nada"); }), f::notInCollection);
}

TEST_P(FieldsOf, a_table_keep_its_definition_alive) {
  const auto field = mine->TableDefs(u"TipoAccNota")->Fields().item(u"Nombre");
  EXPECT_EQ(field->Name(), u"Nombre");
}

TEST_P(FieldsOf, a_table_that_another_user_changed_are_read_again) {
  EXPECT_EQ(mine->TableDefs(u"Agencia")->Fields().count(), 2u);
  theirs->Execute(u"ALTER TABLE Agencia ADD COLUMN Telefono VARCHAR(20)");
  EXPECT_EQ(mine->TableDefs(u"Agencia")->Fields().count(), 3u);
  EXPECT_EQ(failureOf([&] { theirs->OpenRecordset(u"SELECT Telefono FROM Agencia"); }), 0);
}

TEST_P(FieldsOf, a_database_are_in_its_tables) {
  const auto names = mine->tableNames();
  EXPECT_NE(std::find(names.begin(), names.end(), u"NotaIP"), names.end());
  EXPECT_EQ(names.size(), mine->tableNames().size());
  for (const Text& name : names) EXPECT_FALSE(name.starts_with(u"sqlite_"));
}

TEST_P(FieldsOf, a_recordset_are_reached_by_late_binding) {
  const ObjectRef set = agency.notes();
  EXPECT_EQ(getMember(set, u"", {u"asunto"}).text(), u"Llaves");
  EXPECT_EQ(getMember(set, u"EOF"), Variant(false));
  callMember(set, u"MoveLast");
  EXPECT_EQ(getMember(set, u"AbsolutePosition"), Variant(std::int32_t{2}));
}

}  // namespace
}  // namespace ovalia::engines::test
