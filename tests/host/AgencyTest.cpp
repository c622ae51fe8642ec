#include "host/Agency.h"

#include <gtest/gtest.h>
#include <sqlite3.h>
#include <unistd.h>

#include <cstdlib>

#include "host/BulkFile.h"
#include "tests/host/HostTest.h"

namespace ovalia::host {
namespace {

namespace fs = std::filesystem;

Text messageOf(const std::function<void()>& start) {
  try {
    start();
  } catch (const StartFailure& failure) {
    return failure.message;
  }
  return u"(nada)";
}

testing::AssertionResult says(const Text& message, TextView part) {
  if (message.find(part) != Text::npos) return testing::AssertionSuccess();
  return testing::AssertionFailure() << "it says: " << toUtf8(message);
}

Text refusal(std::vector<std::string> arguments) {
  return messageOf([&] { parseOptions(arguments); });
}

}  // namespace

TEST(Options, are_read_in_any_order) {
  const StartOptions options =
      parseOptions(std::vector<std::string>{"--tour", "fotos", "--annotations", "100", "--database", "a.db"});
  EXPECT_EQ(options.tour, "fotos");
  EXPECT_EQ(options.annotations, 100);
  EXPECT_EQ(options.database, "a.db");
}

TEST(Options, may_all_be_missing) {
  const StartOptions options = parseOptions({});
  EXPECT_FALSE(options.tour || options.annotations || options.database || options.help);
}

TEST(Options, unknown_ones_and_missing_values_are_refused) {
  EXPECT_TRUE(says(refusal({"--fichas"}), u"Opción desconocida: --fichas"));
  EXPECT_TRUE(says(refusal({"agencia.db"}), u"Opción desconocida"));
  EXPECT_TRUE(says(refusal({"--tour"}), u"Falta el valor de la opción --tour"));
  EXPECT_TRUE(says(refusal({"--database", ""}), u"Falta el valor"));
}

TEST(Options, a_count_is_a_whole_number_within_reason) {
  for (const char* count : {"-1", "1,5", "mil", "12x", "20000001", "99999999999999"})
    EXPECT_TRUE(says(refusal({"--annotations", count}), u"El número de anotaciones")) << count;
  EXPECT_EQ(parseOptions(std::vector<std::string>{"--annotations", "20000000"}).annotations, 20000000);
}

class Start : public kit::LogicTest {
 protected:
  Text opening(const fs::path& file, TextView user = u"") {
    return messageOf([&] { openAgency(file, user); });
  }
  // With any order under the name of the agency's own: an index in it is read again when its table changes.
  static void run(const fs::path& file, const char* sql) {
    sqlite3* opened = nullptr;
    ASSERT_EQ(sqlite3_open(file.c_str(), &opened), SQLITE_OK);
    const auto alike = [](void*, int, const void*, int, const void*) { return 0; };
    ASSERT_EQ(sqlite3_create_collation(opened, "es", SQLITE_UTF8, nullptr, alike), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(opened, sql, nullptr, nullptr, nullptr), SQLITE_OK) << sqlite3_errmsg(opened);
    sqlite3_close(opened);
  }

