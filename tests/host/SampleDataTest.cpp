#include "host/SampleData.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sqlite3.h>

#include <map>

#include "engines/sqlite/Collation.h"
#include "host/BulkFile.h"
#include "tests/host/HostTest.h"

namespace ovalia::host {
namespace {

// Counts the rows of each table and adds up all their values.
class Summary : public RowSink {
 public:
  std::map<Text, int> counts;
  std::uint64_t hash = 0xcbf29ce484222325u;

  void begin(const Table& table) override {
    now_ = &(counts[Text(table.name)] = 0);
    columns_ = table.columns.size();
    add(table.name);
  }
  void add(std::span<const Variant> values) override {
    ++*now_;
    EXPECT_EQ(values.size(), columns_);
    for (const Variant& value : values) add(toText(int(value.type())) + u":" + valueText(value));
  }

 private:
  static Text valueText(const Variant& value) {
    if (value.type() == VarType::Date) return toText(std::int64_t(value.toDate().days * 86400 + 0.5));
    return value.text();
  }
  void add(TextView text) {
    for (char16_t unit : text) hash = (hash ^ unit) * 0x100000001b3u;
  }
  int* now_ = nullptr;
  std::size_t columns_ = 0;
};

Summary summaryOf(int annotations) {
  Summary summary;
  makeSample(summary, annotations);
  return summary;
}

int annotationCount(const Summary& summary) {
  int all = 0;
  for (const AnnotationTable& annotation : annotationTables())
    all += summary.counts.at(Text(annotation.name));
  return all;
}

}  // namespace

class SampleData : public HostTest {
 protected:
  int count(const Text& condition) { return one(u"SELECT Count(*) FROM " + condition).toLong(); }
};

TEST(SampleRows, are_the_same_to_the_letter_every_time) {
  const Summary first = summaryOf(sampleAnnotations), second = summaryOf(sampleAnnotations);
  EXPECT_EQ(first.hash, second.hash);
  EXPECT_EQ(first.hash, 16085480712653805645u);
}

TEST(SampleRows, number_what_was_asked_for) {
  for (int annotations : {0, 1, 7, 50, 2500, 12345})
    EXPECT_EQ(annotationCount(summaryOf(annotations)), annotations);
}

TEST(SampleRows, have_the_parents_and_people_of_an_agency) {
  const Summary summary = summaryOf(0);
  EXPECT_EQ(summary.counts.at(u"Inmueble"), 300);
  EXPECT_EQ(summary.counts.at(u"Cliente"), 40);
  EXPECT_EQ(summary.counts.at(u"Usuario"), 8);
}

TEST(SampleRows, are_of_every_kind_from_the_usual_number_on) {
  const Summary summary = summaryOf(sampleAnnotations);
  for (const AnnotationTable& annotation : annotationTables())
    EXPECT_GT(summary.counts.at(Text(annotation.name)), 0) << toUtf8(annotation.name);
}

TEST_F(SampleData, keeps_every_reference_and_every_index_in_order) {
  sqlite3* file = nullptr;
  ASSERT_EQ(sqlite3_open(workplace.agency.file.c_str(), &file), SQLITE_OK);
  engines::sqlite::addCollation(file);
  int broken = 0;
  const auto countRow = [](void* counter, int, char** values, char**) {
    if (!values[0] || std::string_view(values[0]) != "ok") ++*static_cast<int*>(counter);
    return 0;
  };
  EXPECT_EQ(sqlite3_exec(file, "PRAGMA foreign_key_check", countRow, &broken, nullptr), SQLITE_OK);
  EXPECT_EQ(sqlite3_exec(file, "PRAGMA integrity_check", countRow, &broken, nullptr), SQLITE_OK);
  sqlite3_close(file);
  EXPECT_EQ(broken, 0);
}

TEST_F(SampleData, has_the_texts_that_are_hard_to_quote) {
  for (TextView mark : {u"'", u"|", u"\"", u"ñ", u"á"})
    EXPECT_GT(count(u"NotaIP WHERE Notas Like '*" + replaceAll(mark, u"'", u"''") + u"*'"), 0)
        << toUtf8(mark);
  EXPECT_GT(count(u"Cliente WHERE Alias Like '*''*'"), 0);
  EXPECT_GT(count(u"Cliente WHERE Alias Like '*|*'"), 0);
}

TEST_F(SampleData, has_empty_and_missing_fields) {
  EXPECT_GT(count(u"NotaIP WHERE Asunto = ''"), 0);
  EXPECT_GT(count(u"NotaIP WHERE Asunto Is Null"), 0);
  EXPECT_GT(count(u"NotaIP WHERE FechaAlta Is Null"), 0);
  EXPECT_GT(count(u"VisitaIP WHERE FechaFin Is Null"), 0);
  EXPECT_GT(count(u"AnuncioIP WHERE FechaEnvio Is Null"), 0);
  EXPECT_GT(count(u"VisitaIP WHERE FechaComienzo Is Null"), 0);
}

TEST_F(SampleData, has_cancelled_visits_appointments_and_deleted_salespeople) {
  EXPECT_GT(count(u"VisitaIP WHERE Anulada = True"), 0);
  EXPECT_GT(count(u"VisitaIP WHERE IdInm Is Null"), 0);
  EXPECT_GT(count(u"VisitaIP WHERE IdComercial = 99"), 0);
  EXPECT_EQ(count(u"Usuario WHERE IdUsuario = 99"), 0);
}

TEST_F(SampleData, has_days_that_print_like_no_date) {
  EXPECT_GT(count(u"VisitaIP WHERE FechaComienzo = #12/30/99 10:00:00#"), 0);
  EXPECT_GT(count(u"NotaIP WHERE FechaAviso = #12/30/99 00:00:00#"), 0);
}

TEST_F(SampleData, is_believable_to_people_of_the_trade) {
  EXPECT_EQ(count(u"Inmueble WHERE TipoInm = 'Chalé' AND Piso Is Not Null"), 0);
  EXPECT_EQ(count(u"Inmueble WHERE TipoInm = 'Local' AND Not Piso Like 'bajo*'"), 0);
  const auto visits = database().OpenRecordset(
      u"SELECT FechaComienzo FROM VisitaIP WHERE FechaComienzo Is Not Null", dao::dbOpenSnapshot);
  for (; !visits->isEOF(); visits->MoveNext()) {
    const DateParts start = partsOf(visits->value(u"FechaComienzo").toDate());
    EXPECT_TRUE(start.hour >= 9 && start.hour < 19 && start.minute % 30 == 0 && start.second == 0)
        << start.hour << ":" << start.minute << ":" << start.second;
  }
}

TEST_F(SampleData, has_long_notes) { EXPECT_GT(one(u"SELECT Max(Len(Notas)) FROM NotaIP").toLong(), 4000); }

TEST_F(SampleData, no_two_clients_and_no_two_users_share_a_name) {
  EXPECT_EQ(one(u"SELECT Count(*) FROM Cliente AS A, Cliente AS B WHERE A.Alias = B.Alias").toLong(), 40);
  EXPECT_EQ(one(u"SELECT Count(*) FROM Usuario AS A, Usuario AS B WHERE A.Nombre = B.Nombre").toLong(), 8);
}

TEST_F(SampleData, every_annotation_has_an_author_that_exists) {
  for (const AnnotationTable& annotation : annotationTables())
    EXPECT_EQ(count(Text(annotation.name) + u" WHERE IdUsuario Is Null"), 0) << toUtf8(annotation.name);
}

TEST_F(SampleData, the_first_property_has_annotations_of_every_kind) {
  EXPECT_GT(count(u"NotaIP WHERE IdInm = 1"), 0);
  EXPECT_GT(count(u"VisitaIP WHERE IdInm = 1"), 0);
  EXPECT_GT(count(u"AnuncioIP WHERE IdInm = 1"), 0);
  EXPECT_GT(count(u"LlamadaAIP WHERE IdAnuncio = 1"), 0);
  EXPECT_GT(count(u"NotaIArch WHERE IdInm = 1"), 0);
}

TEST_F(SampleData, counts_attachments_as_their_table_has_them) {
  for (const AnnotationTable& annotation : annotationTables()) {
    if (annotation.attachments.empty()) continue;
    const Text key(kindKey(annotation.kind)), table(annotation.name), documents(annotation.attachments);
    EXPECT_EQ(count(table + u" WHERE NArchivos <> (SELECT Count(*) FROM " + documents + u" WHERE " +
                    documents + u".IdNota = " + table + u"." + key + u")"),
              0)
        << toUtf8(table);
  }
}

TEST_F(SampleData, stores_the_documents_that_its_rows_name) {
  makeSampleDocuments(workplace.agency.documents);
  const auto rows = database().OpenRecordset(u"SELECT NombreArch FROM DocuNotaIP WHERE Id = 1");
  ASSERT_FALSE(rows->isEOF());
  for (; !rows->isEOF(); rows->MoveNext())
    EXPECT_TRUE(std::filesystem::exists(workplace.agency.documents / "Doc0" /
                                        toUtf8(rows->value(u"NombreArch").text())));
  const auto models = database().OpenRecordset(u"SELECT Nombre FROM Plantilla");
  ASSERT_FALSE(models->isEOF());
  for (; !models->isEOF(); models->MoveNext()) {
    const std::string name = toUtf8(models->value(u"Nombre").text());
    EXPECT_THAT(folder.content("agencia-documentos/Plantillas/" + name), testing::StartsWith("{\\rtf1"));
    EXPECT_THAT(name, testing::EndsWith(".rtf"));
  }
}

TEST(SampleFileMaking, leaves_nothing_half_made_under_the_files_name) {
  const kit::TemporaryFolder folder;
  folder.putFile("agencia.db.parcial", "restos de otra vez");
  makeDatabaseFile(folder.path() / "agencia.db", 10);
  EXPECT_TRUE(folder.has("agencia.db"));
  EXPECT_FALSE(folder.has("agencia.db.parcial"));
}

TEST(SampleFileMaking, makes_the_folders_on_the_way) {
  const kit::TemporaryFolder folder;
  makeDatabaseFile(folder.path() / "datos" / "de" / "casa" / "agencia.db", 10);
  EXPECT_TRUE(folder.has("datos/de/casa/agencia.db"));
}

TEST(SampleFileCopying, takes_along_what_is_not_yet_in_the_file_itself) {
  const kit::TemporaryFolder folder;
  const std::filesystem::path original = sampleFile(folder.path(), 20),
                              copy = folder.path() / "copias" / "otra.db";
  const Agency agency = openAgency(original, u"");
  agency.database->Execute(u"UPDATE Usuario SET Cargo = 'Recién escrito' WHERE IdUsuario = 1");
  folder.putFile("copias/otra.db", "lo que había");
  copyDatabaseFile(original, copy);
  const auto rows = openAgency(copy, u"").database->OpenRecordset(
      u"SELECT Cargo FROM Usuario WHERE IdUsuario = 1", dao::dbOpenSnapshot);
  EXPECT_EQ(rows->value(u"Cargo").text(), u"Recién escrito");
}

TEST(SampleFileCopying, that_fails_says_why) {
  const kit::TemporaryFolder folder;
  const std::filesystem::path original = sampleFile(folder.path(), 20);
  folder.putFile("ocupado");
  try {
    copyDatabaseFile(original, folder.path() / "ocupado" / "otra.db");
    ADD_FAILURE();
  } catch (const Failure& failure) {
    EXPECT_NE(failure.description().find(u"no es una carpeta"), Text::npos);
  }
}

TEST(SampleFileCopying, of_a_folder_takes_all_that_is_in_it) {
  const kit::TemporaryFolder folder;
  folder.putFile("de/Doc0/1F00.txt", "uno");
  copyFolder(folder.path() / "de", folder.path() / "a");
  EXPECT_EQ(folder.content("a/Doc0/1F00.txt"), "uno");
  copyFolder(folder.path() / "nada", folder.path() / "b");
  EXPECT_FALSE(folder.has("b"));
}

}  // namespace ovalia::host
