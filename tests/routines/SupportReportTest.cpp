#include "routines/SupportReport.h"

#include <gtest/gtest.h>

#include <optional>

#include "routines/ModuleValues.h"
#include "tests/kit/FakeObject.h"
#include "tests/kit/TestPlatform.h"

namespace ovalia {
namespace {

using kit::FakeObject;
using Lines = std::vector<Text>;

class Support : public kit::LogicTest {
 protected:
  Support() {
    here.files.putFolder(folder);
    zip->giving(u"AddFile", {}).giving(u"MakeZipFile", 0).giving(u"GetLastMessage", u"disco lleno");
    mailer->answering(u"EnviarCorreo", [this](Arguments given) {
      sent.emplace();
      for (const Variant& argument : given.first(3)) sent->push_back(argument.text());
      const ObjectRef attachments = given[3].toObject();
      for (std::int32_t i = 1; i <= getMember(attachments, u"Count").toLong(); ++i)
        sent->push_back(getMember(attachments, u"Item", {i}).text());
      return Variant{};
    });
    here.objects.add(u"ZipLibrary.CGZipFiles", [this] { return zip; });
    here.objects.add(u"Zandrel.CZandrel", [this] { return mailer; });
  }

  kit::FakeScreen::Expectation& expectExplanation(Text typed) {
    return here.expectInput(u"Por favor, explique que estaba haciendo cuando se ha producido el error",
                            u"Aviso de incidencia", u"", std::move(typed));
  }
  void send(bool picture = true, TextView attachment = u"") {
    EnviarDatosASoporte(attachment, picture, u"Incidencia", u"cuerpo");
  }

