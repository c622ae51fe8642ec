#include "routines/ErrorReport.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "routines/ModuleValues.h"
#include "tests/kit/FakeObject.h"
#include "tests/kit/TestPlatform.h"

namespace ovalia {
namespace {

using kit::FakeObject;
using kit::named;

constexpr TextView title = u"Error. - Versión: 3.05.12";

PendingError pending(std::int32_t number, Text description = u"Algo falló.") {
  return PendingError(Failure(number, std::move(description)));
}

class Reporter : public kit::LogicTest {
 protected:
  void report(std::int32_t number, TextView routine = u"Guardar de CNota") {
    error = pending(number);
    GestionarError(routine, error);
  }

  PendingError error;
};

struct OwnText {
  std::int32_t number;
  TextView text;
  int buttons;
  TextView title;
};

class OwnTexts : public Reporter, public testing::WithParamInterface<OwnText> {};

TEST_P(OwnTexts, are_shown_with_no_offer_of_a_report_and_logged_all_the_same) {
  const auto form = named(u"frmInmueble");
  const auto host = std::make_shared<FakeObject>();
  host->giving(u"CargaRegistros", {});
  form->with(u"vClase", host);
  here.screen.form = form;

  expectBox(Text(GetParam().text), GetParam().buttons, Text(GetParam().title));
  here.expectLogEntry(u"Guardar de CNota", GetParam().number);
  report(GetParam().number);
  EXPECT_EQ(error.number, GetParam().number);
  EXPECT_EQ(error.description, u"Algo falló.");
}

INSTANTIATE_TEST_SUITE_P(
    Reporter, OwnTexts,
    testing::Values(
        OwnText{7,
                u"El sistema no dispone de suficiente memoria libre.\r\n"
                u"Cierre los programas que no esté utilizando o reinicie el sistema.\r\n\r\n"
                u"Es conveniente reiniciar Agencia para evitar errores.",
                4112, u"Error de sistema"},
        // Titled "Borrar" whatever was being done: that is meant.
        OwnText{70, u"El fichero está bloqueado por Windows.\r\n\r\nCompruebe que no está abierto en Word.",
                4144, u"Borrar"},
        OwnText{3167, u"La ficha acaba de ser borrada por otro usuario y\r\nno se volverá a visualizar.",
                4144, u"Error"},
        OwnText{3200, u"Imposible eliminar el dato ya que está siendo utilizado por otras fichas.", 4160,
                u"Eliminar"}),
    [](const auto& info) { return "number_" + std::to_string(info.param.number); });

TEST_F(Reporter, any_other_number_is_shown_with_routine_text_and_number_and_offers_a_report) {
  expectBox(
      u"Error en la rutina: Guardar de CNota\r\n\r\n"
      u"Texto del error: Algo falló.\r\n"
      u"Número del error: 3021\r\n\r\n"
      u"¿Desea enviar la información sobre el error al soporte técnico de Brenox?",
      4148, Text(title), 7);
  here.expectLogEntry(u"Guardar de CNota", 3021);
  report(3021);
}

TEST_F(Reporter, answered_no_it_writes_the_log_and_leaves_the_pending_error_as_it_was) {
  expectReport(u"Guardar de CNota", 13);
  report(13);
  EXPECT_EQ(error.number, 13);
  EXPECT_EQ(error.description, u"Algo falló.");
}

TEST_F(Reporter, while_a_report_is_sent_the_text_stands_alone) {
  moduleValues().EnviandoSoporte = true;
  expectBox(
      u"Error en la rutina: Guardar de CNota\r\n\r\n"
      u"Texto del error: Algo falló.\r\n"
      u"Número del error: 13",
      4144, Text(title));
  here.expectLogEntry(u"Guardar de CNota", 13);
  report(13);
  EXPECT_TRUE(moduleValues().EnviandoSoporte);
}

TEST_F(Reporter, while_a_report_is_sent_even_yes_starts_no_other) {
  moduleValues().EnviandoSoporte = true;
  here.expectReportWithoutOffer(u"Guardar de CNota", 13).answer = 6;
  report(13);
  EXPECT_EQ(error.number, 13);
}

TEST_F(Reporter, the_message_flag_is_up_meanwhile_and_as_before_afterwards) {
  for (const bool before : {false, true}) {
    moduleValues().MensajeEnCurso = before;
    expectReport(u"Guardar de CNota", 13).whileUp([] { EXPECT_TRUE(moduleValues().MensajeEnCurso); });
    report(13);
    EXPECT_EQ(moduleValues().MensajeEnCurso, before);
  }
}

TEST_F(Reporter, the_box_comes_before_the_log_entry) {
  expectReport(u"Guardar de CNota", 13).whileUp([&] { EXPECT_TRUE(here.files.appended.empty()); });
  report(13);
}

TEST_F(Reporter, failures_are_always_shown) { EXPECT_TRUE(PermitirAvisoError()); }

class DeletedByAnotherUser : public Reporter {
 protected:
  void announce() {
    expectBox(u"La ficha acaba de ser borrada por otro usuario y\r\nno se volverá a visualizar.", 4144,
              u"Error");
  }
};

TEST_F(DeletedByAnotherUser, the_active_forms_records_are_loaded_again_before_the_entry_is_written) {
  const auto host = std::make_shared<FakeObject>();
  Text arguments;
  bool loggedBefore = true;
  host->answering(u"CargaRegistros", [&](Arguments given) {
    arguments = join(given[0], u" ", given[1]);
    loggedBefore = !here.files.appended.empty();
    return Variant{};
  });
  const auto form = named(u"frmInmueble");
  form->with(u"vClase", host);
  here.screen.form = form;
  expectReport(u"RefrescoFicha de CNota", 3167);
  report(3167, u"RefrescoFicha de CNota");
  EXPECT_EQ(arguments, u"Falso Verdadero");
  EXPECT_EQ(host->journal.size(), 1u);
  EXPECT_FALSE(loggedBefore);
}

TEST_F(DeletedByAnotherUser, without_an_active_form_91_leaves_before_the_log_and_the_flag_stays_up) {
  announce();
  try {
    report(3167);
    FAIL() << "nothing was thrown";
  } catch (const Failure& failed) {
    EXPECT_EQ(failed.number(), 91);
  }
  EXPECT_TRUE(moduleValues().MensajeEnCurso);
  EXPECT_TRUE(here.files.appended.empty());
}

TEST_F(DeletedByAnotherUser, a_card_on_top_has_no_records_and_438_leaves_before_the_log) {
  here.screen.form = named(u"frmNota");
  announce();
  try {
    report(3167);
    FAIL() << "nothing was thrown";
  } catch (const Failure& failed) {
    EXPECT_EQ(failed.number(), 438);
  }
  EXPECT_TRUE(here.files.appended.empty());
}

TEST_F(DeletedByAnotherUser, a_reload_that_fails_reaches_the_caller_with_its_own_number) {
  const auto host = std::make_shared<FakeObject>();
  host->failing(u"CargaRegistros", 3024);
  const auto form = named(u"frmInmueble");
  form->with(u"vClase", host);
  here.screen.form = form;
  announce();
  try {
    report(3167);
    FAIL() << "nothing was thrown";
  } catch (const Failure& failed) {
    EXPECT_EQ(failed.number(), 3024);
  }
}

// The parts a support report asks of outside components.
class AcceptedOffer : public Reporter {
 protected:
  AcceptedOffer() {
    zip->giving(u"AddFile", {}).giving(u"MakeZipFile", 0);
    mailer->giving(u"EnviarCorreo", {});
    here.objects.add(u"ZipLibrary.CGZipFiles", [this] { return zip; });
    here.objects.add(u"Zandrel.CZandrel", [this] { return mailer; });
  }
  void accept(std::int32_t number) {
    expectReport(u"Guardar de CNota", number).answer = 6;
    here.expectInput(u"Por favor, explique que estaba haciendo cuando se ha producido el error",
                     u"Aviso de incidencia", u"", u"Nada");
  }

