#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sqlite3.h>
#include <sys/wait.h>

#include <cstdlib>

#include "desktop/IniSettings.h"
#include "tests/host/HostTest.h"

namespace ovalia::host {

namespace fs = std::filesystem;
using testing::HasSubstr;
using testing::Not;

// The program as a whole, started as its user would.
class Program : public kit::LogicTest {
 protected:
  struct Outcome {
    int status;
    std::string text;
  };
  Outcome start(const std::string& arguments) {
    const std::string home = "'" + folder.path().string() + "'";
    const std::string output = (folder.path() / "salida.txt").string();
    const std::string command = "env -u DISPLAY -u WAYLAND_DISPLAY HOME=" + home + " XDG_DATA_HOME=" + home +
                                "/datos XDG_CONFIG_HOME=" + home +
                                "/config QT_QPA_PLATFORM=offscreen timeout 300 " AGENCIA_PROGRAM " " +
                                arguments + " > '" + output + "' 2>&1";
    const int status = std::system(command.c_str());
    return {WEXITSTATUS(status), folder.content("salida.txt")};
  }
  std::string quoted(const std::string& name) { return "'" + (folder.path() / name).string() + "'"; }

  // An agency in "agencia.db" with such a statement run on it.
  void agencyWith(const char* sql) {
    const fs::path file = sampleFile(folder.path(), 2500);
    sqlite3* opened = nullptr;
    ASSERT_EQ(sqlite3_open(file.c_str(), &opened), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(opened, sql, nullptr, nullptr, nullptr), SQLITE_OK) << sqlite3_errmsg(opened);
    sqlite3_close(opened);
  }
  Outcome tour() { return start("--database " + quoted("agencia.db") + " --tour " + quoted("fotos")); }
  std::string transcript() { return folder.content("fotos/transcript.txt"); }
  void expectPicture(const std::string& name) {
    EXPECT_EQ(folder.content("fotos/" + name + ".png").substr(0, 4), "\x89PNG") << name;
  }

