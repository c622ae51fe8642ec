#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <ostream>

#include "routines/Trap.h"
#include "tests/cardkit/RecordingScreen.h"
#include "tests/cards/MarkedNotes.h"

namespace ovalia {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

// Failures: two marked annotations with an attachment each; something fails while the first moves.

enum class Old { there, inBin };

struct Outcome {
  const char* what;
  void (*arrange)(MovingAnnotations& test);
  bool copied;
  bool linked;
  Old oldFile;
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
  EXPECT_EQ(documents->at(0, u"NombreArch").text(), u"120F00.pdf");
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

constexpr Outcome outcomes[] = {
    {"the attachments cannot be read", rowsFail, notCopied, notLinked, Old::there},
    {"the old folder cannot be made", folderFails<2>, notCopied, notLinked, Old::there},
    {"the new folder cannot be made", folderFails<7>, notCopied, notLinked, Old::there},
    {"a stored name cannot be read", valueFails<1>, notCopied, notLinked, Old::there},
    {"a key cannot be read", valueFails<2>, notCopied, notLinked, Old::there},
    {"the new name cannot be made", nameFails, notCopied, notLinked, Old::there},
    {"the old file cannot be looked for", probeFails<2>, notCopied, notLinked, Old::there},
    {"the copy is denied", copyFails<failure::permissionDenied>, notCopied, notLinked, Old::there},
    {"the disk is full", copyFails<failure::diskFull>, notCopied, notLinked, Old::there},
    {"the name is taken meanwhile", copyFails<failure::fileAlreadyExists>, notCopied, notLinked, Old::there},
    {"the annotation cannot be linked", statementFails<1>, copied, notLinked, Old::there},
    {"the copy cannot be looked for", probeFails<3>, copied, linked, Old::there},
    {"the old file cannot be looked for again", probeFails<4>, copied, linked, Old::there},
    {"the row cannot be written", statementFails<2>, copied, linked, Old::inBin},
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
  expectReport(u"CreaPathDoc de CNota", failure::pathNotFound);
  expectReport(u"TrasladaNotas de CNota", failure::pathNotFound);
  move();
  EXPECT_THAT(rows(), SizeIs(1));
  EXPECT_FALSE(moved(501));
}

TEST_F(MovingAnnotations, an_annotation_without_attachments_moves_though_no_folder_can_be_reached) {
  document(502, u"120F00.pdf", u"el plano");
  mark({501, 502, 503});
  nota.AppDirUser = u"\\Red\\Agencia";
  for (int folder = 1; folder <= 4; ++folder) expectReport(u"CreaPathDoc de CNota", failure::pathNotFound);
  expectReport(u"TrasladaNotas de CNota", failure::pathNotFound);
  move();
  EXPECT_TRUE(moved(501));
  EXPECT_EQ(linkOf(502), u"120 21") << "this one has a document";
  EXPECT_EQ(linkOf(503), u"120 21") << "and is the last";
  EXPECT_THAT(rows(), ElementsAre(u"1: 120 1 502 plano < 120F00.pdf"));
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

TEST_F(MovingAnnotations, the_attachments_are_read_before_the_host_is_asked_for_their_parent) {
  host.vClase().failing(u"NumFicha", failure::noSuchMember);
  rowsFail(*this);
  move();
}

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