  kit::TemporaryFolder folder;
};

TEST_F(Start, a_good_file_gives_its_first_user_and_its_documents_beside_it) {
  const Agency agency = openAgency(sampleFile(folder.path(), 50), u"");
  EXPECT_EQ(agency.user, u"Administrador");
  EXPECT_EQ(agency.documents, folder.path() / "agencia-documentos");
}

TEST_F(Start, the_user_of_the_settings_is_spelt_as_the_table_spells_it) {
  EXPECT_EQ(openAgency(sampleFile(folder.path(), 50), u"íñigo mendoza").user, u"Íñigo Mendoza");
}

TEST_F(Start, an_unknown_user_is_named) {
  EXPECT_TRUE(says(opening(sampleFile(folder.path(), 50), u"Fulano"),
                   u"El usuario «Fulano» de la configuración no existe"));
}

TEST_F(Start, a_missing_file_is_named) { EXPECT_TRUE(says(opening(folder.path() / "nada.db"), u"nada.db")); }

TEST_F(Start, a_damaged_file_is_told_from_a_foreign_one) {
  folder.putFile("rota.db", "esto no es una base de datos, aunque lo parezca por el nombre");
  EXPECT_TRUE(says(opening(folder.path() / "rota.db"), u"está dañado o no es una base de datos"));
  run(folder.path() / "ajena.db", "CREATE TABLE Recetas (Id INTEGER PRIMARY KEY)");
  EXPECT_TRUE(says(opening(folder.path() / "ajena.db"), u"no es de una agencia: la tabla Usuario falta"));
}

TEST_F(Start, a_table_without_one_of_its_columns_is_named) {
  const fs::path file = sampleFile(folder.path(), 50);
  run(file, "ALTER TABLE AnuncioIP DROP COLUMN NDias");
  EXPECT_TRUE(says(opening(file), u"la tabla AnuncioIP falta o está incompleta"));
}

TEST_F(Start, a_column_of_another_type_is_named) {
  const fs::path file = sampleFile(folder.path(), 50);
  run(file, "ALTER TABLE AnuncioIP DROP COLUMN NDias; ALTER TABLE AnuncioIP ADD COLUMN NDias DATETIME");
  EXPECT_TRUE(says(opening(file), u"la columna NDias de la tabla AnuncioIP no es del tipo que debe ser"));
}

TEST_F(Start, columns_may_be_longer_or_shorter_than_the_samples) {
  const fs::path file = sampleFile(folder.path(), 50);
  run(file,
      "ALTER TABLE Usuario DROP COLUMN Cargo; ALTER TABLE Usuario ADD COLUMN Cargo MEMO;"
      "ALTER TABLE Inmueble DROP COLUMN Superficie; ALTER TABLE Inmueble ADD COLUMN Superficie INTEGER");
  EXPECT_EQ(opening(file), u"(nada)");
}

TEST_F(Start, a_file_without_users_cannot_be_worked_with) {
  const fs::path file = sampleFile(folder.path(), 0);
  run(file, "DELETE FROM Proyecto; DELETE FROM ExpVivo; DELETE FROM Inmueble; DELETE FROM Usuario");
  EXPECT_TRUE(says(opening(file), u"no tiene ningún usuario"));
}

TEST_F(Start, a_locked_file_is_told) {
  const fs::path file = sampleFile(folder.path(), 50);
  sqlite3* other = nullptr;
  ASSERT_EQ(sqlite3_open(file.c_str(), &other), SQLITE_OK);
  ASSERT_EQ(sqlite3_exec(other, "PRAGMA journal_mode=WAL; BEGIN EXCLUSIVE", nullptr, nullptr, nullptr),
            SQLITE_OK);
  EXPECT_TRUE(says(opening(file), u"bloqueada"));
  sqlite3_close(other);
}

// The superuser may write everything, so such a test goes on as somebody else for a while.
class SomebodyElse {
 public:
  SomebodyElse() {
    if (before_ == 0 && seteuid(nobody) != 0) ADD_FAILURE() << "cannot become another user";
  }
  ~SomebodyElse() {
    if (seteuid(before_) != 0) ADD_FAILURE() << "cannot become oneself again";
  }

 private:
  static constexpr uid_t nobody = 65534;
  uid_t before_ = geteuid();
};

TEST_F(Start, a_file_that_may_not_be_written_is_told) {
  const fs::path file = sampleFile(folder.path(), 50);
  fs::permissions(folder.path(), fs::perms(0555));
  fs::permissions(file, fs::perms(0444));
  {
    const SomebodyElse visitor;
    EXPECT_TRUE(says(opening(file), u"permiso"));
  }
  fs::permissions(folder.path(), fs::perms(0755));
}

TEST_F(Start, a_named_file_is_made_only_when_a_number_of_annotations_goes_with_it) {
  StartOptions options;
  options.database = folder.path() / "nueva.db";
  EXPECT_TRUE(says(messageOf([&] { prepareDatabase(options); }), u"No existe la base de datos"));
  EXPECT_FALSE(folder.has("nueva.db"));
  options.annotations = 20;
  EXPECT_EQ(prepareDatabase(options), folder.path() / "nueva.db");
  EXPECT_TRUE(folder.has("nueva.db"));
  EXPECT_TRUE(folder.has("nueva-documentos/Plantillas/Contrato de arras.rtf"));
}

TEST_F(Start, annotations_are_not_poured_into_a_file_that_is_there) {
  StartOptions options;
  options.database = sampleFile(folder.path(), 50);
  options.annotations = 20;
  EXPECT_TRUE(says(messageOf([&] { prepareDatabase(options); }), u"ya existe"));
}

TEST_F(Start, a_file_that_cannot_be_made_is_told_and_leaves_nothing) {
  folder.putFile("ocupado", "un fichero donde haría falta una carpeta");
  StartOptions options;
  options.database = folder.path() / "ocupado" / "agencia.db";
  options.annotations = 5;
  const Text message = messageOf([&] { prepareDatabase(options); });
  EXPECT_TRUE(says(message, u"No se puede escribir en"));
  EXPECT_TRUE(says(message, u": una parte de la ruta no es una carpeta."));
}

}  // namespace ovalia::host
