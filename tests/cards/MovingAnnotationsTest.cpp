#include "cards/MovingAnnotations.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <ostream>

#include "routines/Trap.h"
#include "tests/cardkit/Attachments.h"
#include "tests/cardkit/RecordingScreen.h"

namespace ovalia {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

// The notes 501, 502 ... of record 120, some of them marked in the host's grid, move to record 4073 and
// client 22.
class MovingAnnotations : public kit::AttachmentsTest {
 public:
  using AttachmentsTest::expectBox;
  using AttachmentsTest::expectReport;
  using AttachmentsTest::here;
  using AttachmentsTest::host;

  void expectMissing() { expectBox(u"No se puede encontrar el fichero adjunto.", 48); }
  void expectNotCopied(TextView name) {
    expectBox(u"Error, el fichero " + leaf + Text(name) + u" no se ha copiado");
  }

  std::shared_ptr<kit::FakeObject> grid = kit::named(u"grdNota");
  kit::FakeTableRef notes;

 protected:
  void SetUp() override {
    AttachmentsTest::SetUp();
    notes = database->table(u"NotaIP",
                            {{u"IdNota", dao::dbLong}, {u"IdInm", dao::dbLong}, {u"IdCliente", dao::dbLong}},
                            {{501, 120, Null}, {502, 120, 21}, {503, 120, 21}});
    here.files.putFolder(newLeaf);
    host.FichaInm->with(u"grdNota", grid);
    host.vClase().with(u"IdRegistro", 999);
    mark({501});
    database->opened.clear();
  }

  // Bookmarks are no keys: "m501" is the row of note 501.
  void mark(std::vector<std::int32_t> keys) {
    const auto marks = std::make_shared<kit::FakeObject>();
    marks->with(u"Count", static_cast<std::int32_t>(keys.size()));
    grid->answering(u"SelBookmarks", [=](Arguments place) -> Variant {
      if (place.empty()) return marks;
      return u"m" + toText(keys.at(static_cast<std::size_t>(place[0].toLong())));
    });
    grid->answering(u"Columns", [](Arguments name) -> Variant {
      if (name.size() != 1 || name[0].toText() != u"IdANota") throw Failure(failure::indexOutOfRange);
      auto column = std::make_shared<kit::FakeObject>();
      column->answering(u"CellText", [](Arguments mark) -> Variant { return mark[0].toText().substr(1); });
      return column;
    });
  }

  void moveTo(std::int32_t record, std::int32_t client = 22) { TrasladaNotas(instance, record, client); }
  void move() { moveTo(4073); }

  // A document of a note as an earlier add has left it; without a file where the content is Null.
  void document(std::int32_t note, TextView stored, const Variant& content) {
    if (!content.isNull()) here.files.putFile(leaf + Text(stored), content.toText());
    const auto key = static_cast<std::int32_t>(documents->rows.size()) + 1;
    documents->add({key, 120, 1, note, u"plano", stored});
  }

  // "IdInm IdCliente" of a note.
  Text linkOf(std::int32_t note) const {
    for (const kit::FakeRowRef& row : notes->rows)
      if (row->values[0].toLong() == note) return join(row->values[1], u" ", row->values[2]);
    return u"gone";
  }
  bool moved(std::int32_t note) const { return linkOf(note) == u"4073 22"; }

