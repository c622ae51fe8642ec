// What a file, its disk and its other users can do to a connection at work.

#include <fstream>

#include "tests/engines/EngineFixture.h"

namespace ovalia::engines::test {
namespace {

namespace f = dao::failure;

class HardTimes : public EngineTest {};
INSTANTIATE_TEST_SUITE_P(On, HardTimes, ::testing::Values(sqliteEngine()),
                         [](const auto& info) { return info.param.name; });

struct Misfit {
  TextView column;
  TextView literal;  // as a foreign program may have stored it
  VarType shown;
};

TEST_P(HardTimes, of_values_that_do_not_fit_their_column_show_them_as_they_are) {
  const Misfit rows[] = {
      {u"IdInm", u"'doce'", VarType::Text},     {u"IdInm", u"4000000000", VarType::Double},
      {u"Narchivos", u"70000", VarType::Long},  {u"Nivel", u"-1", VarType::Integer},
      {u"Aviso", u"'sí'", VarType::Text},       {u"Aviso", u"2.5", VarType::Boolean},
      {u"FechaAlta", u"'ayer'", VarType::Text}, {u"FechaAlta", u"'2005-03-07 09:05'", VarType::Date},
      {u"Precio", u"'caro'", VarType::Text},    {u"Precio", u"-9223372036854775808", VarType::Double},
      {u"Precio", u"1e300", VarType::Double},   {u"Peso", u"'ligero'", VarType::Text},
      {u"Notas", u"x'C3'", VarType::Text},      {u"Notas", u"12", VarType::Text}};
  for (const Misfit& row : rows) {
    SCOPED_TRACE(toUtf8(row.column) + " " + toUtf8(row.literal));
    // In the engine's own words, so that no check of ours stands in between.
    mine->Execute(u"WITH Q AS (SELECT 1) UPDATE NotaIP SET " + Text(row.column) + u" = " + Text(row.literal) +
                  u" WHERE IdNotaIP = 1");
    for (const auto type : {dao::dbOpenDynaset, dao::dbOpenSnapshot}) {
      const auto set = mine->OpenRecordset(u"SELECT * FROM NotaIP WHERE IdNotaIP = 1", type);
      EXPECT_EQ(set->value(row.column).type(), row.shown);
    }
    mine->Execute(u"WITH Q AS (SELECT 1) UPDATE NotaIP SET " + Text(row.column) + u" = NULL");
  }
}

TEST_P(HardTimes, of_texts_with_a_nul_inside_keep_it) {
  const Text text = Text(u"antes") + u'\0' + u"después";
  const auto set = agency.notes();
  set->Edit();
  set->setValue(u"Asunto", text);
  set->Update();
  EXPECT_EQ(set->value(u"Asunto").text(), text);
  set->FindFirst(u"Asunto Like '*despu?s'");
  EXPECT_FALSE(set->NoMatch());
  mine->Execute(u"INSERT INTO Materia (Nombre) VALUES ('" + text + u"')");
  EXPECT_EQ(mine->RecordsAffected(), 1);
  EXPECT_EQ(agency.one(u"SELECT Nombre FROM Materia WHERE Nombre = '" + text + u"'").text(), text);
}

TEST_P(HardTimes, of_a_nul_outside_a_literal_refuse_the_statement) {
  const Text sql = Text(u"DELETE * FROM Plantilla WHERE IdPlantilla > 0") + u'\0' + u" AND IdPlantilla < 0";
  EXPECT_EQ(failureOf([&] { mine->Execute(sql); }), f::syntax);
  EXPECT_EQ(agency.one(u"SELECT Count(*) FROM Plantilla"), Variant(std::int32_t{3}));
}

TEST_P(HardTimes, of_half_a_surrogate_pair_put_the_replacement_in_its_place) {
  const Text broken = Text(u"a") + char16_t(0xD83D) + u"b" + char16_t(0xDE00);
  const auto set = agency.notes();
  set->Edit();
  set->setValue(u"Asunto", broken);
  set->Update();
  EXPECT_EQ(set->value(u"Asunto").text(), u"a\uFFFDb\uFFFD");
  set->FindFirst(u"Asunto = '" + broken + u"'");
  EXPECT_FALSE(set->NoMatch());
  set->FindFirst(u"Asunto Like '*" + broken + u"'");
  EXPECT_FALSE(set->NoMatch());
}

TEST_P(HardTimes, of_a_text_of_a_megabyte_take_it_whole) {
  Text text;
  while (text.size() < 1'000'000) text += u"una línea de Ñandú '\r\n";
  const auto set = agency.notes();
  set->Edit();
  set->setValue(u"Notas", text);
  set->Update();
  EXPECT_EQ(set->value(u"Notas").text(), text);
  mine->Execute(u"INSERT INTO Plantilla (Nombre, Notas) VALUES ('Larga', '" + replaceAll(text, u"'", u"''") +
                u"')");
  EXPECT_EQ(agency.one(u"SELECT Notas FROM Plantilla WHERE Nombre = 'larga'").text(), text);
  set->FindFirst(u"Notas Like '*ñandú*línea*zzz'");
  EXPECT_TRUE(set->NoMatch());
}

// The logic writes a bar as a piece of its own: the longest text of bars is the longest statement.
TEST_P(HardTimes, of_a_text_of_bars_join_them_in_time) {
  Text literal = u"'x", wanted = u"x";
  for (int i = 0; i < 20'000; ++i) {
    literal += u"' + chr(124) + 'una celda";
    wanted += u"|una celda";
  }
  mine->Execute(u"INSERT INTO Plantilla (Nombre, Notas) VALUES ('Cuadro', " + literal + u"')");
  EXPECT_EQ(agency.one(u"SELECT Notas FROM Plantilla WHERE Nombre = 'cuadro'").text(), wanted);
}

TEST_P(HardTimes, of_statements_without_an_end_to_their_nesting_refuse_them) {
  Text conditions = u"SELECT Nombre FROM Usuario WHERE ", tables = u"SELECT * FROM ", unions;
  for (int i = 0; i < 100'000; ++i) {
    conditions += u"(";
    tables += u"(SELECT * FROM ";
    unions += u"SELECT Nombre FROM Usuario UNION ";
  }
  EXPECT_EQ(failureOf([&] { mine->OpenRecordset(conditions + u"1"); }), f::syntax);
  EXPECT_EQ(failureOf([&] { mine->OpenRecordset(tables + u"Usuario"); }), f::syntax);
  EXPECT_EQ(failureOf([&] { mine->OpenRecordset(unions + u"SELECT Nombre FROM Usuario"); }), f::syntax);
}

TEST_P(HardTimes, of_a_column_that_others_take_away_leave_the_rest_readable) {
  theirs->Execute(u"ALTER TABLE NotaIP ADD COLUMN Ultima VARCHAR(20)");
  theirs->Execute(u"UPDATE NotaIP SET Ultima = 'la última'");
  const auto set = mine->OpenRecordset(u"SELECT * FROM NotaIP");
  const auto lost = set->fields().item(u"Peso"), kept = set->fields().item(u"Ultima");
  EXPECT_EQ(kept->Value().text(), u"la última");
  theirs->Execute(u"ALTER TABLE NotaIP DROP COLUMN Peso");
  EXPECT_EQ(kept->Value().text(), u"la última");
  EXPECT_EQ(failureOf([&] { lost->Value(); }), f::notInCollection);
  set->Edit();
  set->setValue(u"Ultima", u"cambiada");
  EXPECT_EQ(kept->Value().text(), u"cambiada");
  set->Update();
  EXPECT_EQ(kept->Value().text(), u"cambiada");
  set->MoveNext();
  EXPECT_EQ(kept->Value().text(), u"la última");
  set->Requery();
  EXPECT_EQ(kept->Value().text(), u"cambiada");
  EXPECT_EQ(failureOf([&] { lost->Value(); }), f::notInCollection);
  EXPECT_EQ(failureOf([&] { set->fields().item(u"Peso"); }), f::notInCollection);
}

TEST_P(HardTimes, of_a_column_that_others_rename_say_that_it_is_gone) {
  const auto set = mine->OpenRecordset(u"SELECT * FROM Cliente");
  const auto telephone = set->fields().item(u"Tfno1"), other = set->fields().item(u"Tfno2");
  theirs->Execute(u"ALTER TABLE Cliente RENAME COLUMN Tfno1 TO Telefono");
  EXPECT_EQ(other->Value().text(), u"600000001");
  EXPECT_EQ(failureOf([&] { telephone->Value(); }), f::notInCollection);
  set->Edit();
  set->setValue(u"Tfno1", u"1");
  EXPECT_EQ(failureOf([&] { set->Update(); }), f::unknownColumn);
  set->CancelUpdate();
  EXPECT_EQ(set->value(u"Alias").text(), u"Peña");
}

TEST_P(HardTimes, of_a_table_that_others_drop_fail_and_come_back_with_it) {
  const auto set = mine->OpenRecordset(u"SELECT IdAgencia, Alias FROM Agencia");
  theirs->Execute(u"DROP TABLE Agencia");
  EXPECT_EQ(failureOf([&] { set->value(u"Alias"); }), f::unknownTable);
  EXPECT_EQ(failureOf([&] { set->FindFirst(u"Alias = 'x'"); }), f::unknownTable);
  EXPECT_EQ(failureOf([&] { set->Requery(); }), f::unknownTable);
  EXPECT_EQ(set->RecordCount(), 1) << "as before";
  theirs->Execute(u"CREATE TABLE Agencia (IdAgencia INTEGER PRIMARY KEY AUTOINCREMENT, Alias VARCHAR(40))");
  EXPECT_EQ(failureOf([&] { set->value(u"Alias"); }), f::recordDeleted);
  theirs->Execute(u"INSERT INTO Agencia (IdAgencia, Alias) VALUES (1, 'Nueva')");
  EXPECT_EQ(set->value(u"Alias").text(), u"Nueva");
}

TEST_P(HardTimes, of_recordsets_within_recordsets_keep_them_apart) {
  const auto users = mine->OpenRecordset(u"SELECT * FROM Usuario ORDER BY IdUsuario");
  std::vector<std::int32_t> counts;
  for (; !users->isEOF(); users->MoveNext()) {
    const auto notes = mine->OpenRecordset(u"SELECT IdNotaIP, Asunto FROM NotaIP WHERE IdUsuario = " +
                                           users->value(u"IdUsuario").text());
    counts.push_back(notes->RecordCount());
    for (; !notes->isEOF(); notes->MoveNext()) {
      notes->Edit();
      notes->setValue(u"Asunto", users->value(u"Nombre"));
      notes->Update();
    }
  }
  EXPECT_EQ(counts, (std::vector<std::int32_t>{2, 1}));
  EXPECT_EQ(agency.one(u"SELECT Asunto FROM NotaIP WHERE IdNotaIP = 4").text(), u"Ana");
}

TEST_P(HardTimes, of_a_connection_that_nobody_holds_any_more_wait_for_its_recordsets) {
  auto database = agency.store->connect({});
  const auto list = database->OpenRecordset(notesOfProperty120);
  const auto copy = database->OpenRecordset(u"SELECT Nombre FROM Usuario", dao::dbOpenSnapshot);
  database.reset();
  list->MoveNext();
  list->Edit();
  list->setValue(u"Asunto", u"Sin dueño de la conexión");
  list->Update();
  EXPECT_EQ(agency.one(u"SELECT Asunto FROM NotaIP WHERE IdNotaIP = 2").text(), u"Sin dueño de la conexión");
  copy->MoveNext();
  EXPECT_EQ(copy->value(u"Nombre").text(), u"Íñigo");
  list->fields().item(u"Asunto")->database()->Close();
  EXPECT_EQ(failureOf([&] { copy->MoveFirst(); }), ovalia::failure::objectNotSet);
}

}  // namespace

// What only a file has.
class HardTimesOfFiles : public ::testing::Test {
 protected:
  HardTimesOfFiles() {
    database = open(file(), {.create = true});
    database->Execute(u"CREATE TABLE T (IdT INTEGER PRIMARY KEY AUTOINCREMENT, a TEXT)");
    database->Execute(u"INSERT INTO T (a) VALUES ('x')");
  }
  Text file() { return fromUtf8((folder / "a.db").string()); }
  void fill(int rows) {
    database->Execute(u"BEGIN");
    for (int i = 0; i < rows; ++i) database->Execute(u"INSERT INTO T (a) VALUES ('" + Text(50, u'y') + u"')");
    database->Execute(u"COMMIT");
  }
  Variant setting(TextView pragma) {
    return database->OpenRecordset(u"PRAGMA " + Text(pragma), dao::dbOpenSnapshot)->fields().at(0)->Value();
  }

