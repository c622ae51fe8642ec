#include "tests/engines/EngineFixture.h"

namespace ovalia::engines::test {
namespace {

namespace f = dao::failure;

class Edits : public EngineTest {};
INSTANTIATE_TEST_SUITE_P(On, Edits, ::testing::Values(sqliteEngine()),
                         [](const auto& info) { return info.param.name; });

TEST_P(Edits, write_the_row_and_stay_on_it) {
  const auto set = agency.notes();
  set->MoveNext();
  set->Edit();
  EXPECT_TRUE(set->editing());
  set->setValue(u"asunto", u"Ático vendido");
  set->setValue(u"Notas", Null);
  set->setValue(u"Aviso", std::int16_t{1});
  set->setValue(u"FechaActualizacion", *dateFrom({2026, 3, 7, 9, 5, 0}));
  set->Update();
  EXPECT_FALSE(set->editing());
  EXPECT_EQ(set->AbsolutePosition(), 1);
  EXPECT_EQ(set->value(u"Asunto").text(), u"Ático vendido");
  EXPECT_EQ(agency.one(u"SELECT Asunto FROM NotaIP WHERE IdNotaIP = 2").text(), u"Ático vendido");
  EXPECT_TRUE(agency.one(u"SELECT Notas FROM NotaIP WHERE IdNotaIP = 2").isNull());
  EXPECT_EQ(agency.one(u"SELECT Aviso FROM NotaIP WHERE IdNotaIP = 2"), Variant(true));
  EXPECT_EQ(agency.one(u"SELECT FechaActualizacion FROM NotaIP WHERE IdNotaIP = 2"),
            Variant(*dateFrom({2026, 3, 7, 9, 5, 0})));
  EXPECT_EQ(mine->RecordsAffected(), 1) << "of the last Execute still";
}

TEST_P(Edits, show_the_buffer_until_they_end) {
  const auto set = agency.notes();
  const auto subject = set->fields().item(u"Asunto");
  set->Edit();
  subject->setValue(u"Borrador");
  EXPECT_EQ(subject->Value().text(), u"Borrador");
  theirs->Execute(u"UPDATE NotaIP SET Notas = 'De otro' WHERE IdNotaIP = 1");
  EXPECT_EQ(set->value(u"Notas").text(), u"En la agencia") << "as it was at Edit";
  set->CancelUpdate();
  EXPECT_EQ(subject->Value().text(), u"Llaves");
  EXPECT_EQ(set->value(u"Notas").text(), u"De otro");
  EXPECT_EQ(failureOf([&] { set->Update(); }), f::updateWithoutEdit);
  EXPECT_EQ(failureOf([&] { subject->setValue(u"x"); }), f::updateWithoutEdit);
}

TEST_P(Edits, start_afresh_when_begun_again) {
  const auto set = agency.notes();
  set->Edit();
  set->setValue(u"Asunto", u"Primero");
  set->Edit();
  EXPECT_EQ(set->value(u"Asunto").text(), u"Llaves");
  set->setValue(u"Codigo", u"B1");
  set->Update(1, false);
  EXPECT_EQ(set->value(u"Asunto").text(), u"Llaves");
  EXPECT_EQ(set->value(u"Codigo").text(), u"B1");
}

TEST_P(Edits, are_dropped_by_moves_and_finds) {
  const auto set = agency.notes();
  const std::function<void()> moves[] = {[&] { set->MoveNext(); },
                                         [&] { set->MovePrevious(); },
                                         [&] { set->MoveLast(); },
                                         [&] { set->MoveFirst(); },
                                         [&] { set->FindFirst(u"IdAnota = 2"); },
                                         [&] { set->FindFirst(u"IdAnota = 99"); },
                                         [&] { set->FindFirst(u"Asunto = 'nada'"); },
                                         [&] { set->Requery(); }};
  for (const auto& move : moves) {
    set->Edit();
    set->setValue(u"Asunto", u"Perdido");
    move();
    EXPECT_FALSE(set->editing());
    EXPECT_NE(set->value(u"Asunto").text(), u"Perdido");
    EXPECT_EQ(failureOf([&] { set->Update(); }), f::updateWithoutEdit);
  }
}

TEST_P(Edits, write_only_what_was_assigned_whoever_wrote_meanwhile) {
  const auto set = agency.notes();
  set->Edit();
  set->setValue(u"Asunto", u"Mío");
  theirs->Execute(u"UPDATE NotaIP SET Asunto = 'Suyo', Narchivos = 5 WHERE IdNotaIP = 1");
  set->Update();
  EXPECT_EQ(set->value(u"Asunto").text(), u"Mío");
  EXPECT_EQ(set->value(u"Narchivos"), Variant(std::int16_t{5}));
}

TEST_P(Edits, of_one_of_two_columns_that_are_the_same_show_in_both) {
  const auto set = mine->OpenRecordset(u"SELECT IdNotaIP, Asunto, Asunto AS Otro FROM NotaIP");
  set->Edit();
  set->setValue(u"Otro", u"Por el alias");
  EXPECT_EQ(set->value(u"Asunto").text(), u"Por el alias");
  set->setValue(u"Asunto", u"Por el nombre");
  set->Update();
  EXPECT_EQ(set->value(u"Otro").text(), u"Por el nombre");
}

TEST_P(Edits, without_an_assignment_write_nothing) {
  const auto set = agency.notes();
  set->Edit();
  set->Update();
  EXPECT_FALSE(set->editing());
  EXPECT_EQ(set->value(u"Asunto").text(), u"Llaves");
}

struct RefusedRow {
  TextView field;
  Variant value;
  std::int32_t failure;
};

TEST_P(Edits, that_a_constraint_refuses_stay_pending) {
  const RefusedRow rows[] = {{u"Codigo", u"A2", f::duplicateKey},
                             {u"IdUsuario", std::int32_t{77}, f::missingRelated},
                             {u"Codigo", u"12345678901", f::tooLong},
                             {u"Asunto", Text(51, u'ñ'), f::tooLong}};
  const auto set = agency.notes();
  for (const RefusedRow& row : rows) {
    SCOPED_TRACE(toUtf8(row.field) + std::to_string(row.failure));
    set->Edit();
    set->setValue(u"Notas", u"Sin guardar");
    set->setValue(row.field, row.value);
    EXPECT_EQ(failureOf([&] { set->Update(); }), row.failure);
    EXPECT_TRUE(set->editing());
    EXPECT_EQ(set->value(u"Notas").text(), u"Sin guardar");
    set->CancelUpdate();
    EXPECT_EQ(set->value(u"Notas").text(), u"En la agencia");
  }
}

TEST_P(Edits, of_a_required_field_refuse_null) {
  const auto set = mine->OpenRecordset(u"Usuario");
  set->Edit();
  set->setValue(u"Nombre", Null);
  EXPECT_EQ(failureOf([&] { set->Update(); }), f::required);
  set->setValue(u"Nombre", u"Eva");
  set->Update();
  EXPECT_EQ(set->value(u"Nombre").text(), u"Eva");
}

TEST_P(Edits, take_a_text_as_long_as_its_column) {
  const auto set = agency.notes();
  set->Edit();
  set->setValue(u"Asunto", Text(50, u'ñ'));
  set->Update();
  EXPECT_EQ(set->value(u"Asunto").text(), Text(50, u'ñ'));
}

TEST_P(Edits, refuse_a_value_that_does_not_convert) {
  const RefusedRow rows[] = {{u"IdUsuario", u"Ana", f::conversion},
                             {u"Nivel", std::int32_t{300}, f::conversion},
                             {u"Narchivos", std::int32_t{40000}, f::conversion},
                             {u"FechaAlta", u"ayer", f::conversion},
                             {u"Precio", u"mucho", f::conversion},
                             {u"Usuario", u"Eva", f::readOnly},
                             {u"TipoAccNota", u"Otra", f::readOnly},
                             {u"IdAnota", std::int32_t{9}, f::readOnly},
                             {u"Nada", u"x", f::notInCollection}};
  const auto set = agency.notes();
  set->Edit();
  for (const RefusedRow& row : rows)
    EXPECT_EQ(failureOf([&] { set->setValue(row.field, row.value); }), row.failure) << toUtf8(row.field);
  EXPECT_TRUE(set->editing());
}

TEST_P(Edits, convert_what_can_be_converted) {
  const auto set = agency.notes();
  set->Edit();
  set->setValue(u"IdUsuario", u"2");
  set->setValue(u"FechaAlta", u"7/3/2005 9:05:00");
  set->setValue(u"Precio", u"1234,5678");
  set->setValue(u"Codigo", std::int32_t{12});
  set->setValue(u"Aviso", u"0");
  set->setValue(u"Peso", 2.5);
  set->Update();
  EXPECT_EQ(set->value(u"IdUsuario"), Variant(std::int32_t{2}));
  EXPECT_EQ(set->value(u"Usuario").text(), u"Íñigo") << "the look-up follows at the next read";
  EXPECT_EQ(set->value(u"FechaAlta"), Variant(*dateFrom({2005, 3, 7, 9, 5, 0})));
  EXPECT_EQ(set->value(u"Precio"), Variant(Currency{12345678}));
  EXPECT_EQ(set->value(u"Codigo"), Variant(u"12"));
  EXPECT_EQ(set->value(u"Aviso"), Variant(false));
  EXPECT_EQ(set->value(u"Peso"), Variant(2.5));
}

TEST_P(Edits, of_a_row_that_another_user_deletes_meanwhile_fail) {
  const auto set = agency.notes();
  set->MoveLast();
  set->Edit();
  set->setValue(u"Asunto", u"Tarde");
  theirs->Execute(u"DELETE FROM NotaIP WHERE IdNotaIP = 3");
  EXPECT_EQ(failureOf([&] { set->Update(); }), f::recordDeleted);
  EXPECT_TRUE(set->editing());
  EXPECT_EQ(set->value(u"Asunto").text(), u"Tarde");
}

TEST_P(Edits, see_anothers_write_in_the_next_field_read) {
  const auto set = agency.notes();
  const auto stamp = set->fields().item(u"FechaActualizacion");
  EXPECT_EQ(stamp->Value(), Variant(*dateFrom({2005, 3, 1, 10, 0, 0})));
  theirs->Execute(u"UPDATE NotaIP SET FechaActualizacion = #03/05/05 08:00:01# WHERE IdNotaIP = 1");
  EXPECT_EQ(stamp->Value(), Variant(*dateFrom({2005, 3, 5, 8, 0, 1})));
  mine->Execute(u"UPDATE NotaIP SET FechaActualizacion = #03/06/05 08:00:01# WHERE IdNotaIP = 1");
  EXPECT_EQ(stamp->Value(), Variant(*dateFrom({2005, 3, 6, 8, 0, 1})));
  const auto other = theirs->OpenRecordset(u"SELECT * FROM NotaIP WHERE IdNotaIP = 1");
  other->Edit();
  other->setValue(u"FechaActualizacion", Date{38'500.25});
  other->Update();
  EXPECT_EQ(stamp->Value(), Variant(Date{38'500.25}));
}

TEST_P(Edits, are_seen_by_a_row_that_no_longer_meets_the_lists_condition) {
  const auto set = agency.notes();
  theirs->Execute(u"UPDATE NotaIP SET IdInm = 7 WHERE IdNotaIP = 1");
  EXPECT_EQ(set->value(u"Id"), Variant(std::int32_t{7}));
  set->FindFirst(u"Id = 7");
  EXPECT_FALSE(set->NoMatch());
}

TEST_P(Edits, delete_the_base_tables_row_only) {
  const auto set = mine->OpenRecordset(
      u"SELECT IdPlantilla, Plantilla.Nombre, Notas, Materia.Nombre As Materia, TipoMateria.Nombre As "
      u"TipoMateria FROM "
      u"((Plantilla LEFT JOIN Materia ON Plantilla.IdMateria = Materia.IdMateria)  LEFT JOIN TipoMateria ON "
      u"Plantilla.IdTipoMateria = TipoMateria.IdTipoMateria) ORDER BY Plantilla.Nombre ASC");
  set->FindFirst(u"IdPlantilla = 1");
  set->Delete();
  EXPECT_EQ(agency.one(u"SELECT Count(*) FROM Plantilla"), Variant(std::int32_t{2}));
  EXPECT_EQ(agency.one(u"SELECT Count(*) FROM Materia"), Variant(std::int32_t{2}));
  EXPECT_EQ(agency.one(u"SELECT Count(*) FROM TipoMateria"), Variant(std::int32_t{1}));
}

TEST_P(Edits, that_delete_a_referenced_row_are_refused) {
  const auto set = agency.notes();
  EXPECT_EQ(failureOf([&] { set->Delete(); }), f::referenced);
  EXPECT_EQ(set->RecordCount(), 3);
  EXPECT_EQ(set->AbsolutePosition(), 0);
  EXPECT_EQ(set->value(u"Asunto").text(), u"Llaves");
}

TEST_P(Edits, fail_while_another_program_holds_the_database) {
  const auto set = theirs->OpenRecordset(u"SELECT * FROM NotaIP WHERE IdInm = 120");
  mine->Execute(u"BEGIN IMMEDIATE");
  set->Edit();
  set->setValue(u"Asunto", u"Bloqueado");
  EXPECT_EQ(failureOf([&] { set->Update(); }), f::locked);
  EXPECT_TRUE(set->editing());
  EXPECT_EQ(failureOf([&] { theirs->Execute(u"DELETE FROM Plantilla"); }), f::locked);
  mine->Execute(u"COMMIT");
  set->Update();
  EXPECT_EQ(set->value(u"Asunto").text(), u"Bloqueado");
}

TEST_P(Edits, are_refused_where_rows_cannot_be_named) {
  const TextView selects[] = {
      u"SELECT DISTINCT Nombre FROM Usuario", u"SELECT IdInm, Count(*) AS N FROM NotaIP GROUP BY IdInm",
      u"SELECT Nombre FROM Usuario UNION SELECT Alias FROM Cliente", u"SELECT Max(IdNotaIP) AS N FROM NotaIP",
      u"SELECT Q.Nombre FROM (SELECT Nombre FROM Usuario) AS Q"};
  for (const TextView sql : selects) {
    const auto set = mine->OpenRecordset(sql);
    EXPECT_EQ(failureOf([&] { set->Edit(); }), f::readOnly) << toUtf8(sql);
    EXPECT_EQ(failureOf([&] { set->Delete(); }), f::readOnly) << toUtf8(sql);
    EXPECT_EQ(failureOf([&] { set->Update(); }), f::updateWithoutEdit) << toUtf8(sql);
  }
  const auto snapshot = mine->OpenRecordset(u"SELECT * FROM Usuario", dao::dbOpenSnapshot);
  EXPECT_EQ(failureOf([&] { snapshot->Edit(); }), f::readOnly);
}

TEST_P(Edits, go_to_the_first_columns_table_when_the_join_has_many_rows_for_one) {
  mine->Execute(u"INSERT INTO DocuNotaIP (IdNota, NombreOrg) VALUES (1, 'Foto.jpg')");
  const auto set = mine->OpenRecordset(
      u"SELECT NotaIP.IdNotaIP, Asunto, NombreOrg FROM NotaIP LEFT JOIN DocuNotaIP ON NotaIP.IdNotaIP = "
      u"DocuNotaIP.IdNota "
      u"ORDER BY NotaIP.IdNotaIP, DocuNotaIP.IdDocu");
  EXPECT_EQ(set->RecordCount(), 5);
  EXPECT_EQ(set->value(u"NombreOrg").text(), u"Plano.doc");
  set->MoveNext();
  EXPECT_EQ(set->value(u"NombreOrg").text(), u"Foto.jpg");
  set->Edit();
  set->setValue(u"Asunto", u"Dos documentos");
  EXPECT_EQ(failureOf([&] { set->setValue(u"NombreOrg", u"x"); }), f::readOnly);
  set->Update();
  set->MovePrevious();
  EXPECT_EQ(set->value(u"Asunto").text(), u"Dos documentos");
  set->FindFirst(u"NombreOrg = 'foto.JPG'");
  EXPECT_EQ(set->AbsolutePosition(), 1);
  set->MoveLast();
  EXPECT_TRUE(set->value(u"NombreOrg").isNull());
  const Text last = set->Bookmark();
  set->MoveFirst();
  set->setBookmark(last);
  EXPECT_EQ(set->AbsolutePosition(), 4);
}

TEST_P(Edits, of_the_many_side_find_it_wherever_it_stands_in_the_join) {
  const auto set = mine->OpenRecordset(
      u"SELECT NotaIP.IdNotaIP, Asunto, Usuario.Nombre FROM Usuario INNER JOIN NotaIP ON Usuario.IdUsuario = "
      u"NotaIP.IdUsuario WHERE Usuario.IdUsuario = 2");
  EXPECT_EQ(set->RecordCount(), 1);
  set->Edit();
  set->setValue(u"Asunto", u"Del segundo");
  EXPECT_EQ(failureOf([&] { set->setValue(u"Nombre", u"x"); }), f::readOnly);
  set->Update();
  EXPECT_EQ(agency.one(u"SELECT Asunto FROM NotaIP WHERE IdNotaIP = 2").text(), u"Del segundo");
}

TEST_P(Edits, follow_a_tables_alias) {
  const auto set =
      mine->OpenRecordset(u"SELECT N.IdNotaIP, N.Asunto AS Tema FROM NotaIP AS N WHERE N.IdInm = 7");
  set->Edit();
  set->setValue(u"Tema", u"Por alias");
  set->Update();
  EXPECT_EQ(agency.one(u"SELECT Asunto FROM NotaIP WHERE IdNotaIP = 4").text(), u"Por alias");
  set->Delete();
  EXPECT_TRUE(set->isEOF());
}

}  // namespace
}  // namespace ovalia::engines::test