  const Text newLeaf = agencyFolder + u"\\Doc4\\Doc0\\Doc7\\Doc0\\";
};

TEST_F(MovingAnnotations, without_a_marked_row_only_tells_so) {
  mark({});
  expectBox(u"Por favor, marque las notas que quiere mover.", 16);
  move();
  EXPECT_THAT(database->opened, IsEmpty());
  EXPECT_THAT(database->executed, IsEmpty());
}

TEST_F(MovingAnnotations, an_annotation_without_attachments_is_linked_and_nothing_else) {
  move();
  EXPECT_THAT(database->executed,
              ElementsAre(u"UPDATE NotaIP SET IdInm = 4073, IdCliente=22 WHERE IdNota = 501"));
  EXPECT_TRUE(moved(501));
  EXPECT_EQ(linkOf(502), u"120 21");
}

TEST_F(MovingAnnotations, the_statement_names_the_hosts_table_and_columns_and_the_key_by_the_kind) {
  nota.Tipo = u"Visita";
  nota.Nota = u"VisitaIP";
  nota.IdPr = u"IdUsu";
  database->onExecute = [](TextView) { return 1; };
  moveTo(-7, -8);
  EXPECT_THAT(database->executed,
              ElementsAre(u"UPDATE VisitaIP SET IdUsu = -7, IdCliente=-8 WHERE IdVisita = 501"));
}

TEST_F(MovingAnnotations, attachments_follow_into_the_new_folder_under_new_names) {
  document(501, u"120F00.pdf", u"el plano");
  document(501, u"120F01.doc", u"el contrato");
  move();
  EXPECT_EQ(here.files.content(newLeaf + u"4073F00.pdf"), u"el plano");
  EXPECT_EQ(here.files.content(newLeaf + u"4073F00.doc"), u"el contrato");
  EXPECT_THAT(here.shell.recycled, ElementsAre(leaf + u"120F00.pdf", leaf + u"120F01.doc"));
  EXPECT_THAT(tree(), SizeIs(2));
  EXPECT_THAT(rows(),
              ElementsAre(u"1: 4073 1 501 plano < 4073F00.pdf", u"2: 4073 1 501 plano < 4073F00.doc"));
  EXPECT_TRUE(moved(501));
}

TEST_F(MovingAnnotations, the_statements_are_these) {
  document(501, u"120F00.pdf", u"el plano");
  document(501, u"120F01.doc", Null);
  expectMissing();
  expectNotCopied(u"120F01.doc");
  move();
  EXPECT_THAT(database->opened, ElementsAre(u"SELECT * FROM DocuNotaIP WHERE IdNota = 501",
                                            u"SELECT Id, NombreArch FROM DocuNotaIP WHERE Id = 4073",
                                            u"SELECT Id, NombreArch FROM DocuNotaIP WHERE Id = 4073"));
  EXPECT_THAT(database->executed,
              ElementsAre(u"DELETE * FROM DocuNotaIP WHERE IdDocu = 2",
                          u"UPDATE NotaIP SET IdInm = 4073, IdCliente=22 WHERE IdNota = 501",
                          u"UPDATE DocuNotaIP SET  NombreArch='4073F00.pdf', Id=4073 WHERE IdDocu = 1"));
}

TEST_F(MovingAnnotations,
       all_are_copied_then_the_annotation_is_linked_then_each_old_file_goes_before_its_row) {
  document(501, u"120F00.pdf", u"el plano");
  document(501, u"120F01.pdf", u"el contrato");
  std::vector<std::string> steps;
  const auto watch = [&](const char* operation, std::string step) {
    for (const int nth : {1, 2}) here.faults.onNth(operation, nth, [&steps, step] { steps.push_back(step); });
  };
  watch("Files.copy", "copy");
  watch("Shell.recycle", "recycle");
  for (const int nth : {1, 2, 3})
    here.faults.onNth("Database.Execute", nth, [&] { steps.push_back("statement"); });
  move();
  EXPECT_THAT(steps,
              ElementsAre("copy", "copy", "statement", "recycle", "statement", "recycle", "statement"));
}

TEST_F(MovingAnnotations, two_attachments_with_one_extension_get_two_names) {
  document(501, u"120F00.pdf", u"el plano");
  document(501, u"120F01.pdf", u"el contrato");
  move();
  EXPECT_EQ(here.files.content(newLeaf + u"4073F00.pdf"), u"el plano");
  EXPECT_EQ(here.files.content(newLeaf + u"4073F01.pdf"), u"el contrato");
  EXPECT_THAT(rows(),
              ElementsAre(u"1: 4073 1 501 plano < 4073F00.pdf", u"2: 4073 1 501 plano < 4073F01.pdf"));
}

TEST_F(MovingAnnotations, new_names_count_on_from_the_new_parents_own_and_replace_no_file) {
  documents->add({50, 4073, 1, 900, u"suyo", u"4073F06.pdf"});
  here.files.putFile(newLeaf + u"4073F07.pdf", u"sin fila");
  document(501, u"120F00.pdf", u"el plano");
  move();
  EXPECT_EQ(here.files.content(newLeaf + u"4073F07.pdf"), u"sin fila");
  EXPECT_EQ(here.files.content(newLeaf + u"4073F08.pdf"), u"el plano");
}

TEST_F(MovingAnnotations, an_extension_that_is_none_becomes_doc) {
  document(501, u"120F00", u"el plano");
  move();
  EXPECT_EQ(here.files.content(newLeaf + u"4073F00.doc"), u"el plano");
}

TEST_F(MovingAnnotations, every_marked_annotation_moves_in_the_order_of_the_marks) {
  document(501, u"120F00.pdf", u"uno");
  document(503, u"120F01.pdf", u"tres");
  mark({503, 501});
  move();
  EXPECT_EQ(here.files.content(newLeaf + u"4073F00.pdf"), u"tres");
  EXPECT_EQ(here.files.content(newLeaf + u"4073F01.pdf"), u"uno");
  EXPECT_TRUE(moved(501) && moved(503));
  EXPECT_EQ(linkOf(502), u"120 21");
}

TEST_F(MovingAnnotations, the_new_folder_is_made) {
  document(501, u"120F00.pdf", u"el plano");
  moveTo(88);
  EXPECT_EQ(here.files.content(agencyFolder + u"\\Doc8\\Doc0\\88F00.pdf"), u"el plano");
}

TEST_F(MovingAnnotations, to_the_same_parent_gives_new_names_and_disposes_of_the_old) {
  document(501, u"120F00.pdf", u"el plano");
  document(501, u"120F01.pdf", u"el contrato");
  moveTo(120);
  EXPECT_THAT(rows(), ElementsAre(u"1: 120 1 501 plano < 120F02.pdf", u"2: 120 1 501 plano < 120F03.pdf"));
  EXPECT_EQ(here.files.content(leaf + u"120F02.pdf"), u"el plano");
  EXPECT_EQ(here.files.content(leaf + u"120F03.pdf"), u"el contrato");
  EXPECT_THAT(here.shell.recycled, ElementsAre(leaf + u"120F00.pdf", leaf + u"120F01.pdf"));
}

TEST_F(MovingAnnotations, list_card_and_counters_are_not_touched) {
  document(501, u"120F00.pdf", u"el plano");
  openCard([&] {
    const int before = here.faults.visits("Recordset.Edit") + here.faults.visits("Recordset.Find");
    instance.EstadoFicha = modificada;
    move();
    EXPECT_EQ(here.faults.visits("Recordset.Edit") + here.faults.visits("Recordset.Find"), before);
    EXPECT_EQ(state(), modificada);
    EXPECT_EQ(nota.crs->AbsolutePosition(), 0);
    putAway();
  });
  EXPECT_EQ(counter(), 0);
  EXPECT_THAT(host.events, IsEmpty());
}

// Files that are not what the table says.

TEST_F(MovingAnnotations, a_missing_file_loses_its_row_and_is_told_twice) {
  document(501, u"120F00.pdf", Null);
  document(501, u"120F01.doc", u"el contrato");
  expectMissing();
  expectNotCopied(u"120F00.pdf");
  move();
  EXPECT_THAT(rows(), ElementsAre(u"2: 4073 1 501 plano < 4073F00.doc"));
  EXPECT_EQ(here.files.content(newLeaf + u"4073F00.doc"), u"el contrato");
  EXPECT_TRUE(moved(501));
}

// The name that the missing file was to take is free still, and counts as its copy once another has taken it.
TEST_F(MovingAnnotations, a_missing_file_is_told_once_where_the_next_takes_its_new_name) {
  document(501, u"120F00.pdf", Null);
  document(501, u"120F01.pdf", u"el contrato");
  expectMissing();
  move();
  EXPECT_THAT(rows(), ElementsAre(u"2: 4073 1 501 plano < 4073F00.pdf"));
  EXPECT_EQ(here.files.content(newLeaf + u"4073F00.pdf"), u"el contrato");
}

TEST_F(MovingAnnotations, a_file_spelt_otherwise_counts_as_missing_and_stays) {
  here.files.putFile(leaf + u"120f00.PDF", u"el plano");
  document(501, u"120F00.pdf", Null);
  expectMissing();
  expectNotCopied(u"120F00.pdf");
  move();
  EXPECT_THAT(rows(), IsEmpty());
  EXPECT_EQ(here.files.content(leaf + u"120f00.PDF"), u"el plano");
}

TEST_F(MovingAnnotations, a_name_out_of_a_damaged_table_never_leads_outside) {
  here.files.putFile(u"\\secreto.doc", u"secreto");
  here.files.putFile(agencyFolder + u"\\Doc1\\120F00.pdf", u"de otra ficha");
  for (const TextView name : {u"..\\..\\..\\..\\..\\secreto.doc", u"../../../../../secreto.doc",
                              u"..\\..\\120F00.pdf", u".", u"..", u"", u"Sub\\x.pdf"}) {
    documents->rows.clear();
    document(501, u"120F00.pdf", Null);
    documents->at(0, u"NombreArch") = name;
    expectMissing();
    expectNotCopied(name);
    move();
    EXPECT_THAT(documents->rows, IsEmpty()) << toUtf8(name);
    EXPECT_THAT(here.shell.recycled, IsEmpty());
  }
  EXPECT_EQ(here.files.content(u"\\secreto.doc"), u"secreto");
  EXPECT_EQ(here.files.content(agencyFolder + u"\\Doc1\\120F00.pdf"), u"de otra ficha");
  EXPECT_THAT(tree(), SizeIs(1));
}

TEST_F(MovingAnnotations, a_copy_that_is_not_there_afterwards_is_told_and_the_rest_goes_on) {
  document(501, u"120F00.pdf", u"el plano");
  here.faults.onNext("Database.Execute", [&] { here.files.remove(newLeaf + u"4073F00.pdf"); });
  expectNotCopied(u"120F00.pdf");
  move();
  EXPECT_THAT(here.shell.recycled, ElementsAre(leaf + u"120F00.pdf"));
  EXPECT_THAT(rows(), ElementsAre(u"1: 4073 1 501 plano < 4073F00.pdf"));
}

TEST_F(MovingAnnotations, an_old_file_that_the_bin_does_not_take_stays_behind_and_its_row_moves) {
  document(501, u"120F00.pdf", u"el plano");
  here.shell.nextRecycle = Shell::RecycleResult{.code = 5, .lastError = 5};
  expectBox(u"Error devuelto: 5, 5");
  move();
  EXPECT_EQ(here.files.content(leaf + u"120F00.pdf"), u"el plano");
  EXPECT_EQ(here.files.content(newLeaf + u"4073F00.pdf"), u"el plano");
  EXPECT_THAT(rows(), ElementsAre(u"1: 4073 1 501 plano < 4073F00.pdf"));
}

TEST_F(MovingAnnotations, a_bin_that_fails_is_reported_for_itself_and_the_row_moves) {
  document(501, u"120F00.pdf", u"el plano");
  here.faults.failNext("Shell.recycle", failure::permissionDenied);
  expectReport(u"EnviarAPapelera() de RutinasErr", failure::permissionDenied);
  move();
  EXPECT_THAT(rows(), ElementsAre(u"1: 4073 1 501 plano < 4073F00.pdf"));
}

TEST_F(MovingAnnotations, a_bin_whose_report_fails_is_passed_over) {
  document(501, u"120F00.pdf", u"el plano");
  here.faults.failNext("Shell.recycle", failure::permissionDenied);
  here.faults.failNext("Screen.messageBox", failure::internalError);
  move();
  EXPECT_THAT(rows(), ElementsAre(u"1: 4073 1 501 plano < 4073F00.pdf"));
}

// Failures: two marked annotations with an attachment each; something fails while the first moves.

enum class Old { there, inBin };

struct Outcome {
  const char* what;
  void (*arrange)(MovingAnnotations& test);
  bool copied;
  bool linked;
  Old oldFile;
  TextView row;  // stored name in the row
};

void PrintTo(const Outcome& row, std::ostream* out) { *out << row.what; }

class OutcomeOfMove : public MovingAnnotations, public testing::WithParamInterface<Outcome> {};

TEST_P(OutcomeOfMove, is_this_and_ends_it) {
  const Outcome& expected = GetParam();
  document(501, u"120F00.pdf", u"el plano");
  document(502, u"120F01.pdf", u"el contrato");
  mark({501, 502});
  expected.arrange(*this);
  move();
  here.faults.heal();
  EXPECT_EQ(here.files.exists(newLeaf + u"4073F00.pdf"), expected.copied);
  EXPECT_EQ(moved(501), expected.linked);
  EXPECT_EQ(here.files.exists(leaf + u"120F00.pdf"), expected.oldFile == Old::there);
  EXPECT_EQ(documents->at(0, u"NombreArch").text(), expected.row);
  EXPECT_EQ(linkOf(502), u"120 21") << "the second is not begun";
  EXPECT_TRUE(here.files.exists(leaf + u"120F01.pdf"));
}

using Test = MovingAnnotations;
constexpr std::int32_t locked = dao::failure::locked;

template <int nth>
constexpr auto statementFails = [](Test& t) {
  t.here.faults.failNth("Database.Execute", nth, locked);
  t.expectReport(u"TrasladaNotas de CNota", locked);
};

template <std::int32_t number>
constexpr auto copyFails = [](Test& t) {
  t.here.faults.failNext("Files.copy", number);
  t.expectReport(u"TrasladaNotas de CNota", number);
};

constexpr auto rowsFail = [](Test& t) {
  t.here.faults.failNext("Database.OpenRecordset", locked);
  t.expectReport(u"TrasladaNotas de CNota", locked);
};

constexpr auto nameFails = [](Test& t) {
  t.here.faults.failNth("Database.OpenRecordset", 2, locked);
  t.expectReport(u"CreaNombreDoc de CNota", locked);
  t.expectReport(u"TrasladaNotas de CNota", failure::pathNotFound);
};

template <int nth>
constexpr auto valueFails = [](Test& t) {
  t.here.faults.failNth("Field.Value", nth, locked);
  t.expectReport(u"TrasladaNotas de CNota", locked);
};

template <int nth>
constexpr auto probeFails = [](Test& t) {
  t.here.faults.failNth("Files.firstMatch", nth, failure::pathFileAccess);
  t.expectReport(u"TrasladaNotas de CNota", failure::pathFileAccess);
};

template <int nth>
constexpr auto folderFails = [](Test& t) {
  t.here.faults.failNth("Files.attributes", nth, failure::pathNotFound);
  t.here.faults.failNext("Files.makeDirectory", failure::permissionDenied);
  t.expectReport(u"CreaPathDoc de CNota", failure::permissionDenied);
  t.expectReport(u"TrasladaNotas de CNota", failure::pathNotFound);
};

constexpr bool copied = true, notCopied = false, linked = true, notLinked = false;
constexpr TextView before = u"120F00.pdf", after = u"4073F00.pdf";

constexpr Outcome outcomes[] = {
    {"the attachments cannot be read", rowsFail, notCopied, notLinked, Old::there, before},
    {"the old folder cannot be made", folderFails<2>, notCopied, notLinked, Old::there, before},
    {"the new folder cannot be made", folderFails<7>, notCopied, notLinked, Old::there, before},
    {"a stored name cannot be read", valueFails<1>, notCopied, notLinked, Old::there, before},
    {"a key cannot be read", valueFails<2>, notCopied, notLinked, Old::there, before},
    {"the new name cannot be made", nameFails, notCopied, notLinked, Old::there, before},
    {"the old file cannot be looked for", probeFails<2>, notCopied, notLinked, Old::there, before},
    {"the copy is denied", copyFails<failure::permissionDenied>, notCopied, notLinked, Old::there, before},
    {"the disk is full", copyFails<failure::diskFull>, notCopied, notLinked, Old::there, before},
    {"the name is taken meanwhile", copyFails<failure::fileAlreadyExists>, notCopied, notLinked, Old::there,
     before},
    {"the annotation cannot be linked", statementFails<1>, copied, notLinked, Old::there, before},
    {"the copy cannot be looked for", probeFails<3>, copied, linked, Old::there, before},
    {"the old file cannot be looked for again", probeFails<4>, copied, linked, Old::there, before},
    {"the row cannot be written", statementFails<2>, copied, linked, Old::inBin, before},
};

INSTANTIATE_TEST_SUITE_P(MovingAnnotations, OutcomeOfMove, testing::ValuesIn(outcomes));

TEST_F(MovingAnnotations, what_moved_before_a_failure_stays_moved) {
  document(501, u"120F00.pdf", u"el plano");
  document(502, u"120F01.pdf", u"el contrato");
  mark({501, 502});
  here.faults.failNth("Files.copy", 2, failure::diskFull);
  expectReport(u"TrasladaNotas de CNota", failure::diskFull);
  move();
  EXPECT_TRUE(moved(501));
  EXPECT_FALSE(moved(502));
  EXPECT_THAT(rows(), ElementsAre(u"1: 4073 1 501 plano < 4073F00.pdf", u"2: 120 1 502 plano < 120F01.pdf"));
}

TEST_F(MovingAnnotations, a_data_folder_that_cannot_be_reached_takes_no_file_for_missing) {
  document(501, u"120F00.pdf", u"el plano");
  nota.AppDirUser = u"\\Red\\Agencia";
  expectReport(u"CreaPathDoc de CNota", failure::pathNotFound);
  expectReport(u"TrasladaNotas de CNota", failure::pathNotFound);
  move();
  EXPECT_THAT(rows(), SizeIs(1));
  EXPECT_FALSE(moved(501));
}

TEST_F(MovingAnnotations, a_row_without_a_stored_name_ends_it) {
  document(501, u"120F00.pdf", u"el plano");
  documents->at(0, u"NombreArch") = Null;
  expectReport(u"TrasladaNotas de CNota", failure::invalidUseOfNull);
  move();
  EXPECT_THAT(documents->rows, SizeIs(1));
  EXPECT_FALSE(moved(501));
}

struct Missing {
  const char* member;
  void (*take)(MovingAnnotations& test);
  std::int32_t number = failure::noSuchMember;
};

void PrintTo(const Missing& row, std::ostream* out) { *out << row.member; }

class MissingMember : public MovingAnnotations, public testing::WithParamInterface<Missing> {};

TEST_P(MissingMember, of_the_host_is_reported_and_nothing_moves) {
  GetParam().take(*this);
  expectReport(u"TrasladaNotas de CNota", GetParam().number);
  move();
  EXPECT_THAT(database->executed, IsEmpty());
}

constexpr Missing missing[] = {
    {"ActiveForm", [](Test& t) { t.host.frmBase->failing(u"ActiveForm", failure::noSuchMember); }},
    {"no form on top", [](Test& t) { t.host.shows(nullptr); }, failure::objectNotSet},
    {"grdNota", [](Test& t) { t.host.FichaInm->failing(u"grdNota", failure::noSuchMember); }},
    {"SelBookmarks", [](Test& t) { t.grid->failing(u"SelBookmarks", failure::noSuchMember); }},
    {"Columns", [](Test& t) { t.grid->failing(u"Columns", failure::noSuchMember); }},
    {"vClase", [](Test& t) { t.host.FichaInm->failing(u"vClase", failure::noSuchMember); }},
    {"NumFicha", [](Test& t) { t.host.vClase().failing(u"NumFicha", failure::noSuchMember); }},
};

INSTANTIATE_TEST_SUITE_P(MovingAnnotations, MissingMember, testing::ValuesIn(missing));

TEST_F(MovingAnnotations, a_cell_that_is_no_number_is_reported) {
  grid->answering(u"Columns", [](Arguments) -> Variant {
    auto column = std::make_shared<kit::FakeObject>();
    column->giving(u"CellText", u"");
    return column;
  });
  expectReport(u"TrasladaNotas de CNota", failure::typeMismatch);
  move();
  EXPECT_THAT(database->executed, IsEmpty());
}

TEST_F(MovingAnnotations, whatever_call_fails_no_document_is_lost) {
  for (const std::int32_t number : {locked, failure::permissionDenied, failure::fileNotFound}) {
    int runs = 0;
    for (bool met = true; met; ++runs) {
      ASSERT_LT(runs, 300);
      for (const Text& path : tree()) here.files.remove(agencyFolder + u"\\" + path);
      documents->rows.clear();
      here.shell.recycled.clear();
      document(501, u"120F00.pdf", u"el plano");
      document(502, u"120F01.pdf", u"el contrato");
      mark({501, 502});
      kit::RecordingScreen screen(here.faults, here.screen);
      here.platform.screen = &screen;
      here.faults.failNth("", runs + 1, number);
      resumeNext([&] { move(); });
      met = here.faults.unmet().empty();
      here.faults.heal();
      here.platform.screen = &here.screen;
      here.files.appended.clear();
      SCOPED_TRACE("call " + std::to_string(runs + 1) + " fails with " + std::to_string(number));
      std::vector<Text> contents;
      for (const Text& path : tree()) contents.push_back(here.files.content(agencyFolder + u"\\" + path));
      EXPECT_THAT(contents, testing::Contains(u"el plano"));
      EXPECT_THAT(contents, testing::Contains(u"el contrato"));
      EXPECT_THAT(documents->rows, SizeIs(2));
    }
    EXPECT_GT(runs, 20);
  }
}

}  // namespace
}  // namespace ovalia
