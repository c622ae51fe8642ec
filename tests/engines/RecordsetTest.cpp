#include "tests/engines/EngineFixture.h"

namespace ovalia::engines::test {
namespace {

namespace f = dao::failure;

class Moves : public EngineTest {};
INSTANTIATE_TEST_SUITE_P(On, Moves, ::testing::Values(sqliteEngine()),
                         [](const auto& info) { return info.param.name; });

using Step = std::function<void(dao::Recordset&)>;

struct MoveRow {
  const char* what;
  Step run;
  bool bof, eof;
  std::int32_t position;
  bool noMatch;
  std::int32_t failure;
};

// Does each step and compares what the set says of itself afterwards.
void walk(dao::Recordset& set, const std::vector<MoveRow>& steps) {
  int number = 0;
  for (const MoveRow& row : steps) {
    SCOPED_TRACE("step " + std::to_string(++number) + ": " + row.what);
    EXPECT_EQ(failureOf([&] { row.run(set); }), row.failure);
    EXPECT_EQ(set.isBOF(), row.bof);
    EXPECT_EQ(set.isEOF(), row.eof);
    EXPECT_EQ(set.AbsolutePosition(), row.position);
    EXPECT_EQ(set.NoMatch(), row.noMatch);
  }
}

const Step first = [](dao::Recordset& set) { set.MoveFirst(); };
const Step last = [](dao::Recordset& set) { set.MoveLast(); };
const Step next = [](dao::Recordset& set) { set.MoveNext(); };
const Step previous = [](dao::Recordset& set) { set.MovePrevious(); };
const Step erase = [](dao::Recordset& set) { set.Delete(); };
const Step nothing = [](dao::Recordset&) {};
Step find(TextView criterion) {
  return [=](dao::Recordset& set) { set.FindFirst(criterion); };
}
Step findNext(TextView criterion) {
  return [=](dao::Recordset& set) { set.FindNext(criterion); };
}
Step findPrevious(TextView criterion) {
  return [=](dao::Recordset& set) { set.FindPrevious(criterion); };
}
Step findLast(TextView criterion) {
  return [=](dao::Recordset& set) { set.FindLast(criterion); };
}

TEST_P(Moves, go_past_an_edge_once_without_a_failure) {
  for (const auto type : {dao::dbOpenDynaset, dao::dbOpenSnapshot}) {
    const auto set = mine->OpenRecordset(notesOfProperty120, type);
    EXPECT_EQ(set->RecordCount(), 3);
    walk(*set, {{"open", nothing, false, false, 0, false, 0},
                {"previous", previous, true, false, -1, false, 0},
                {"previous again", previous, true, false, -1, false, f::noCurrentRecord},
                {"next from the beginning", next, false, false, 0, false, 0},
                {"last", last, false, false, 2, false, 0},
                {"next", next, false, true, -1, false, 0},
                {"next again", next, false, true, -1, false, f::noCurrentRecord},
                {"previous from the end", previous, false, false, 2, false, 0},
                {"first", first, false, false, 0, false, 0}});
  }
}

TEST_P(Moves, fail_on_an_empty_set) {
  for (const auto type : {dao::dbOpenDynaset, dao::dbOpenSnapshot}) {
    const auto set = mine->OpenRecordset(u"SELECT IdNotaIP, Asunto FROM NotaIP WHERE IdInm = 99", type);
    EXPECT_EQ(set->RecordCount(), 0);
    walk(*set, {{"open", nothing, true, true, -1, false, 0},
                {"first", first, true, true, -1, false, f::noCurrentRecord},
                {"last", last, true, true, -1, false, f::noCurrentRecord},
                {"next", next, true, true, -1, false, f::noCurrentRecord},
                {"previous", previous, true, true, -1, false, f::noCurrentRecord},
                {"find", find(u"IdNotaIP = 1"), true, true, -1, true, 0},
                {"find by text", find(u"Asunto = 'x'"), true, true, -1, true, 0}});
    EXPECT_EQ(failureOf([&] { set->value(u"Asunto"); }), f::noCurrentRecord);
    EXPECT_EQ(failureOf([&] { set->Edit(); }), f::noCurrentRecord);
    EXPECT_EQ(failureOf([&] { set->Delete(); }), f::noCurrentRecord);
    EXPECT_EQ(failureOf([&] { set->Bookmark(); }), f::noCurrentRecord);
  }
}

TEST_P(Moves, of_a_find_stay_where_they_are_without_a_match) {
  for (const auto type : {dao::dbOpenDynaset, dao::dbOpenSnapshot}) {
    const auto set = mine->OpenRecordset(notesOfProperty120, type);
    walk(*set, {{"find by key", find(u"IdAnota = 2"), false, false, 1, false, 0},
                {"no such key", find(u"IdAnota = 77"), false, false, 1, true, 0},
                {"a row of another list", find(u"IdAnota = 4"), false, false, 1, true, 0},
                {"a move leaves NoMatch", first, false, false, 0, true, 0},
                {"by text without case", find(u"Asunto = 'ÁTICO'"), false, false, 1, false, 0},
                {"accents count", find(u"Asunto = 'Atico'"), false, false, 1, true, 0},
                {"the next", findNext(u"Codigo Like 'A*'"), false, false, 2, false, 0},
                {"no further", findNext(u"Codigo Like 'A*'"), false, false, 2, true, 0},
                {"the one before", findPrevious(u"Codigo Like 'A*'"), false, false, 1, false, 0},
                {"the first but one", findPrevious(u"Codigo Like 'A*'"), false, false, 0, false, 0},
                {"none before", findPrevious(u"Codigo Like 'A*'"), false, false, 0, true, 0},
                {"the last", findLast(u"Codigo Like 'A*'"), false, false, 2, false, 0},
                {"by a joined column's alias", find(u"Usuario = 'íñigo'"), false, false, 1, false, 0},
                {"by user and stamp", find(u"Id = 120 AND IdUsuario = 1 AND FechaAlta = #03/01/05 10:00:00#"),
                 false, false, 0, false, 0},
                {"key only from here on", findNext(u"IdAnota = 1"), false, false, 0, true, 0},
                {"key only before here", findPrevious(u"IdAnota = 3"), false, false, 0, true, 0},
                {"a criterion that is none", find(u"IdAnota = "), false, false, 0, true, f::criterionSyntax},
                {"an unknown name", find(u"Nada = 3"), false, false, 0, true, f::unknownColumn}});
  }
}

TEST_P(Moves, leave_no_current_row_after_a_delete) {
  const auto set = agency.notes();
  mine->Execute(u"DELETE FROM DocuNotaIP");
  walk(*set, {{"to the middle", next, false, false, 1, false, 0},
              {"delete", erase, false, false, -1, false, 0},
              {"delete again", erase, false, false, -1, false, f::recordDeleted},
              {"next is the one behind", next, false, false, 1, false, 0}});
  EXPECT_EQ(set->RecordCount(), 2);
  EXPECT_EQ(set->value(u"IdAnota"), Variant(std::int32_t{3}));
  walk(*set, {{"delete the last", erase, false, false, -1, false, 0},
              {"next is the end", next, false, true, -1, false, 0},
              {"back", previous, false, false, 0, false, 0},
              {"delete the only one", erase, true, true, -1, false, 0},
              {"first", first, true, true, -1, false, f::noCurrentRecord}});
  EXPECT_EQ(set->RecordCount(), 0);
}

TEST_P(Moves, go_back_from_a_deleted_row_to_the_one_before) {
  const auto set = agency.notes();
  walk(*set, {{"to the middle", next, false, false, 1, false, 0},
              {"delete", erase, false, false, -1, false, 0},
              {"previous", previous, false, false, 0, false, 0}});
  EXPECT_EQ(set->value(u"IdAnota"), Variant(std::int32_t{1}));
}

TEST_P(Moves, stand_on_a_row_that_another_user_deleted) {
  const auto set = agency.notes();
  theirs->Execute(u"DELETE FROM NotaIP WHERE IdNotaIP = 2");
  walk(*set, {{"next", next, false, false, 1, false, f::recordDeleted}});
  EXPECT_EQ(set->RecordCount(), 3);
  EXPECT_EQ(failureOf([&] { set->value(u"Asunto"); }), f::recordDeleted);
  EXPECT_EQ(failureOf([&] { set->Edit(); }), f::recordDeleted);
  EXPECT_EQ(failureOf([&] { set->Delete(); }), f::recordDeleted);
  walk(*set, {{"next", next, false, false, 2, false, 0},
              {"previous", previous, false, false, 1, false, f::recordDeleted},
              {"previous", previous, false, false, 0, false, 0},
              {"find does not see it", find(u"IdAnota = 2"), false, false, 0, true, 0},
              {"nor by text", find(u"Asunto = 'Ático'"), false, false, 0, true, 0}});
  theirs->Execute(u"DELETE FROM NotaIP WHERE IdNotaIP = 3");
  walk(*set, {{"last", last, false, false, 2, true, f::recordDeleted}});
  mine->Execute(u"DELETE FROM DocuNotaIP");
  theirs->Execute(u"DELETE FROM NotaIP WHERE IdNotaIP = 1");
  walk(*set, {{"first", first, false, false, 0, true, f::recordDeleted}});
}

TEST_P(Moves, do_not_show_rows_that_others_added) {
  const auto set = agency.notes();
  theirs->Execute(u"INSERT INTO NotaIP (IdInm, Asunto, FechaAlta) VALUES (120, 'Nueva', #03/01/04#)");
  EXPECT_EQ(theirs->RecordsAffected(), 1);
  walk(*set, {{"last", last, false, false, 2, false, 0},
              {"find it", find(u"Asunto = 'Nueva'"), false, false, 2, true, 0}});
  set->Requery();
  EXPECT_EQ(set->RecordCount(), 4);
  EXPECT_EQ(set->value(u"Asunto").text(), u"Nueva");
}

TEST_P(Moves, by_place_go_straight_to_the_row) {
  const auto set = agency.notes();
  set->setAbsolutePosition(2);
  EXPECT_EQ(set->value(u"IdAnota"), Variant(std::int32_t{3}));
  EXPECT_EQ(failureOf([&] { set->setAbsolutePosition(3); }), f::noCurrentRecord);
  EXPECT_EQ(failureOf([&] { set->setAbsolutePosition(-1); }), f::noCurrentRecord);
  EXPECT_EQ(set->AbsolutePosition(), 2);
}

TEST_P(Moves, by_bookmark_survive_deletes_of_other_rows) {
  const auto set = agency.notes();
  set->MoveLast();
  const Text third = set->Bookmark();
  set->MovePrevious();
  const Text second = set->Bookmark();
  set->Delete();
  set->MoveFirst();
  set->setBookmark(third);
  EXPECT_EQ(set->value(u"IdAnota"), Variant(std::int32_t{3}));
  EXPECT_EQ(set->AbsolutePosition(), 1);
  EXPECT_EQ(failureOf([&] { set->setBookmark(second); }), f::recordDeleted);
  theirs->Execute(u"DELETE FROM NotaIP WHERE IdNotaIP = 3");
  EXPECT_EQ(failureOf([&] { set->setBookmark(third); }), f::recordDeleted);
  EXPECT_EQ(failureOf([&] { set->setBookmark(u""); }), f::noCurrentRecord);
  EXPECT_EQ(failureOf([&] { set->setBookmark(u"nada"); }), f::noCurrentRecord);
}

TEST_P(Moves, are_refused_once_the_set_or_its_database_is_closed) {
  const auto set = agency.notes();
  const auto field = set->fields().item(u"Asunto");
  const auto other = mine->OpenRecordset(u"SELECT Count(*) AS N FROM NotaIP", dao::dbOpenSnapshot);
  set->Close();
  constexpr auto closed = ovalia::failure::objectNotSet;
  EXPECT_EQ(failureOf([&] { set->MoveNext(); }), closed);
  EXPECT_EQ(failureOf([&] { set->isEOF(); }), closed);
  EXPECT_EQ(failureOf([&] { set->fields(); }), closed);
  EXPECT_EQ(failureOf([&] { field->Value(); }), closed);
  EXPECT_EQ(failureOf([&] { set->Close(); }), closed);
  mine->Close();
  EXPECT_EQ(failureOf([&] { other->MoveFirst(); }), closed);
  EXPECT_EQ(failureOf([&] { mine->Execute(u"DELETE FROM NotaIP"); }), closed);
  EXPECT_EQ(failureOf([&] { mine->OpenRecordset(u"NotaIP"); }), closed);
}

}  // namespace
}  // namespace ovalia::engines::test
