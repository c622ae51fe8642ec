#include "tests/engines/EngineFixture.h"

namespace ovalia::engines::test {
namespace {

namespace f = dao::failure;

class Freshness : public EngineTest {};
INSTANTIATE_TEST_SUITE_P(On, Freshness, ::testing::Values(sqliteEngine()),
                         [](const auto& info) { return info.param.name; });

TEST_P(Freshness, of_a_row_follows_own_writes_before_they_are_committed_and_after_they_are_taken_back) {
  const auto set = agency.notes();
  EXPECT_EQ(set->value(u"Asunto").text(), u"Llaves");
  mine->Execute(u"BEGIN");
  mine->Execute(u"UPDATE NotaIP SET Asunto = 'Dentro' WHERE IdNotaIP = 1");
  EXPECT_EQ(set->value(u"Asunto").text(), u"Dentro");
  mine->Execute(u"ROLLBACK");
  EXPECT_EQ(set->value(u"Asunto").text(), u"Llaves");
}

TEST_P(Freshness, of_a_row_is_not_deceived_by_the_next_transaction_or_a_savepoint) {
  const auto set = agency.notes();
  mine->Execute(u"BEGIN");
  mine->Execute(u"UPDATE NotaIP SET Asunto = 'Dentro' WHERE IdNotaIP = 1");
  EXPECT_EQ(set->value(u"Asunto").text(), u"Dentro");
  mine->Execute(u"ROLLBACK");
  mine->Execute(u"BEGIN");
  EXPECT_EQ(set->value(u"Asunto").text(), u"Llaves");
  mine->Execute(u"SAVEPOINT Antes");
  mine->Execute(u"UPDATE NotaIP SET Asunto = 'Dentro' WHERE IdNotaIP = 1");
  set->FindFirst(u"Asunto = 'dentro'");
  EXPECT_FALSE(set->NoMatch());
  EXPECT_EQ(set->value(u"Asunto").text(), u"Dentro");
  mine->Execute(u"ROLLBACK TO Antes");
  EXPECT_EQ(set->value(u"Asunto").text(), u"Llaves");
  set->FindFirst(u"Asunto = 'dentro'");
  EXPECT_TRUE(set->NoMatch());
  mine->Execute(u"COMMIT");
}

TEST_P(Freshness, of_a_search_follows_every_write) {
  const auto set = agency.notes();
  set->FindFirst(u"Asunto = 'nuevo'");
  EXPECT_TRUE(set->NoMatch());
  theirs->Execute(u"UPDATE NotaIP SET Asunto = 'Nuevo' WHERE IdNotaIP = 3");
  set->FindFirst(u"Asunto = 'nuevo'");
  EXPECT_EQ(set->AbsolutePosition(), 2);
  set->MoveFirst();
  set->Edit();
  set->setValue(u"Asunto", u"NUEVO");
  set->Update();
  set->FindFirst(u"Asunto = 'nuevo'");
  EXPECT_EQ(set->AbsolutePosition(), 0);
}

TEST_P(Freshness, of_a_list_opened_again_follows_its_tables) {
  const TextView sql = u"SELECT * FROM Agencia";
  const dao::RecordsetType types[] = {dao::dbOpenDynaset, dao::dbOpenSnapshot};
  for (const auto type : types) EXPECT_EQ(mine->OpenRecordset(sql, type)->fields().count(), 2u);
  theirs->Execute(u"ALTER TABLE Agencia ADD COLUMN Telefono VARCHAR(20)");
  for (const auto type : types) EXPECT_EQ(mine->OpenRecordset(sql, type)->fields().count(), 3u);
  theirs->Execute(u"DROP TABLE Agencia");
  for (const auto type : types)
    EXPECT_EQ(failureOf([&] { mine->OpenRecordset(sql, type); }), f::unknownTable);
}

TEST_P(Freshness, of_a_copy_made_again_is_its_own) {
  const auto copy = [&] {
    return mine->OpenRecordset(u"SELECT Nombre FROM Usuario WHERE IdUsuario = 1", dao::dbOpenSnapshot);
  };
  const auto before = copy();
  theirs->Execute(u"UPDATE Usuario SET Nombre = 'Eva' WHERE IdUsuario = 1");
  const auto after = copy();
  EXPECT_EQ(before->value(u"Nombre").text(), u"Ana");
  EXPECT_EQ(after->value(u"Nombre").text(), u"Eva");
  before->Requery();
  EXPECT_EQ(before->value(u"Nombre").text(), u"Eva");
}

TEST_P(Freshness, of_an_open_list_survives_a_column_taken_away) {
  theirs->Execute(u"ALTER TABLE Agencia ADD COLUMN Telefono VARCHAR(20)");
  const auto set = mine->OpenRecordset(u"SELECT * FROM Agencia");
  const auto field = set->fields().item(u"Telefono");
  EXPECT_TRUE(field->Value().isNull());
  theirs->Execute(u"ALTER TABLE Agencia DROP COLUMN Telefono");
  EXPECT_EQ(failureOf([&] { field->Value(); }), f::notInCollection);
  set->Requery();
  EXPECT_EQ(set->fields().count(), 2u);
  EXPECT_EQ(failureOf([&] { field->Value(); }), f::notInCollection);
}

TEST_P(Freshness, of_two_lists_of_the_same_text_is_each_its_own) {
  const auto one = agency.notes();
  const auto two = agency.notes();
  two->MoveLast();
  EXPECT_EQ(one->value(u"IdAnota").toLong(), 1);
  EXPECT_EQ(two->value(u"IdAnota").toLong(), 3);
  one->Close();
  const auto three = agency.notes();
  EXPECT_EQ(three->value(u"IdAnota").toLong(), 1);
  EXPECT_EQ(two->value(u"IdAnota").toLong(), 3);
}

TEST_P(Freshness, of_rows_without_one_of_the_first_columns_table) {
  const auto set = mine->OpenRecordset(
      u"SELECT Usuario.Nombre, NotaIP.IdNotaIP, Asunto FROM NotaIP LEFT JOIN Usuario ON NotaIP.IdUsuario = "
      u"Usuario.IdUsuario ORDER BY NotaIP.IdNotaIP");
  EXPECT_EQ(set->RecordCount(), 4);
  set->FindFirst(u"IdNotaIP = 3");
  EXPECT_EQ(set->AbsolutePosition(), 2);
  EXPECT_TRUE(set->value(u"Nombre").isNull());
  EXPECT_EQ(set->value(u"Asunto").text(), u"Sin dueño");
}

TEST_P(Freshness, of_rows_without_one_of_a_table_further_left) {
  for (const TextView join : {u"RIGHT", u"FULL"}) {
    const auto set = mine->OpenRecordset(u"SELECT NotaIP.IdNotaIP, Asunto, Alias FROM NotaIP " + Text(join) +
                                         u" JOIN Cliente ON NotaIP.IdCliente = Cliente.IdCliente "
                                         u"ORDER BY Alias DESC");
    EXPECT_EQ(set->value(u"Alias").text(), u"Peña");
    EXPECT_TRUE(set->value(u"Asunto").isNull());
    EXPECT_EQ(failureOf([&] { set->Delete(); }), f::recordDeleted) << "there is nothing to delete";
    EXPECT_EQ(set->RecordCount(), join == u"FULL" ? 5 : 1);
  }
}

TEST_P(Freshness, of_rows_that_are_found_is_that_of_the_list_not_of_its_table) {
  const auto set = agency.notes();
  set->FindFirst(u"Asunto = 'otra'");
  EXPECT_TRUE(set->NoMatch()) << "a row of another property";
  theirs->Execute(u"UPDATE NotaIP SET IdInm = 120 WHERE IdNotaIP = 4");
  set->FindFirst(u"Asunto = 'otra'");
  EXPECT_TRUE(set->NoMatch()) << "it came later";
  theirs->Execute(u"UPDATE NotaIP SET IdInm = 9, Asunto = 'Se va' WHERE IdNotaIP = 2");
  set->FindFirst(u"Asunto = 'se va'");
  EXPECT_EQ(set->AbsolutePosition(), 1);
}

TEST_P(Freshness, of_tables_that_have_no_key_of_their_own) {
  mine->Execute(u"CREATE TABLE Suelta (Nombre VARCHAR(20))");
  mine->Execute(u"INSERT INTO Suelta VALUES ('uno')");
  const auto set = mine->OpenRecordset(u"Suelta");
  set->Edit();
  set->setValue(u"Nombre", u"dos");
  set->Update();
  EXPECT_EQ(agency.one(u"SELECT Nombre FROM Suelta").text(), u"dos");
}

}  // namespace

// What only a file has.
TEST(SqliteFiles, are_followed_after_their_log_is_switched_off) {
  const TemporaryFolder folder;
  const Text file = fromUtf8((folder / "a.db").string());
  const auto mine = open(file, {.create = true});
  mine->Execute(u"CREATE TABLE T (IdT INTEGER PRIMARY KEY, a TEXT)");
  mine->Execute(u"INSERT INTO T VALUES (1, 'x')");
  const auto set = mine->OpenRecordset(u"T");
  EXPECT_EQ(set->value(u"a").text(), u"x");
  mine->Execute(u"PRAGMA journal_mode = DELETE");
  mine->Execute(u"UPDATE T SET a = 'y'");
  EXPECT_EQ(set->value(u"a").text(), u"y");
}

TEST(SqliteFiles, in_utf_16_are_read_and_searched_alike) {
  const auto database = open(u":memory:");
  database->Execute(u"PRAGMA encoding = 'UTF-16le'");
  database->Execute(u"CREATE TABLE T (IdT INTEGER PRIMARY KEY, a TEXT)");
  database->Execute(u"INSERT INTO T VALUES (1, 'Señora Ibáñez')");
  const auto set = database->OpenRecordset(u"T");
  EXPECT_EQ(set->value(u"a").text(), u"Señora Ibáñez");
  set->FindFirst(u"a Like '*IBÁÑ*' And a = 'SEÑORA IBÁÑEZ'");
  EXPECT_FALSE(set->NoMatch());
}

TEST(SqliteFiles, give_a_setting_as_it_is_after_its_change) {
  const auto database = open(u":memory:");
  const auto size = [&] {
    return database->OpenRecordset(u"PRAGMA cache_size", dao::dbOpenSnapshot)
        ->fields()
        .at(0)
        ->Value()
        .toLong();
  };
  EXPECT_EQ(size(), size());
  database->Execute(u"PRAGMA cache_size = 77");
  EXPECT_EQ(size(), 77);
}

TEST(SqliteFiles, take_dates_as_text_too) {
  const auto database = open(u":memory:");
  database->Execute(u"CREATE TABLE T (IdT INTEGER PRIMARY KEY, d DATETIME)");
  database->Execute(u"CREATE TABLE K (Clave SMALLINT PRIMARY KEY, a TEXT) WITHOUT ROWID");
  database->Execute(u"INSERT INTO T VALUES (1, NULL)");
  database->Execute(u"INSERT INTO K VALUES (5, 'x')");
  const auto other = database->OpenRecordset(u"K");
  other->Edit();
  other->setValue(u"a", u"y");
  other->Update();
  EXPECT_EQ(other->value(u"a").text(), u"y");
  other->Edit();
  other->setValue(u"Clave", std::int32_t{6});
  other->Update();
  EXPECT_EQ(other->value(u"a").text(), u"y") << "the row goes on under its new key";
  const auto set = database->OpenRecordset(u"SELECT IdT, '2005-03-07 09:05:00' AS d FROM T");
  EXPECT_EQ(set->value(u"d").text(), u"2005-03-07 09:05:00");
}

TEST(SqliteFiles, open_a_statement_in_their_own_words_for_reading) {
  const auto database = open(u":memory:");
  const auto set = database->OpenRecordset(u"WITH Q(n) AS (VALUES (1), (2)) SELECT n FROM Q");
  EXPECT_EQ(set->RecordCount(), 2);
  EXPECT_EQ(failureOf([&] { database->OpenRecordset(u"CREATE TABLE T (a)"); }), dao::failure::syntax);
  EXPECT_TRUE(database->tableNames().empty());
  EXPECT_EQ(failureOf([&] { database->OpenRecordset(u"DELETE FROM T"); }), dao::failure::syntax);
}

}  // namespace ovalia::engines::test