  kit::TemporaryFolder folder;
};

TEST_F(Program, refuses_a_missing_database_before_any_window) {
  const Outcome outcome = start("--database " + quoted("nada.db") + " --tour " + quoted("fotos"));
  EXPECT_EQ(outcome.status, 1);
  EXPECT_THAT(outcome.text, HasSubstr("No existe la base de datos"));
  EXPECT_FALSE(folder.has("fotos"));
}

TEST_F(Program, refuses_a_damaged_database) {
  folder.putFile("rota.db", std::string(5000, 'x'));
  const Outcome outcome = start("--database " + quoted("rota.db") + " --tour " + quoted("fotos"));
  EXPECT_EQ(outcome.status, 1);
  EXPECT_THAT(outcome.text, HasSubstr("dañado"));
}

TEST_F(Program, refuses_a_user_in_its_settings_that_the_database_lacks) {
  folder.putFolder("config/ovalia");
  const auto settings = folder.path() / "config" / "ovalia" / "ovalia.ini";
  desktop::IniSettings(QString::fromStdString(settings.string()))
      .save(u"Agencia", u"Settings", u"Usuario", u"Fulano");
  const Outcome outcome = start("--tour " + quoted("fotos"));
  EXPECT_EQ(outcome.status, 1);
  EXPECT_THAT(outcome.text, HasSubstr("El usuario «Fulano» de la configuración no existe"));
}

TEST_F(Program, refuses_options_it_does_not_know) {
  const Outcome outcome = start("--fichas");
  EXPECT_EQ(outcome.status, 1);
  EXPECT_THAT(outcome.text, HasSubstr("Uso: agencia"));
}

TEST_F(Program, tells_how_it_is_used) {
  const Outcome outcome = start("--help");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_THAT(outcome.text, HasSubstr("--tour CARPETA"));
}

TEST_F(Program, says_that_it_needs_a_screen) {
  const Outcome outcome = start("");
  EXPECT_EQ(outcome.status, 1);
  EXPECT_THAT(outcome.text, HasSubstr("No hay pantalla"));
}

// One tour for all: it takes its time.
TEST_F(Program, tours_all_kinds_documents_prints_models_and_mail_on_its_first_start) {
  const Outcome outcome = start("--tour " + quoted("fotos"));
  ASSERT_EQ(outcome.status, 0) << outcome.text << transcript();
  EXPECT_TRUE(folder.has("datos/agencia/agencia.db"));
  EXPECT_FALSE(folder.has("datos/Trash")) << "the user's own bin is left alone";
  EXPECT_FALSE(folder.has("fotos/aviso.png"));
  for (const char* picture : {"agencia", "mover", "movida", "correo", "modelo-crear", "modelo-repetido",
                              "modelos", "modelos-marcados", "modelos-seleccion"})
    expectPicture(picture);
  for (const std::string kind : {"nota", "visita", "anuncio", "llamada"}) {
    for (const char* end : {"", "-cambiada", "-pregunta", "-rechazada", "-nueva", "-encontrada"})
      expectPicture(kind + end);
    expectPicture("imprimir-" + kind);
    expectPicture("impreso-" + kind);
    EXPECT_EQ(folder.content("fotos/impreso-" + kind + ".pdf").substr(0, 4), "%PDF") << kind;
  }
  for (const std::string documents : {"iconos-grandes", "iconos-pequenos", "lista", "nombre", "quitar"})
    expectPicture("documentos-" + documents);
  for (const char* line :
       {"Bien: la ficha enseña los 9", "«Contrato de arras.doc», fichero 1F02.doc",
        "Se abre «Fachada desde la calle.jpg» (1F09.jpg): image/png",
        "Se abre «Contrato de compraventa firmado ante notario el 3 de marzo (versión definitiva).docx» "
        "(1F03.doc): text/plain",
        "«Arras: señal de 3.000 €.doc», fichero 1F02.doc", "papelera: 1F03.doc, 13 bytes",
        "Cuadro «Mover la nota marcada a»", "Bien: la nota cuelga de otro inmueble", "fichero 2F00.doc",
        "tiene el propietario: «", "tiene el visitante: «", "tiene el medio: «", "tiene el número: «",
        "Bien: la base de datos tiene el modelo «Contrato de alquiler con garaje.rtf» con sus notas",
        "Bien: la copia es como el modelo", "Para: propietario@correo.example",
        "Recorrido terminado: todo ha ido como se esperaba."})
    EXPECT_THAT(transcript(), HasSubstr(line));
}

TEST_F(Program, tells_on_a_tour_what_the_database_held_and_leaves_its_users_data_alone) {
  agencyWith("UPDATE NotaIP SET Asunto = 'Llaves del ático', Categorias = NULL WHERE IdNota = 1");
  const Outcome outcome = tour();
  ASSERT_EQ(outcome.status, 0) << outcome.text << transcript();
  for (const char* line :
       {"Título: Inmueble: 1 - Nota: 1/7", "Título: Anuncio: 1 - Llamada: 1/6",
        "Asunto (txtAsunto): Llaves del ático",
        "Antes, en la base de datos: 7 en la lista; NotaIP 1: Asunto «Llaves del ático», Categorias (nulo)",
        "Cuadro «Guardar»: ¿Desea guardar los cambios realizados en el anuncio?",
        "Después, en la base de datos: 7 en la lista; NotaIP 1: Asunto «Cambiado en el recorrido",
        "Otro usuario escribe mientras tanto: VisitaIP 1: Asunto «Escrito por otro usuario",
        "Cuadro «Guardar»: La ficha acaba de ser modificada por otro usuario.",
        "Bien: la base de datos tiene «Escrito por otro usuario",
        "Después, en la base de datos: 8 en la lista", "Título: Inmueble: 1 - Nueva Visita",
        "Recorrido terminado: todo ha ido como se esperaba."})
    EXPECT_THAT(transcript(), HasSubstr(line));
  EXPECT_THAT(transcript(), Not(HasSubstr("AVISO")));
  const auto held = [&](const std::string& file) {
    const auto rows =
        openAgency(folder.path() / file, u"")
            .database->OpenRecordset(
                u"SELECT Count(*) AS N FROM NotaIP WHERE IdNota = 1 AND Asunto = 'Llaves del ático'",
                dao::dbOpenSnapshot);
    return rows->value(u"N").toLong();
  };
  EXPECT_EQ(held("agencia.db"), 1);
  EXPECT_EQ(held("fotos/agencia.db"), 0);
  EXPECT_FALSE(folder.has("config/ovalia/ovalia.ini"));
}

TEST_F(Program, fails_the_tour_when_a_box_comes_up) {
  // A note whose author is unknown cannot be shown: the component reports it.
  agencyWith("UPDATE NotaIP SET IdUsuario = NULL WHERE IdInm = 1");
  EXPECT_EQ(tour().status, 1);
  EXPECT_THAT(transcript(), HasSubstr("AVISO: cuadro inesperado"));
  EXPECT_TRUE(folder.has("fotos/aviso.png"));
}

TEST_F(Program, fails_the_tour_when_a_save_does_not_reach_the_database) {
  agencyWith("CREATE TRIGGER Sordo BEFORE UPDATE ON AnuncioIP BEGIN SELECT RAISE(IGNORE); END");
  EXPECT_EQ(tour().status, 1);
  EXPECT_THAT(transcript(), HasSubstr("AVISO: no es así: la base de datos tiene «Cambiado en el recorrido"));
}

TEST_F(Program, fails_the_tour_when_a_value_is_missing_on_a_printed_page) {
  agencyWith("");
  folder.putFolder("agencia-documentos/Plantillas/Llamada");
  folder.putFile("agencia-documentos/Plantillas/Llamada/Parte de llamada.dot",
                 "{\\rtf1\\ansi Fecha: {\\*\\bkmkstart Fecha}{\\*\\bkmkend Fecha}\\par}");
  EXPECT_EQ(tour().status, 1);
  EXPECT_THAT(transcript(), HasSubstr("Bien: la hoja de LlamadaAIP 1 tiene la fecha"));
  EXPECT_THAT(transcript(), HasSubstr("AVISO: no es así: la hoja de LlamadaAIP 1 tiene el autor"));
}

TEST_F(Program, fails_the_tour_when_there_is_nothing_to_open) {
  agencyWith("DELETE FROM LlamadaAIP");
  EXPECT_EQ(tour().status, 1);
  EXPECT_THAT(transcript(), HasSubstr("AVISO: la ficha no se ha abierto"));
}

}  // namespace ovalia::host
