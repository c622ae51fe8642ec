#include "routines/FileHelpers.h"

#include <gtest/gtest.h>

#include "tests/kit/TestPlatform.h"

namespace ovalia {
namespace {

class FileHelpers : public kit::LogicTest {};

TEST_F(FileHelpers, the_components_folder_lies_in_the_temporary_one_and_is_made_silently) {
  EXPECT_EQ(rutaCarpetaTemporal(), here.files.temporary + u"Brenox\\");
  EXPECT_TRUE(here.files.exists(here.files.temporary + u"Brenox"));
  EXPECT_EQ(rutaCarpetaTemporal(), here.files.temporary + u"Brenox\\");
}

TEST_F(FileHelpers, a_temporary_folder_that_cannot_be_asked_for_is_reported) {
  here.faults.failNext("Files.temporaryFolder", 75);
  expectReport(u"rutaCarpetaTemporal() de RutinasErr", 75);
  EXPECT_EQ(rutaCarpetaTemporal(), u"");
}

TEST_F(FileHelpers, a_folder_is_told_from_a_file_and_from_nothing) {
  here.files.putFile(u"\\datos\\nota.doc");
  EXPECT_TRUE(ExisteDirectorio(u"\\datos"));
  EXPECT_TRUE(ExisteDirectorio(u"\\datos\\"));
  EXPECT_TRUE(ExisteDirectorio(u"\\DATOS"));
  EXPECT_FALSE(ExisteDirectorio(u"\\datos\\nota.doc"));
  EXPECT_FALSE(ExisteDirectorio(u"\\datos\\otra"));
  EXPECT_FALSE(ExisteDirectorio(u"\\nada\\otra"));
  EXPECT_FALSE(ExisteDirectorio(u"C:\\datos"));
}

TEST_F(FileHelpers, a_folder_that_cannot_be_looked_at_is_reported_with_its_path) {
  here.faults.failNext("Files.attributes", 70);
  expectReport(u"ExisteDirectorio() de RutinasErr, ruta:\\datos", 70);
  EXPECT_FALSE(ExisteDirectorio(u"\\datos"));
}

TEST_F(FileHelpers, anything_at_a_path_counts_as_existing_a_folder_too) {
  here.files.putFile(u"\\datos\\nota.doc");
  EXPECT_TRUE(ExisteFichero(u"\\datos\\nota.doc"));
  EXPECT_TRUE(ExisteFichero(u"\\datos"));
  EXPECT_FALSE(ExisteFichero(u"\\datos\\otra.doc"));
  EXPECT_FALSE(ExisteFichero(u"otra.doc"));
}

TEST_F(FileHelpers, what_cannot_be_looked_at_does_not_exist_and_nothing_is_said) {
  here.files.putFile(u"\\datos\\nota.doc");
  here.faults.failNext("Files.attributes", 70);
  EXPECT_FALSE(ExisteFichero(u"\\datos\\nota.doc"));
}

TEST_F(FileHelpers, a_path_is_split_behind_its_last_separator) {
  struct {
    TextView path, folder, name;
  } const rows[] = {
      {u"C:\\a\\b.doc", u"C:\\a\\", u"b.doc"},
      {u"b.doc", u"", u"b.doc"},
      {u"C:\\a\\", u"C:\\a\\", u""},
      {u"\\b.doc", u"\\", u"b.doc"},
      {u"\\\\servidor\\datos\\b.doc", u"\\\\servidor\\datos\\", u"b.doc"},
      // Only "\" separates.
      {u"/a/b.doc", u"", u"/a/b.doc"},
  };
  for (const auto& row : rows) {
    Text name = u"marca";
    EXPECT_EQ(PathFichero(row.path, name), row.folder);
    EXPECT_EQ(name, row.name);
  }
}

TEST_F(FileHelpers, an_empty_path_leaves_the_name_untouched) {
  Text name = u"marca";
  EXPECT_EQ(PathFichero(u"", name), u"");
  EXPECT_EQ(name, u"marca");
}

TEST_F(FileHelpers, a_path_may_be_split_into_its_own_variable) {
  Text path = u"\\a\\b.doc";
  EXPECT_EQ(PathFichero(path, path), u"\\a\\");
  EXPECT_EQ(path, u"b.doc");
}

TEST_F(FileHelpers, folder_and_name_are_joined_by_one_separator) {
  struct {
    TextView folder, name, path, nameAfterwards;
  } const rows[] = {
      {u"C:\\a\\", u"\\b", u"C:\\a\\b", u"b"},
      {u"C:\\a", u"b", u"C:\\a\\b", u"b"},
      {u"C:\\a\\", u"b", u"C:\\a\\b", u"b"},
      {u"C:\\a", u"\\b", u"C:\\a\\b", u"b"},
      {u"", u"b", u"\\b", u"b"},
      {u"C:\\a", u"", u"C:\\a\\", u""},
      // One separator only is cut.
      {u"C:\\a", u"\\\\b", u"C:\\a\\\\b", u"\\b"},
  };
  for (const auto& row : rows) {
    Text name(row.name);
    EXPECT_EQ(UnirRuta(row.folder, name), row.path);
    EXPECT_EQ(name, row.nameAfterwards);
  }
}

class Deleting : public kit::LogicTest {
 protected:
  Deleting() { here.files.putFile(u"\\datos\\envio.zip"); }
};

TEST_F(Deleting, a_file_takes_it_away) {
  EXPECT_TRUE(BorrarFichero(u"\\datos\\envio.zip", true));
  EXPECT_FALSE(here.files.exists(u"\\datos\\envio.zip"));
}

TEST_F(Deleting, a_missing_file_is_fine_without_a_word) {
  EXPECT_TRUE(BorrarFichero(u"\\datos\\otro.zip", true));
  EXPECT_TRUE(BorrarFichero(u"\\nada\\otro.zip", true));
}

TEST_F(Deleting, a_locked_file_is_told_where_asked_to_and_never_reported) {
  here.files.lock(u"\\datos\\envio.zip");
  EXPECT_FALSE(BorrarFichero(u"\\datos\\envio.zip", false));
  expectBox(u"No ha sido posible borrar \\datos\\envio.zip");
  EXPECT_FALSE(BorrarFichero(u"\\datos\\envio.zip", true));
}

TEST_F(Deleting, a_file_that_cannot_be_looked_for_is_a_failure_too) {
  expectBox(u"No ha sido posible borrar envio.zip");
  EXPECT_FALSE(BorrarFichero(u"envio.zip", true));
}

class FilteredName : public kit::LogicTest {};

TEST_F(FilteredName, loses_what_cannot_stand_in_a_files_name) {
  struct {
    TextView name, filtered;
  } const rows[] = {
      {u"a/b:c.doc", u"abc.doc"},
      {u"\"'*?:/\\|<>", u""},
      {u"¿Qué? <ático> 'ñ'.doc", u"¿Qué ático ñ.doc"},
      {u" informe . final..doc ", u" informe . final..doc "},
      {u"..\\..\\agencia.db", u"....agencia.db"},
      {u"", u""},
  };
  for (const auto& row : rows) EXPECT_EQ(filtrarNombreArchivo(row.name), row.filtered);
}

class Recycling : public kit::LogicTest {
 protected:
  Recycling() { here.files.putFile(u"\\datos\\viejo.doc"); }
};

TEST_F(Recycling, sends_the_file_to_the_bin_without_a_word) {
  EnviarAPapelera(u"\\datos\\viejo.doc");
  EXPECT_EQ(here.shell.recycled, std::vector<Text>{u"\\datos\\viejo.doc"});
  EXPECT_FALSE(here.files.exists(u"\\datos\\viejo.doc"));
}

TEST_F(Recycling, a_missing_file_is_told_with_the_systems_numbers) {
  expectBox(u"Error devuelto: 2, 2");
  EnviarAPapelera(u"\\datos\\otro.doc");
}

TEST_F(Recycling, a_folder_is_no_file_and_stays_with_all_that_lies_in_it) {
  expectBox(u"Error devuelto: 2, 2");
  EnviarAPapelera(u"\\datos");
  EXPECT_TRUE(here.files.exists(u"\\datos\\viejo.doc"));
}

TEST_F(Recycling, a_refusal_is_told_with_code_and_error_and_leaves_the_file) {
  here.shell.nextRecycle = Shell::RecycleResult{.code = 5, .lastError = 32};
  expectBox(u"Error devuelto: 5, 32");
  EnviarAPapelera(u"\\datos\\viejo.doc");
  EXPECT_TRUE(here.files.exists(u"\\datos\\viejo.doc"));
}

TEST_F(Recycling, that_the_user_stopped_is_told) {
  here.shell.nextRecycle = Shell::RecycleResult{.aborted = true};
  expectBox(u"Operación abortada");
  EnviarAPapelera(u"\\datos\\viejo.doc");
}

TEST_F(Recycling, a_refusal_that_was_stopped_too_is_told_once) {
  here.shell.nextRecycle = Shell::RecycleResult{.code = 5, .lastError = 5, .aborted = true};
  expectBox(u"Error devuelto: 5, 5");
  EnviarAPapelera(u"\\datos\\viejo.doc");
}

TEST_F(Recycling, a_bin_that_fails_is_reported) {
  here.faults.failNext("Shell.recycle", 51);
  expectReport(u"EnviarAPapelera() de RutinasErr", 51);
  EnviarAPapelera(u"\\datos\\viejo.doc");
}

class FolderCheck : public kit::LogicTest {
 protected:
  kit::FakeScreen::Expectation& expectQuestion(Text path, int answer) {
    return expectBox(u"El directorio " + path + u" no existe.\r\n\r\n¿Desea crearlo?", 68, u"", answer);
  }
};

TEST_F(FolderCheck, gives_a_folder_that_is_there_with_its_final_separator) {
  here.files.putFolder(u"\\datos\\Doc4");
  EXPECT_EQ(ComprobarDirectorio(u"\\datos\\Doc4", true), u"\\datos\\Doc4\\");
  EXPECT_EQ(ComprobarDirectorio(u"\\datos\\Doc4\\", true), u"\\datos\\Doc4\\");
}

TEST_F(FolderCheck, makes_every_missing_level_without_a_word_when_not_asked_to_ask) {
  EXPECT_EQ(ComprobarDirectorio(u"\\datos\\Doc4\\Doc0\\Doc7", false), u"\\datos\\Doc4\\Doc0\\Doc7\\");
  EXPECT_TRUE(here.files.exists(u"\\datos\\Doc4\\Doc0\\Doc7"));
  EXPECT_EQ(here.faults.visits("Files.makeDirectory"), 4);
}

TEST_F(FolderCheck, asks_before_it_makes_anything) {
  expectQuestion(u"\\datos\\Plantillas\\", 6);
  EXPECT_EQ(ComprobarDirectorio(u"\\datos\\Plantillas", true), u"\\datos\\Plantillas\\");
  EXPECT_TRUE(here.files.exists(u"\\datos\\Plantillas"));
}

TEST_F(FolderCheck, any_answer_but_yes_gives_the_empty_text_and_makes_nothing) {
  for (const int answer : {7, 2, 0}) {
    expectQuestion(u"\\datos\\Plantillas\\", answer);
    EXPECT_EQ(ComprobarDirectorio(u"\\datos\\Plantillas", true), u"");
  }
  EXPECT_FALSE(here.files.exists(u"\\datos"));
}

TEST_F(FolderCheck, a_level_that_cannot_be_made_is_hidden_and_the_path_given_all_the_same) {
  here.faults.failAlways("Files.makeDirectory", 75);
  EXPECT_EQ(ComprobarDirectorio(u"\\datos\\Doc4", false), u"\\datos\\Doc4\\");
  EXPECT_FALSE(here.files.exists(u"\\datos"));
}

TEST_F(FolderCheck, a_folder_that_cannot_be_looked_at_counts_as_missing) {
  here.files.putFolder(u"\\datos");
  here.faults.failNext("Files.attributes", 70);
  expectQuestion(u"\\datos\\", 7);
  EXPECT_EQ(ComprobarDirectorio(u"\\datos", true), u"");
}

TEST_F(FolderCheck, a_path_on_a_cd_rom_is_refused_before_it_is_looked_at) {
  here.files.addDrive(u"D:", 5);
  here.files.putFolder(u"D:\\datos");
  expectBox(u"El directorio D:\\datos\\ es de un CDROM.", 16);
  EXPECT_EQ(ComprobarDirectorio(u"D:\\datos", true), u"");
  EXPECT_EQ(here.faults.visits("Files.attributes"), 0);
}

TEST_F(FolderCheck, a_drive_that_does_not_exist_is_told_after_the_question) {
  expectQuestion(u"Z:\\datos\\", 6);
  expectBox(u"La unidad Z:\\ no existe.", 16);
  EXPECT_EQ(ComprobarDirectorio(u"Z:\\datos", true), u"");
}

TEST_F(FolderCheck, the_refusal_of_a_cd_rom_behind_the_question_has_other_words) {
  here.files.addDrive(u"D:", 3);
  expectQuestion(u"D:\\datos\\", 6).whileUp([&] { here.files.addDrive(u"D:", 5); });
  expectBox(u"La unidad D:\\ es un CDROM.", 16);
  EXPECT_EQ(ComprobarDirectorio(u"D:\\datos", true), u"");
}

TEST_F(FolderCheck, levels_are_made_on_a_drive_too) {
  here.files.addDrive(u"D:", 3);
  EXPECT_EQ(ComprobarDirectorio(u"D:\\datos\\Doc4", false), u"D:\\datos\\Doc4\\");
  EXPECT_TRUE(here.files.exists(u"D:\\datos\\Doc4"));
}

TEST_F(FolderCheck, a_path_without_a_drive_is_never_asked_for_its_drive) {
  ComprobarDirectorio(u"\\datos\\Doc4", false);
  ComprobarDirectorio(u"\\\\servidor\\datos", false);
  EXPECT_EQ(here.faults.visits("Files.driveType"), 0);
}

TEST_F(FolderCheck, a_drive_that_cannot_be_asked_for_is_taken_for_no_cd_rom) {
  here.files.addDrive(u"D:", 5);
  here.files.putFolder(u"D:\\datos");
  here.faults.failNext("Files.driveType", 51);
  EXPECT_EQ(ComprobarDirectorio(u"D:\\datos", false), u"D:\\datos\\");
}

TEST_F(FolderCheck, of_no_path_is_the_root) { EXPECT_EQ(ComprobarDirectorio(u"", false), u"\\"); }

}  // namespace
}  // namespace ovalia
