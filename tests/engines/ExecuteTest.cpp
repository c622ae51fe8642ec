#include "tests/engines/EngineFixture.h"

namespace ovalia::engines::test {
namespace {

namespace f = dao::failure;

class Executing : public EngineTest {};
INSTANTIATE_TEST_SUITE_P(On, Executing, ::testing::Values(sqliteEngine()),
                         [](const auto& info) { return info.param.name; });

TEST_P(Executing, counts_the_rows_of_the_last_statement_whatever_recordsets_do) {
  mine->Execute(u"UPDATE NotaIP SET Narchivos = 2 WHERE IdInm = 120");
  EXPECT_EQ(mine->RecordsAffected(), 3);
  const auto set = agency.notes();
  set->Edit();
  set->setValue(u"Asunto", u"x");
  set->Update();
  set->MoveLast();
  set->Delete();
  mine->OpenRecordset(u"Usuario", dao::dbOpenSnapshot);
  EXPECT_EQ(mine->RecordsAffected(), 3);
  mine->Execute(u"DELETE * FROM Plantilla WHERE IdPlantilla = 77");
  EXPECT_EQ(mine->RecordsAffected(), 0);
}

TEST_P(Executing, counts_none_for_a_row_that_a_constraint_refuses) {
  const TextView refused[] = {u"INSERT INTO NotaIP (IdInm, IdUsuario) VALUES (1, 99)",
                              u"INSERT INTO NotaIP (IdInm, Codigo) VALUES (1, 'A1')",
                              u"INSERT INTO NotaIP (IdInm, Codigo) VALUES (1, '12345678901')",
                              u"INSERT INTO Usuario (Nombre) VALUES (Null)",
                              u"UPDATE NotaIP SET IdUsuario = 99 WHERE IdNotaIP = 1",
                              u"DELETE * FROM Usuario WHERE IdUsuario = 1"};
  for (const TextView sql : refused) {
    mine->Execute(u"UPDATE Cliente SET Alias = Alias");
    ASSERT_EQ(mine->RecordsAffected(), 1);
    EXPECT_EQ(failureOf([&] { mine->Execute(sql); }), 0) << toUtf8(sql);
    EXPECT_EQ(mine->RecordsAffected(), 0) << toUtf8(sql);
  }
}

TEST_P(Executing, keeps_the_count_when_a_statement_fails) {
  mine->Execute(u"UPDATE NotaIP SET Narchivos = 2 WHERE IdInm = 120");
  EXPECT_EQ(failureOf([&] { mine->Execute(u"DELETE * FROM Nada"); }), f::unknownTable);
  EXPECT_EQ(mine->RecordsAffected(), 3);
}

TEST_P(Executing, refuses_a_select) {
  EXPECT_EQ(failureOf([&] { mine->Execute(u"SELECT * FROM Usuario"); }), 3065);
}

TEST_P(Executing, leaves_nothing_open_that_would_hide_what_others_commit) {
  const auto set = mine->OpenRecordset(u"SELECT * FROM Usuario", dao::dbOpenSnapshot);
  theirs->Execute(u"UPDATE Usuario SET Nombre = 'Eva' WHERE IdUsuario = 1");
  EXPECT_EQ(set->value(u"Nombre").text(), u"Ana") << "a copy";
  EXPECT_EQ(agency.one(u"SELECT Nombre FROM Usuario WHERE IdUsuario = 1").text(), u"Eva");
}

// Two who had both read before they wrote could never wait for each other.
TEST_P(Executing, begins_a_transaction_only_when_it_is_its_turn_to_write) {
  for (const TextView begin : {u"BEGIN", u" begin transaction ;"}) {
    mine->Execute(begin);
    EXPECT_EQ(agency.one(u"SELECT Count(*) FROM Usuario"), Variant(std::int32_t{2}));
    EXPECT_EQ(failureOf([&] { theirs->Execute(begin); }), f::locked);
    EXPECT_EQ(failureOf([&] { theirs->OpenRecordset(u"Usuario"); }), 0) << "reading goes on";
    mine->Execute(u"UPDATE Usuario SET Nombre = 'Eva' WHERE IdUsuario = 1");
    mine->Execute(u"COMMIT");
    theirs->Execute(begin);
    theirs->Execute(u"UPDATE Usuario SET Nombre = 'Ana' WHERE IdUsuario = 1");
    theirs->Execute(u"ROLLBACK");
    EXPECT_EQ(agency.one(u"SELECT Nombre FROM Usuario WHERE IdUsuario = 1").text(), u"Eva");
  }
}

TEST_P(Executing, ends_no_transaction_that_was_not_begun) {
  for (const TextView end : {u"COMMIT", u"ROLLBACK"})
    EXPECT_EQ(failureOf([&] { mine->Execute(end); }), f::commitWithoutBegin);
}

TEST_P(Executing, says_what_it_did_not_understand) {
  try {
    mine->Execute(u"UPDATE NotaIP SET Nada = 1");
    FAIL();
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.number(), f::unknownColumn);
    EXPECT_NE(failure.description().find(u"Nada"), Text::npos);
  }
}

TEST_P(Executing, stores_truth_and_amounts_so_that_they_come_back) {
  mine->Execute(u"UPDATE NotaIP SET Aviso = 1, Precio = 210354.2378 WHERE IdNotaIP = 1");
  EXPECT_EQ(agency.one(u"SELECT Aviso FROM NotaIP WHERE IdNotaIP = 1"), Variant(true));
  EXPECT_EQ(agency.one(u"SELECT Precio FROM NotaIP WHERE IdNotaIP = 1"), Variant(Currency{2'103'542'378}));
  EXPECT_EQ(agency.one(u"SELECT Count(*) FROM NotaIP WHERE Aviso = True"), Variant(std::int32_t{1}));
  EXPECT_EQ(agency.one(u"SELECT Count(*) FROM NotaIP WHERE Aviso"), Variant(std::int32_t{1}));
}

}  // namespace
}  // namespace ovalia::engines::test
