#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <ostream>

#include "attachments/AddingAttachments.h"
#include "tests/cardkit/Attachments.h"
#include "tests/cardkit/RecordingScreen.h"

namespace ovalia {
namespace {

using kit::RecordingScreen;

// A file is added to a live table or to an archive while something fails. Whatever it is: a file in the tree
// is complete, what lay there before stays, and no row is without its file.
class AddingFailures : public kit::AttachmentsTest {
 public:
  using AttachmentsTest::database;
  using AttachmentsTest::expectBox;
  using AttachmentsTest::expectReport;
  using AttachmentsTest::here;

  const Text path = u"\\home\\ana\\plano.pdf";
  const Text reporter = u"AdjuntarFichero de CNota, ruta:" + path;
  kit::FakeTableRef donors;

  void countsNothing(Text beginning) {
    database->onExecute = [=, before = database->onExecute](TextView sql) {
      return sql.starts_with(beginning) ? 0 : before(sql);
    };
  }

 protected:
  void SetUp() override {
    AttachmentsTest::SetUp();
    source(u"plano.pdf", u"el plano");
    kit::attachmentTable(*database, u"DocuNotaIArch");
    donors = database->table(u"NotaIP", {{u"IdNota", dao::dbLong}, {u"IdInm", dao::dbLong}}, {{31, 9}});
  }

  void keepIn(TextView table) {
    nota.DocuAsoc = table;
    nota.Nota = table.substr(TextView(u"Docu").size());
  }
};

// What becomes of file, rows and counter.
struct Outcome {
  const char* what;
  TextView table;
  void (*arrange)(AddingFailures& test);
  bool file;
  std::size_t liveRows, archiveRows;
  std::int32_t counter;
};

void PrintTo(const Outcome& row, std::ostream* out) { *out << row.what << ", " << toUtf8(row.table); }

class OutcomeOfFailure : public AddingFailures, public testing::WithParamInterface<Outcome> {};

TEST_P(OutcomeOfFailure, is_this) {
  const Outcome& row = GetParam();
  keepIn(row.table);
  row.arrange(*this);
  AdjuntarFichero(instance, path, 120, true);
  EXPECT_EQ(here.files.exists(leaf + u"120F00.pdf"), row.file);
  if (row.file) {
    EXPECT_EQ(here.files.content(leaf + u"120F00.pdf"), u"el plano");
  }
  EXPECT_EQ(tree().size(), row.file ? 1u : 0u);
  EXPECT_EQ(rows().size(), row.liveRows);
  EXPECT_EQ(rows(u"DocuNotaIArch").size(), row.archiveRows);
  EXPECT_EQ(counter(), row.counter);
  EXPECT_EQ(here.files.content(path), u"el plano");
}

using Test = AddingFailures;
constexpr TextView live = u"DocuNotaIP", archive = u"DocuNotaIArch";
constexpr bool copied = true, notCopied = false;

constexpr auto folderCannotBeMade = [](Test& t) {
  t.here.files.putFolder(t.here.files.temporary + u"Brenox");  // of the log
  t.here.faults.failAlways("Files.makeDirectory", failure::permissionDenied);
  t.expectReport(u"CreaPathDoc de CNota", failure::permissionDenied);
  t.expectReport(u"CreaPathDoc de CNota", failure::permissionDenied);
  t.expectReport(t.reporter, failure::pathNotFound);
};
constexpr auto copyFails = [](Test& t) {
  t.here.faults.failNext("Files.copy", failure::diskFull);
  t.expectReport(t.reporter, failure::diskFull);
};
constexpr auto nameCannotBeMade = [](Test& t) {
  t.here.faults.failNext("Database.OpenRecordset", dao::failure::locked);
  t.expectReport(u"CreaNombreDoc de CNota", dao::failure::locked);
  t.expectReport(t.reporter, failure::pathNotFound);
};
constexpr auto firstStatementFails = [](Test& t) {
  t.here.faults.failNext("Database.Execute", dao::failure::readOnly);
  t.expectReport(u"AniadirArch de CNota", dao::failure::readOnly);
};
constexpr auto counterCannotBeRaised = [](Test& t) {
  t.here.faults.failNext("Recordset.Update", dao::failure::locked);
  t.expectReport(u"AniadirArch de CNota", dao::failure::locked);
};

constexpr Outcome outcomes[] = {
    {"nothing fails", live, [](Test&) {}, copied, 1, 0, 1},
    {"nothing fails", archive, [](Test&) {}, copied, 0, 1, 1},
    {"the folder cannot be made", live, folderCannotBeMade, notCopied, 0, 0, 0},
    {"the folder cannot be made", archive, folderCannotBeMade, notCopied, 0, 0, 0},
    {"the name cannot be made", live, nameCannotBeMade, notCopied, 0, 0, 0},
    {"the copy fails", live, copyFails, notCopied, 0, 0, 0},
    {"the copy fails", archive, copyFails, notCopied, 0, 0, 0},
    {"the row's insertion fails", live, firstStatementFails, copied, 0, 0, 0},
    {"the borrowed row's insertion fails", archive, firstStatementFails, copied, 0, 0, 0},
    {"the row is refused", live,
     [](Test& t) {
       t.countsNothing(u"INSERT INTO DocuNotaIP");
       t.expectBox(u"RecordsAffected = 0", 16, u"AniadirArch");
     },
     copied, 0, 0, 0},
    {"the borrowed row is refused", archive,
     [](Test& t) {
       t.countsNothing(u"INSERT INTO DocuNotaIP");
       t.expectBox(u"Error al añadir archivo(1).");
       t.expectBox(u"RecordsAffected = 0", 16, u"AniadirArch");
     },
     copied, 0, 0, 0},
    {"there is nothing to borrow from", archive,
     [](Test& t) {
       t.donors->rows.clear();
       t.expectBox(u"Imposible añadir archivos adjuntos.\r\n(No existen notas en Inmuebles sin archivar...)",
                   0, u"Notas");
     },
     copied, 0, 0, 0},
    {"the key cannot be read again", archive,
     [](Test& t) {
       t.database->answers(
           u"SELECT Max(IdDocu) AS N FROM DocuNotaIP WHERE Id = 9 AND IdNota = 31 AND "
           u"NombreArch = '120F00.pdf'",
           {{u"N", dao::dbLong}}, {{Null}});
       t.expectBox(u"Error al añadir archivo(2).");
     },
     copied, 1, 0, 1},
    {"the borrowed row cannot be deleted", archive,
     [](Test& t) {
       t.here.faults.failNth("Database.Execute", 2, dao::failure::locked);
       t.expectReport(u"AniadirArch de CNota", dao::failure::locked);
     },
     copied, 1, 0, 0},
    {"the last insertion fails", archive,
     [](Test& t) {
       t.here.faults.failNth("Database.Execute", 3, dao::failure::locked);
       t.expectReport(u"AniadirArch de CNota", dao::failure::locked);
     },
     copied, 0, 0, 0},
    {"the last row is refused", archive,
     [](Test& t) {
       t.countsNothing(u"INSERT INTO DocuNotaIArch");
       t.expectBox(u"RecordsAffected = 0", 16, u"AniadirArch");
     },
     copied, 0, 0, 0},
    {"the counter cannot be raised", live, counterCannotBeRaised, copied, 1, 0, 0},
    {"the counter cannot be raised", archive, counterCannotBeRaised, copied, 0, 1, 0},
};

INSTANTIATE_TEST_SUITE_P(Adding, OutcomeOfFailure, testing::ValuesIn(outcomes));

class AnyFailure : public AddingFailures {
 protected:
  // Adds the file to a data folder of its own with the first call of the surroundings failing, then with the
  // second, and so on until a run meets no failure. Gives the number of failing runs.
  int failEachCall(TextView table, std::int32_t number, const std::function<void()>& add) {
    keepIn(table);
    for (int nth = 1;; ++nth) {
      if (nth > 300) throw std::logic_error("adding never comes to its end");
      SCOPED_TRACE("call " + std::to_string(nth) + " fails with " + std::to_string(number));
      nota.AppDirUser = join(u"\\Datos\\", table, number, u"-", nth);
      for (const TextView name : {live, archive}) database->tableNamed(name)->rows.clear();
      list->at(0, u"NArchivos") = 0;
      RecordingScreen screen(here.faults, here.screen);
      here.platform.screen = &screen;
      here.faults.failNth("", nth, number);
      add();
      const bool met = here.faults.unmet().empty();
      here.faults.heal();
      if (met) checkWhatIsLeft(screen);
      here.files.appended.clear();
      here.platform.screen = &here.screen;
      if (!met) return nth - 1;
      addAgain(table, add);
    }
  }

