#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include "routines/ErrorLog.h"
#include "routines/Messages.h"
#include "routines/Trap.h"
#include "tests/kit/FakeDatabase.h"
#include "tests/kit/FakeObject.h"
#include "tests/kit/FakeRecordset.h"
#include "tests/kit/TestPlatform.h"

// The doubles must find what they are there to find.
namespace ovalia {
namespace {

std::int32_t numberOf(const std::function<void()>& statement) { return resumeNext(statement); }

TEST(TestScreen, a_box_that_was_not_announced_fails_the_test) {
  kit::TestPlatform here;
  EXPECT_NONFATAL_FAILURE(MostrarMensaje(u"Hola", 4, u""), "not announced: message box \"Hola\"");
}

TEST(TestScreen, a_box_that_never_came_fails_the_test) {
  kit::TestPlatform here;
  here.expectBox(u"Adiós");
  EXPECT_NONFATAL_FAILURE(here.verify(), "announced and never shown: message box \"Adiós\"");
}

TEST(TestScreen, a_box_worded_or_furnished_differently_fails_the_test_with_both) {
  struct {
    TextView text;
    int buttons;
    TextView title;
  } const rows[] = {{u"Hola", 36, u"Borrar"}, {u"Adiós", 4, u"Borrar"}, {u"Adiós", 36, u""}};
  for (const auto& row : rows) {
    kit::TestPlatform here;
    here.expectBox(u"Adiós", 36, u"Borrar", 6);
    EXPECT_NONFATAL_FAILURE(MostrarMensaje(row.text, row.buttons, row.title),
                            "expected: message box \"Adiós\"");
    here.verify();
  }
}

TEST(TestScreen, an_input_box_in_place_of_a_message_fails_the_test) {
  kit::TestPlatform here;
  here.expectBox(u"¿Cuándo?");
  EXPECT_NONFATAL_FAILURE(PedirMensaje(u"¿Cuándo?", u"", u""), "input box");
}

TEST(TestScreen, boxes_come_in_the_order_announced) {
  kit::TestPlatform here;
  here.expectBox(u"Uno");
  here.expectBox(u"Dos");
  EXPECT_NONFATAL_FAILURE(MostrarMensaje(u"Dos", 0, u""), "Uno");
}

TEST(TestReports, a_report_that_was_not_announced_fails_the_test_twice_by_box_and_by_log) {
  kit::TestPlatform here;
  EXPECT_NONFATAL_FAILURE(procedure(u"Guardar de CNota", [] { throw Failure(13); }), "Guardar de CNota");
  EXPECT_NONFATAL_FAILURE(here.verify(), "logged and not announced");
}

TEST(TestReports, an_entry_that_never_came_fails_the_test) {
  kit::TestPlatform here;
  here.expectLogEntry(u"Guardar de CNota", 13);
  EXPECT_NONFATAL_FAILURE(here.verify(), "announced and never logged: [13] Guardar de CNota");
}

TEST(TestReports, an_entry_of_a_longer_name_is_another_one) {
  kit::TestPlatform here;
  here.expectLogEntry(u"Guardar de CNot", 13);
  here.expectLogEntry(u"Guardar de CNota", 3);
  EscribirErrLog(u"x", 13, u"Guardar de CNota");
  testing::TestPartResultArray failures;
  {
    const testing::ScopedFakeTestPartResultReporter reporter(
        testing::ScopedFakeTestPartResultReporter::INTERCEPT_ONLY_CURRENT_THREAD, &failures);
    here.verify();
  }
  EXPECT_EQ(failures.size(), 3);  // two that never came, one that was not announced
}

TEST(TestFaults, happen_at_the_visit_they_are_set_for_and_once) {
  kit::FaultPanel faults;
  faults.failNth("Files.copy", 2, 70);
  EXPECT_EQ(numberOf([&] { faults.visit("Files.copy"); }), 0);
  EXPECT_EQ(numberOf([&] { faults.visit("Files.remove"); }), 0);
  EXPECT_EQ(numberOf([&] { faults.visit("Files.copy"); }), 70);
  EXPECT_EQ(numberOf([&] { faults.visit("Files.copy"); }), 0);
  EXPECT_EQ(faults.visits("Files.copy"), 3);
  EXPECT_EQ(faults.visits(""), 4);
}

TEST(TestFaults, may_stand_for_any_operation_or_last_until_healed) {
  kit::FaultPanel faults;
  faults.failNth("", 2, 61);
  faults.visit("Files.copy");
  EXPECT_EQ(numberOf([&] { faults.visit("Screen.width"); }), 61);
  faults.failAlways("Files.copy", 70);
  for (int i = 0; i < 3; ++i) EXPECT_EQ(numberOf([&] { faults.visit("Files.copy"); }), 70);
  faults.heal();
  EXPECT_EQ(numberOf([&] { faults.visit("Files.copy"); }), 0);
}

TEST(TestFaults, that_never_happened_fail_the_test) {
  kit::TestPlatform here;
  here.faults.failNext("Files.copy", 70);
  EXPECT_NONFATAL_FAILURE(here.verify(), "Files.copy");
}

class TestFiles : public testing::Test {
 protected:
  kit::TestPlatform here;
  kit::FakeFiles& files = here.files;
};

TEST_F(TestFiles, are_found_without_regard_to_case_in_their_own_spelling) {
  files.putFile(u"\\Datos\\4073F00.doc");
  EXPECT_EQ(files.firstMatch(u"\\datos\\\\4073f00.DOC"), u"4073F00.doc");
  EXPECT_EQ(files.firstMatch(u"\\datos\\*.do?"), u"4073F00.doc");
  EXPECT_EQ(files.firstMatch(u"\\datos\\"), u"4073F00.doc");
  EXPECT_EQ(files.firstMatch(u"\\datos\\*.pdf"), u"");
  EXPECT_EQ(files.firstMatch(u"\\nada\\*.pdf"), u"");
}

TEST_F(TestFiles, brackets_are_ordinary_in_masks) {
  files.putFile(u"\\a\\ErrLog[_].txt");
  EXPECT_EQ(files.firstMatch(u"\\a\\ErrLog[_].txt"), u"ErrLog[_].txt");
  files.putFile(u"\\b\\ErrLog_.txt");
  EXPECT_EQ(files.firstMatch(u"\\b\\ErrLog[_].txt"), u"");
}

TEST_F(TestFiles, fail_with_the_numbers_of_the_port) {
  files.putFile(u"\\a\\uno.doc");
  files.putFile(u"\\a\\dos.doc");
  EXPECT_EQ(numberOf([&] { files.attributes(u"\\a\\tres.doc"); }), 53);
  EXPECT_EQ(numberOf([&] { files.attributes(u"\\b\\tres.doc"); }), 76);
  EXPECT_EQ(numberOf([&] { files.attributes(u"uno.doc"); }), 76);
  EXPECT_EQ(numberOf([&] { files.attributes(u"C:\\uno.doc"); }), 76);
  EXPECT_EQ(numberOf([&] { files.makeDirectory(u"\\a"); }), 75);
  EXPECT_EQ(numberOf([&] { files.makeDirectory(u"\\b\\c"); }), 76);
  EXPECT_EQ(numberOf([&] { files.copy(u"\\a\\uno.doc", u"\\a\\dos.doc", false); }), 58);
  EXPECT_EQ(numberOf([&] { files.copy(u"\\a\\uno.doc", u"\\a\\dos.doc", true); }), 0);
  EXPECT_EQ(numberOf([&] { files.copy(u"\\a\\uno.doc", u"dos.doc", true); }), 76);
  EXPECT_EQ(numberOf([&] { files.remove(u"\\a\\tres.doc"); }), 53);
  files.lock(u"\\a\\uno.doc");
  EXPECT_EQ(numberOf([&] { files.remove(u"\\a\\uno.doc"); }), 70);
  EXPECT_EQ(numberOf([&] { files.append(u"\\a\\uno.doc", u"x"); }), 70);
  EXPECT_EQ(numberOf([&] { files.write(u"\\a", u"x"); }), 75);
}

TEST_F(TestFiles, of_a_folder_are_listed_with_folders_marked) {
  files.putFile(u"\\a\\uno.doc");
  files.putFolder(u"\\a\\b\\c");
  const auto entries = files.list(u"\\a");
  ASSERT_EQ(entries.size(), 2u);
  EXPECT_EQ(entries[0].name, u"b");
  EXPECT_EQ(entries[0].attributes, 16);
  EXPECT_EQ(entries[1].name, u"uno.doc");
  EXPECT_EQ(entries[1].attributes, 0);
}

class TestRecordset : public testing::Test {
 protected:
  kit::TestPlatform here;
  std::shared_ptr<kit::FakeDatabase> database = std::make_shared<kit::FakeDatabase>(here.faults);
  kit::FakeTableRef table = database->table(
      u"NotaIP", {{u"IdNota", dao::dbLong, dao::dbAutoIncrField}, {u"Asunto"}, {u"NDias", dao::dbLong}},
      {{1, u"Llaves", 5}, {2, u"Visita", Null}, {3, u"O'Hara y cía", 7}});
  dao::RecordsetRef rows = database->OpenRecordset(u"notaip");
};

TEST_F(TestRecordset, moves_from_edge_to_edge) {
  EXPECT_EQ(rows->AbsolutePosition(), 0);
  rows->MoveLast();
  EXPECT_EQ(rows->AbsolutePosition(), 2);
  rows->MoveNext();
  EXPECT_TRUE(rows->isEOF());
  EXPECT_EQ(numberOf([&] { rows->value(u"IdNota"); }), 3021);
  EXPECT_EQ(numberOf([&] { rows->MoveNext(); }), 3021);
  rows->MoveFirst();
  rows->MovePrevious();
  EXPECT_TRUE(rows->isBOF());
  EXPECT_EQ(numberOf([&] { rows->MovePrevious(); }), 3021);
}

TEST_F(TestRecordset, writes_what_was_assigned_between_edit_and_update) {
  EXPECT_EQ(numberOf([&] { rows->setValue(u"Asunto", u"x"); }), 3020);
  rows->Edit();
  rows->setValue(u"Asunto", u"Llaves nuevas");
  EXPECT_EQ(rows->value(u"Asunto").text(), u"Llaves nuevas");
  EXPECT_EQ(table->at(0, u"Asunto").text(), u"Llaves");
  table->at(0, u"NDias") = 9;
  rows->Update();
  EXPECT_EQ(table->at(0, u"Asunto").text(), u"Llaves nuevas");
  EXPECT_EQ(rows->value(u"NDias").toLong(), 9);
  EXPECT_EQ(numberOf([&] { rows->Update(); }), 3020);
}

TEST_F(TestRecordset, converts_by_the_columns_type_and_refuses_what_does_not) {
  rows->Edit();
  rows->setValue(u"NDias", u"12");
  EXPECT_EQ(rows->value(u"NDias").type(), VarType::Long);
  EXPECT_EQ(numberOf([&] { rows->setValue(u"NDias", u"doce"); }), 3421);
}

TEST_F(TestRecordset, a_move_drops_the_pending_edit_and_a_failed_update_keeps_it) {
  rows->Edit();
  rows->MoveNext();
  EXPECT_FALSE(rows->editing());
  rows->Edit();
  here.faults.failNext("Recordset.Update", 3260);
  EXPECT_EQ(numberOf([&] { rows->Update(); }), 3260);
  EXPECT_TRUE(rows->editing());
}

TEST_F(TestRecordset, a_row_that_vanished_is_found_gone) {
  table->vanish(1);
  EXPECT_EQ(numberOf([&] { rows->MoveNext(); }), 3167);
  EXPECT_EQ(rows->AbsolutePosition(), 1);
  EXPECT_EQ(numberOf([&] { rows->Edit(); }), 3167);
  rows->MoveNext();
  EXPECT_EQ(rows->value(u"IdNota").toLong(), 3);
}

TEST_F(TestRecordset, a_deleted_row_leaves_no_current_one_until_a_move) {
  rows->MoveNext();
  rows->Delete();
  EXPECT_EQ(rows->AbsolutePosition(), -1);
  EXPECT_FALSE(rows->isBOF());
  EXPECT_FALSE(rows->isEOF());
  EXPECT_EQ(numberOf([&] { rows->value(u"IdNota"); }), 3167);
  rows->MoveNext();
  EXPECT_EQ(rows->value(u"IdNota").toLong(), 3);
  rows->Delete();
  rows->MovePrevious();
  EXPECT_EQ(rows->value(u"IdNota").toLong(), 1);
  rows->Delete();
  EXPECT_TRUE(rows->isBOF() && rows->isEOF());
  EXPECT_EQ(table->rows.size(), 0u);
}

TEST_F(TestRecordset, finds_by_conjunctions_and_keeps_its_place_without_a_match) {
  rows->FindFirst(u"Asunto = 'o''hara y cía' AND NDias = 7");
  EXPECT_FALSE(rows->NoMatch());
  EXPECT_EQ(rows->AbsolutePosition(), 2);
  rows->FindFirst(u"IdNota = 9");
  EXPECT_TRUE(rows->NoMatch());
  EXPECT_EQ(rows->AbsolutePosition(), 2);
  rows->FindPrevious(u"NDias = Null");
  EXPECT_EQ(rows->AbsolutePosition(), 1);
  rows->FindNext(u"NDias = Null");
  EXPECT_TRUE(rows->NoMatch());
}

TEST_F(TestRecordset, goes_back_to_a_bookmarked_row_after_other_deletes) {
  rows->MoveLast();
  const Text bookmark = rows->Bookmark();
  rows->MoveFirst();
  rows->Delete();
  rows->setBookmark(bookmark);
  EXPECT_EQ(rows->value(u"IdNota").toLong(), 3);
}

TEST_F(TestRecordset, sees_new_rows_only_after_a_requery_and_nothing_after_closing) {
  table->add({4, u"Nueva"});
  EXPECT_EQ(rows->RecordCount(), 3);
  rows->Requery();
  EXPECT_EQ(rows->RecordCount(), 4);
  rows->Close();
  EXPECT_EQ(numberOf([&] { rows->MoveFirst(); }), 91);
}

TEST_F(TestRecordset, a_statement_that_was_not_announced_fails_the_test) {
  EXPECT_NONFATAL_FAILURE(numberOf([&] { database->OpenRecordset(u"SELECT 1"); }), "SELECT 1");
}

TEST_F(TestRecordset, statements_are_kept_and_counted) {
  database->onExecute = [](TextView sql) { return sql.starts_with(u"INSERT") ? 0 : 1; };
  database->Execute(u"INSERT INTO NotaIP (Asunto) VALUES ('x')");
  EXPECT_EQ(database->RecordsAffected(), 0);
  EXPECT_EQ(database->executed.size(), 1u);
}

TEST(TestObject, keeps_a_journal_and_refuses_what_it_was_not_given) {
  kit::FakeObject object;
  object.with(u"Caption", u"Nota").giving(u"Mostrar", true);
  object.put(u"Tag", u"x");
  std::vector<Variant> arguments{Variant(u"*.dot")};
  EXPECT_TRUE(object.call(u"mostrar", arguments).toBoolean());
  EXPECT_EQ(object.get(u"CAPTION").text(), u"Nota");
  EXPECT_EQ(object.journal, (std::vector<Text>{u"Tag = x", u"mostrar(*.dot)"}));
  EXPECT_EQ(numberOf([&] { object.get(u"Nada"); }), 438);
  object.strict();
  EXPECT_EQ(numberOf([&] { object.put(u"Nada", 1); }), 438);
}

}  // namespace
}  // namespace ovalia