  std::shared_ptr<FakeObject> zip = std::make_shared<FakeObject>();
  std::shared_ptr<FakeObject> mailer = std::make_shared<FakeObject>();
};

TEST_F(AcceptedOffer, sends_subject_and_body_made_of_title_version_text_and_routine) {
  Text subject, body;
  mailer->answering(u"EnviarCorreo", [&](Arguments given) {
    subject = given[1].text();
    body = given[2].text();
    return Variant{};
  });
  accept(13);
  report(13);
  EXPECT_EQ(subject, u"Incidencia en Agencia 3.05.12");
  EXPECT_EQ(body, u"Nada\r\n\r\nDescripción: Algo falló. (Guardar de CNota) ");
}

TEST_F(AcceptedOffer, clears_the_pending_error) {
  accept(13);
  report(13);
  EXPECT_EQ(error.number, 0);
  EXPECT_EQ(error.description, u"");
}

TEST_F(AcceptedOffer, marks_the_report_as_running_only_meanwhile) {
  bool running = false;
  mailer->answering(u"EnviarCorreo", [&](Arguments) {
    running = moduleValues().EnviandoSoporte;
    return Variant{};
  });
  accept(13);
  report(13);
  EXPECT_TRUE(running);
  EXPECT_FALSE(moduleValues().EnviandoSoporte);
}

TEST_F(AcceptedOffer, the_entry_is_in_the_log_before_the_report_is_packed) {
  bool logged = false;
  zip->answering(u"MakeZipFile", [&](Arguments) {
    logged = !here.logEntries().empty();
    return Variant(0);
  });
  accept(13);
  report(13);
  EXPECT_TRUE(logged);
}

TEST_F(AcceptedOffer, a_picture_of_the_screen_is_taken_and_nothing_else_attached) {
  accept(13);
  report(13);
  EXPECT_EQ(here.faults.visits("Shell.saveScreenPicture"), 1);
  EXPECT_EQ(
      std::ranges::count_if(zip->journal, [](const Text& line) { return line.starts_with(u"AddFile"); }), 2);
}

TEST_F(AcceptedOffer, a_failure_inside_the_report_offers_no_other) {
  mailer->failing(u"EnviarCorreo", 5);
  accept(13);
  here.expectReportWithoutOffer(u"EnviarDatosASoporte() de RutinasErr", 5);
  report(13);
  EXPECT_FALSE(moduleValues().EnviandoSoporte);
}

TEST_F(Reporter, goes_on_when_the_log_cannot_be_written) {
  moduleValues().ErrLogPath = u"\\log\\errores.txt";
  here.faults.failAlways("Files.append", 61);
  here.screen.expectBoxLike(u"Error en la rutina: Guardar de CNota", u"Brenox?", 4148, Text(title), 7);
  expectBox(u"Error al escribir en \\log\\errores.txt", 16);
  report(13);
  EXPECT_FALSE(moduleValues().MensajeEnCurso);
}

}  // namespace
}  // namespace ovalia