  TemporaryFolder folder;
  dao::DatabaseRef database;
};

TEST_F(HardTimesOfFiles, are_met_with_full_durability_checked_references_and_patience) {
  constexpr std::int32_t full = 2;
  EXPECT_EQ(setting(u"synchronous").toLong(), full);
  EXPECT_EQ(setting(u"foreign_keys").toLong(), 1);
  EXPECT_EQ(setting(u"journal_mode").text(), u"wal");
  EXPECT_EQ(setting(u"busy_timeout").toLong(), 5000);
}

TEST_F(HardTimesOfFiles, when_the_disk_is_full_keep_the_edit_until_there_is_room) {
  const auto set = database->OpenRecordset(u"T");
  database->Execute(u"PRAGMA max_page_count = 3");
  const Text large(100'000, u'x');
  set->Edit();
  set->setValue(u"a", large);
  EXPECT_EQ(failureOf([&] { set->Update(); }), ovalia::failure::diskFull);
  EXPECT_TRUE(set->editing());
  EXPECT_EQ(set->value(u"a").text(), large);
  EXPECT_EQ(failureOf([&] { database->Execute(u"INSERT INTO T (a) VALUES ('" + large + u"')"); }),
            ovalia::failure::diskFull);
  database->Execute(u"PRAGMA max_page_count = 1000000");
  set->Update();
  EXPECT_EQ(open(file())->OpenRecordset(u"T")->value(u"a").text(), large);
}

TEST_F(HardTimesOfFiles, when_pages_are_torn_say_damaged_at_every_turn) {
  fill(2000);
  database->Close();
  {
    std::fstream bytes(folder / "a.db", std::ios::in | std::ios::out | std::ios::binary);
    bytes.seekp(5 * 4096);
    bytes << std::string(20 * 4096, '\xFF');
  }
  database = open(file());
  EXPECT_EQ(failureOf([&] { database->OpenRecordset(u"SELECT * FROM T WHERE a Like '*z*'"); }), f::damaged);
  const auto set = database->OpenRecordset(u"SELECT * FROM T WHERE IdT < 3");
  EXPECT_EQ(set->value(u"a").text(), u"x");
  EXPECT_EQ(failureOf([&] { database->Execute(u"UPDATE T SET a = 'z' WHERE IdT > 3"); }), f::damaged);
  EXPECT_EQ(set->value(u"a").text(), u"x") << "what is whole goes on";
}

TEST_F(HardTimesOfFiles, when_cut_short_are_damaged) {
  fill(2000);
  database->Close();
  std::filesystem::resize_file(folder / "a.db", 3 * 4096);
  EXPECT_EQ(failureOf([&] { open(file())->OpenRecordset(u"T"); }), f::damaged);
}

TEST_F(HardTimesOfFiles, with_slashes_too_many_in_the_path_are_found) {
  EXPECT_EQ(open(u"//" + file().substr(1))->OpenRecordset(u"T")->RecordCount(), 1);
  EXPECT_EQ(open(u"/" + file())->OpenRecordset(u"T")->RecordCount(), 1);
}

}  // namespace ovalia::engines::test
