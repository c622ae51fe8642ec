#include "routines/ErrorLog.h"

#include <gtest/gtest.h>

#include "routines/ModuleValues.h"
#include "tests/kit/FakeObject.h"
#include "tests/kit/TestPlatform.h"

namespace ovalia {
namespace {

using kit::FakeObject;
using kit::named;

class Log : public kit::LogicTest {
 protected:
  void TearDown() override {
    here.files.appended.clear();  // the entries are what these tests are about
    LogicTest::TearDown();
  }
  Text written() {
    Text all;
    for (const auto& [path, text] : here.files.appended) all += text;
    here.files.appended.clear();
    return all;
  }
  const Text defaultPath = here.files.temporary + u"Brenox\\ErrLog[_].txt";
};

TEST_F(Log, an_entry_has_moment_text_number_routine_form_and_control_then_the_loaded_forms) {
  here.screen.form = named(u"frmNota", u"Nota 3");
  here.screen.control = named(u"txtAsunto");
  here.screen.loadedForms = {named(u"MDIPrincipal", u"Agencia"), here.screen.form};
  EscribirErrLog(u"Algo falló.", 13, u"Guardar de CNota");
  EXPECT_EQ(written(),
            u"09/03/26 10:20:30 Algo falló. [13] Guardar de CNota (frmNota)->(txtAsunto)\r\n"
            u"    Formularios: MDIPrincipal{Agencia} frmNota{Nota 3} \r\n");
}

TEST_F(Log, without_an_active_form_there_is_neither_form_nor_control) {
  here.screen.control = named(u"txtAsunto");
  EscribirErrLog(u"Algo falló.", 13, u"Guardar de CNota");
  EXPECT_EQ(written(), u"09/03/26 10:20:30 Algo falló. [13] Guardar de CNota\r\n    Formularios: \r\n");
}

TEST_F(Log, a_form_without_an_active_control_stands_alone) {
  here.screen.form = named(u"frmNota");
  EscribirErrLog(u"Algo falló.", 13, u"Guardar de CNota");
  EXPECT_EQ(written(),
            u"09/03/26 10:20:30 Algo falló. [13] Guardar de CNota (frmNota)\r\n    Formularios: \r\n");
}

TEST_F(Log, number_minus_1000_leaves_the_bracket_out) {
  EscribirErrLog(u"Aviso.", -1000, u"Guardar de CNota");
  EXPECT_EQ(written(), u"09/03/26 10:20:30 Aviso.Guardar de CNota\r\n    Formularios: \r\n");
}

TEST_F(Log, an_empty_routine_adds_nothing) {
  EscribirErrLog(u"Aviso.", 5, u"");
  EXPECT_EQ(written(), u"09/03/26 10:20:30 Aviso. [5] \r\n    Formularios: \r\n");
}

TEST_F(Log, an_empty_path_is_filled_with_the_default_in_the_temporary_folder_and_stays) {
  EscribirErrLog(u"Uno.", 1, u"x");
  EXPECT_EQ(moduleValues().ErrLogPath, defaultPath);
  EXPECT_TRUE(here.files.exists(defaultPath));
  here.files.temporary = u"\\otra\\";
  EscribirErrLog(u"Dos.", 2, u"x");
  EXPECT_EQ(moduleValues().ErrLogPath, defaultPath);
}

TEST_F(Log, entries_are_added_behind_the_older_ones) {
  moduleValues().ErrLogPath = u"\\log\\errores.txt";
  here.files.putFile(u"\\log\\errores.txt", u"viejo\r\n");
  EscribirErrLog(u"Uno.", -1000, u"");
  EscribirErrLog(u"Dos.", -1000, u"");
  EXPECT_EQ(here.files.content(u"\\log\\errores.txt"),
            u"viejo\r\n09/03/26 10:20:30 Uno.\r\n    Formularios: \r\n"
            u"09/03/26 10:20:30 Dos.\r\n    Formularios: \r\n");
}

TEST_F(Log, missing_folders_are_made_without_a_word) {
  moduleValues().ErrLogPath = u"\\srv\\agencia\\log\\errores.txt";
  EscribirErrLog(u"Uno.", 1, u"x");
  EXPECT_TRUE(here.files.exists(u"\\srv\\agencia\\log\\errores.txt"));
}

TEST_F(Log, a_path_in_the_systems_form_is_understood_and_its_stored_value_left_alone) {
  moduleValues().ErrLogPath = u"/srv/agencia/errores.txt";
  EscribirErrLog(u"Uno.", 1, u"x");
  EXPECT_TRUE(here.files.exists(u"\\srv\\agencia\\errores.txt"));
  EXPECT_EQ(moduleValues().ErrLogPath, u"/srv/agencia/errores.txt");
}

TEST_F(Log, no_usable_folder_is_told_and_the_entry_is_lost) {
  here.files.addDrive(u"D:", 5);
  moduleValues().ErrLogPath = u"D:\\log\\errores.txt";
  expectBox(u"El directorio D:\\log\\ es de un CDROM.", 16);
  expectBox(u"Error al crear D:\\log\\errores.txt", 16);
  EscribirErrLog(u"Uno.", 1, u"x");
  EXPECT_TRUE(here.files.appended.empty());
}

TEST_F(Log, a_log_that_cannot_be_written_is_told_and_the_entry_is_lost) {
  moduleValues().ErrLogPath = u"\\log\\errores.txt";
  here.faults.failNext("Files.append", 61);
  expectBox(u"Error al escribir en \\log\\errores.txt", 16);
  EscribirErrLog(u"Uno.", 1, u"x");
  EXPECT_TRUE(here.files.appended.empty());
}

TEST_F(Log, a_path_without_a_folder_cannot_be_written) {
  moduleValues().ErrLogPath = u"errores.txt";
  expectBox(u"Error al escribir en errores.txt", 16);
  EscribirErrLog(u"Uno.", 1, u"x");
}

TEST_F(Log, a_form_that_cannot_be_read_costs_the_entry) {
  moduleValues().ErrLogPath = u"\\log\\errores.txt";
  here.screen.loadedForms = {std::make_shared<FakeObject>()};
  expectBox(u"Error al escribir en \\log\\errores.txt", 16);
  EscribirErrLog(u"Uno.", 1, u"x");
  EXPECT_TRUE(here.files.appended.empty());
}

TEST_F(Log, a_temporary_folder_that_cannot_be_asked_for_is_told_once_and_not_reported) {
  here.faults.failNext("Files.temporaryFolder", 75);
  expectBox(u"Error al escribir en ", 16);
  EscribirErrLog(u"Uno.", 1, u"x");
}

}  // namespace
}  // namespace ovalia