  const Text folder = here.files.temporary + u"Brenox\\";
  std::shared_ptr<FakeObject> zip = std::make_shared<FakeObject>();
  std::shared_ptr<FakeObject> mailer = std::make_shared<FakeObject>();
  std::optional<Lines> sent;  // address, subject, text, attachments
};

TEST_F(Support, packs_the_folders_text_files_and_the_picture_in_this_order) {
  expectExplanation(u"Guardaba");
  send();
  EXPECT_EQ(zip->journal, (Lines{u"ZipFileName = " + folder + u"envio.zip", u"UpdatingZip = Falso",
                                 u"AddFile(" + folder + u"*.txt)", u"AddFile(" + folder + u"Captura.bmp)",
                                 u"MakeZipFile()"}));
}

TEST_F(Support, an_attachment_goes_in_before_the_picture) {
  expectExplanation(u"Guardaba");
  send(true, u"\\datos\\extra.log");
  EXPECT_EQ(zip->journal[3], u"AddFile(\\datos\\extra.log)");
  EXPECT_EQ(zip->journal[4], u"AddFile(" + folder + u"Captura.bmp)");
}

TEST_F(Support, mails_the_zip_with_explanation_and_body_to_the_fixed_address) {
  expectExplanation(u"Guardaba");
  send();
  ASSERT_TRUE(sent);
  EXPECT_EQ(*sent,
            (Lines{Text(supportAddress), u"Incidencia", u"Guardaba\r\ncuerpo", folder + u"envio.zip"}));
}

TEST_F(Support, without_a_picture_nothing_is_asked_and_the_explanation_is_a_blank) {
  send(false);
  ASSERT_TRUE(sent);
  EXPECT_EQ(sent->at(2), u" \r\ncuerpo");
  EXPECT_EQ(here.faults.visits("Shell.saveScreenPicture"), 0);
  EXPECT_EQ(zip->journal.size(), 4u);
}

TEST_F(Support, shows_the_hourglass_from_after_the_picture_to_the_end) {
  here.faults.onNext("Shell.saveScreenPicture", [&] { EXPECT_EQ(here.screen.pointer, 0); });
  expectExplanation(u"Guardaba").whileUp([&] { EXPECT_EQ(here.screen.pointer, 11); });
  send();
  EXPECT_EQ(here.screen.pointers, (std::vector<int>{11, 0}));
}

TEST_F(Support, an_empty_explanation_stops_the_mail_after_the_zip_was_built) {
  expectExplanation(u"");
  expectBox(u"La descripción está en blanco.\r\nNo se enviará el mensaje.");
  send();
  EXPECT_EQ(zip->journal.back(), u"MakeZipFile()");
  EXPECT_FALSE(sent);
  EXPECT_EQ(here.screen.pointer, 0);
}

TEST_F(Support, a_zip_that_cannot_be_made_is_told_and_nothing_is_mailed) {
  zip->giving(u"MakeZipFile", 3);
  expectBox(u"Error al crear el zip: disco lleno");
  send();
  EXPECT_FALSE(sent);
  EXPECT_EQ(here.screen.pointer, 0);
}

TEST_F(Support, files_of_the_report_stay_until_the_next_one) {
  zip->answering(u"MakeZipFile", [&](Arguments) {
    here.files.putFile(folder + u"envio.zip", u"PK");
    return Variant(0);
  });
  expectExplanation(u"");
  expectBox(u"La descripción está en blanco.\r\nNo se enviará el mensaje.");
  send();
  for (const TextView name : {u"Captura.bmp", u"system.txt", u"envio.zip"})
    EXPECT_TRUE(here.files.exists(folder + Text(name))) << toUtf8(name);
}

TEST_F(Support, the_last_reports_zip_is_deleted_before_the_new_one_is_made) {
  here.files.putFile(folder + u"envio.zip", u"PK");
  zip->answering(u"MakeZipFile", [&](Arguments) {
    EXPECT_FALSE(here.files.exists(folder + u"envio.zip"));
    return Variant(0);
  });
  expectExplanation(u"Guardaba");
  send();
}

TEST_F(Support, a_zip_that_cannot_be_deleted_ends_the_report_with_the_hourglass_on) {
  here.files.putFile(folder + u"envio.zip", u"PK");
  here.files.lock(folder + u"envio.zip");
  expectBox(u"No ha sido posible borrar " + folder + u"envio.zip");
  send();
  EXPECT_TRUE(zip->journal.empty());
  EXPECT_EQ(here.screen.pointer, 11);
}

TEST_F(Support, the_packer_is_made_before_the_old_zip_is_looked_at) {
  here.files.putFile(folder + u"envio.zip", u"PK");
  here.files.lock(folder + u"envio.zip");
  here.objects.add(u"ZipLibrary.CGZipFiles", [&]() -> ObjectRef { throw Failure(429); });
  expectReport(u"La librería ZipLibrary.CGZipFiles no está registrada correctamente.", 429);
  expectBox(u"No ha sido posible borrar " + folder + u"envio.zip");
  send();
}

TEST_F(Support, a_packer_that_is_not_registered_trips_the_reports_own_trap) {
  here.objects.add(u"ZipLibrary.CGZipFiles", [&]() -> ObjectRef { throw Failure(429); });
  moduleValues().EnviandoSoporte = true;
  here.expectReportWithoutOffer(u"La librería ZipLibrary.CGZipFiles no está registrada correctamente.", 429);
  here.expectReportWithoutOffer(u"EnviarDatosASoporte() de RutinasErr", 91);
  send();
  EXPECT_FALSE(sent);
}

TEST_F(Support, a_mailer_that_is_not_registered_trips_the_reports_own_trap) {
  here.objects.add(u"Zandrel.CZandrel", [&]() -> ObjectRef { throw Failure(429); });
  expectExplanation(u"Guardaba");
  expectReport(u"La librería Zandrel.CZandrel no está registrada correctamente.", 429);
  expectReport(u"EnviarDatosASoporte() de RutinasErr", 91);
  send();
  EXPECT_EQ(here.screen.pointer, 11);
}

TEST_F(Support, a_picture_that_cannot_be_taken_is_passed_over_and_still_named_to_the_packer) {
  here.faults.failNext("Shell.saveScreenPicture", 75);
  expectExplanation(u"Guardaba");
  send();
  EXPECT_EQ(zip->journal[3], u"AddFile(" + folder + u"Captura.bmp)");
  EXPECT_TRUE(sent);
}

class Picture : public kit::LogicTest {};

TEST_F(Picture, takes_the_place_of_the_last_one) {
  here.files.putFile(u"\\tmp\\Captura.bmp", u"viejo");
  CapturarPantalla(u"\\tmp\\Captura.bmp");
  EXPECT_EQ(here.files.content(u"\\tmp\\Captura.bmp"), u"BM");
}

TEST_F(Picture, is_not_taken_when_the_last_one_cannot_be_deleted) {
  here.files.putFile(u"\\tmp\\Captura.bmp", u"viejo");
  here.files.lock(u"\\tmp\\Captura.bmp");
  expectBox(u"No ha sido posible borrar \\tmp\\Captura.bmp");
  CapturarPantalla(u"\\tmp\\Captura.bmp");
  EXPECT_EQ(here.faults.visits("Shell.saveScreenPicture"), 0);
}

class SystemText : public kit::LogicTest {
 protected:
  const Text path = here.files.temporary + u"Brenox\\system.txt";
};

TEST_F(SystemText, has_system_settings_and_paths_in_this_order) {
  here.shell.system = {
      .platform = 4, .name = u"Linux", .major = 6, .minor = 1, .build = 20, .servicePack = u"Debian"};
  here.settings.put(u"Agencia", u"Settings", u"DirDocumentos", u"\\docs");
  here.settings.put(u"Agencia", u"MainWindow", u"Left", u"120");
  here.settings.put(u"Agencia", u"MainWindow", u"Top", u"60");
  here.settings.put(u"Agencia", u"Prueba", u"a", u"b");
  here.settings.put(u"Agencia", u"Otra", u"c", u"d");
  VolcarSystemaTxt();
  EXPECT_EQ(here.files.content(path),
            u"Linux\r\nVersion: 6.1.20\r\n Debian\r\n"
            u" \r\n"
            u"Contenido del system.dat: 09/03/26 10:20\r\n"
            u" \r\n"
            u"Settings->DirDocumentos: \\docs\r\n"
            u"MainWindow->Left: 120\r\n"
            u"MainWindow->Top: 60\r\n"
            u"Prueba->a: b\r\n"
            u" \r\n"
            u"App.Path: \\opt\\agencia\r\n"
            u" \r\n"
            u"directorioLocal: \r\n"
            u"El directorio \\comun\\librerias no existe.\r\n");
}

TEST_F(SystemText, lists_the_libraries_of_the_stored_folder) {
  here.settings.put(u"Agencia", u"Settings", u"Directorio", u"\\srv\\agencia");
  here.files.putFile(u"\\srv\\agencia\\comun\\librerias\\zip.so", u"",
                     dateFrom({2005, 3, 7, 9, 5, 0}).value());
  VolcarSystemaTxt();
  EXPECT_TRUE(here.files.content(path).ends_with(
      u"directorioLocal: \\srv\\agencia\r\nDll: zip.so\tversion: \t Fecha: 07/03/2005 9:05:00\r\n"));
}

TEST_F(SystemText, finds_the_stored_folder_in_the_systems_form_too) {
  here.settings.put(u"Agencia", u"Settings", u"Directorio", u"/srv/agencia");
  here.files.putFile(u"\\srv\\agencia\\comun\\librerias\\zip.so");
  VolcarSystemaTxt();
  EXPECT_TRUE(here.files.content(path).ends_with(
      u"directorioLocal: /srv/agencia\r\nDll: zip.so\tversion: \t Fecha: 0:00:00\r\n"));
}

TEST_F(SystemText, replaces_the_last_one) {
  here.files.putFile(path, u"viejo");
  VolcarSystemaTxt();
  EXPECT_TRUE(here.files.content(path).starts_with(u"Windows NT\r\n"));
}

TEST_F(SystemText, a_file_that_cannot_be_opened_is_reported) {
  here.faults.failNext("Files.write", 70);
  expectReport(u"VolcarSystemaTxt() de RutinasErr", 70);
  VolcarSystemaTxt();
}

TEST_F(SystemText, settings_that_cannot_be_read_cost_their_lines_only) {
  here.faults.failNth("Settings.all", 2, 75);
  here.settings.put(u"Agencia", u"Settings", u"a", u"1");
  here.settings.put(u"Agencia", u"MainWindow", u"b", u"2");
  here.settings.put(u"Agencia", u"Prueba", u"c", u"3");
  expectReport(u"VolcarCadenasSystema() de RutinasErr", 75);
  VolcarSystemaTxt();
  const Text written = here.files.content(path);
  EXPECT_NE(written.find(u"Settings->a: 1\r\nPrueba->c: 3\r\n"), Text::npos);
}

class FolderDump : public kit::LogicTest {
 protected:
  Text dump(TextView folder) {
    OutputFile file(u"\\salida.txt");
    VolcarDirectorio(folder, file);
    return here.files.content(u"\\salida.txt");
  }
};

TEST_F(FolderDump, has_a_line_for_each_file_with_version_and_date) {
  here.files.putFile(u"\\lib\\a.so", u"", dateFrom({2005, 3, 7, 9, 5, 0}).value());
  here.files.putFile(u"\\lib\\b.so", u"", dateFrom({2024, 12, 31, 0, 0, 0}).value());
  here.shell.versions[u"\\lib\\a.so"] = {3, 5, 12};
  EXPECT_EQ(dump(u"\\lib"),
            u"Dll: a.so\tversion: 3.5.12\t Fecha: 07/03/2005 9:05:00\r\n"
            u"Dll: b.so\tversion: \t Fecha: 31/12/2024\r\n");
}

TEST_F(FolderDump, passes_over_folders) {
  here.files.putFolder(u"\\lib\\viejas");
  EXPECT_EQ(dump(u"\\lib"), u"");
}

TEST_F(FolderDump, says_that_a_folder_is_not_there) {
  EXPECT_EQ(dump(u"\\nada"), u"El directorio \\nada no existe.\r\n");
}

TEST_F(FolderDump, that_fails_is_reported_and_keeps_the_lines_written) {
  here.files.putFile(u"\\lib\\a.so");
  here.files.putFile(u"\\lib\\b.so");
  here.faults.failNth("Files.append", 2, 61);
  expectReport(u"VolcarDirectorio() de RutinasErr", 61);
  EXPECT_EQ(dump(u"\\lib"), u"Dll: a.so\tversion: \t Fecha: 0:00:00\r\n");
}

TEST(SettingsDump, of_a_section_without_settings_writes_nothing) {
  kit::TestPlatform here;
  OutputFile file(u"\\salida.txt");
  VolcarCadenasSystema(u"Prueba", file);
  EXPECT_EQ(here.files.content(u"\\salida.txt"), u"");
  here.verify();
}

}  // namespace
}  // namespace ovalia