  bool mayBeSilent = false;

 private:
  std::size_t rowsOf(TextView table) const { return database->tableNamed(table)->rows.size(); }
  Text stored(TextView name) const { return join(nota.AppDirUser, u"\\Doc1\\Doc2\\Doc0\\", name); }

  void checkWhatIsLeft(const RecordingScreen& screen) {
    const bool file = here.files.exists(stored(u"120F00.pdf"));
    if (file) {
      EXPECT_EQ(here.files.content(stored(u"120F00.pdf")), u"el plano");
    }
    EXPECT_LE(here.files.filesBelow(nota.AppDirUser).size(), 1u);
    EXPECT_LE(rowsOf(live) + rowsOf(archive), file ? 1u : 0u);
    EXPECT_LE(counter(), rowsOf(nota.DocuAsoc) ? 1 : 0);
    EXPECT_EQ(here.files.content(path), u"el plano");
    EXPECT_TRUE(mayBeSilent || !screen.boxes.empty()) << "nobody was told";
  }

  // The failure has left nothing that hinders the next try, which replaces nothing.
  void addAgain(TextView table, const std::function<void()>& add) {
    const std::size_t filesBefore = here.files.filesBelow(nota.AppDirUser).size();
    const std::size_t rowsBefore = rowsOf(table);
    add();
    EXPECT_EQ(here.files.filesBelow(nota.AppDirUser).size(), filesBefore + 1);
    EXPECT_EQ(rowsOf(table), rowsBefore + 1);
    here.files.appended.clear();
  }
};

TEST_F(AnyFailure, of_choosing_a_file_leaves_nothing_by_halves) {
  userChooses(path);
  const auto add = [&] { AdjuntarDocumento(instance, true); };
  for (const std::int32_t number : {failure::diskFull, dao::failure::locked}) {
    EXPECT_GE(failEachCall(live, number, add), 25);
    EXPECT_GE(failEachCall(archive, number, add), 30);
  }
}

TEST_F(AnyFailure, of_pasting_a_file_leaves_nothing_by_halves) {
  here.clipboard.holdsFiles = true;
  here.clipboard.fileList = {path};
  EXPECT_GE(failEachCall(live, failure::diskFull, [&] { PegarDePortapapeles(instance); }), 25);
}

}  // namespace
}  // namespace ovalia
