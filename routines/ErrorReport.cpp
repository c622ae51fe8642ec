#include "routines/ErrorReport.h"

#include <algorithm>

#include "platform/Object.h"
#include "platform/Platform.h"
#include "platform/Variant.h"
#include "platform/dao.h"
#include "routines/ErrorLog.h"
#include "routines/ModuleValues.h"
#include "routines/SupportReport.h"
#include "routines/SystemHelpers.h"

namespace ovalia {
namespace {

constexpr int yes = 6;
constexpr int no = 7;

// Failures that have a text of their own. "%1" stands for the application's title.
struct Announcement {
  std::int32_t number;
  TextView text;
  int buttons;
  TextView title;
  bool hostReloads;  // the host's form reads its records again
};

constexpr Announcement announcements[] = {
    {failure::outOfMemory,
     u"El sistema no dispone de suficiente memoria libre.\r\n"
     u"Cierre los programas que no esté utilizando o reinicie el sistema.\r\n\r\n"
     u"Es conveniente reiniciar %1 para evitar errores.",
     16 + 4096, u"Error de sistema", false},
    // The title says "Borrar" whatever was being done.
    {failure::permissionDenied,
     u"El fichero está bloqueado por Windows.\r\n\r\nCompruebe que no está abierto en Word.", 48 + 4096,
     u"Borrar", false},
    {dao::failure::recordDeleted,
     u"La ficha acaba de ser borrada por otro usuario y\r\nno se volverá a visualizar.", 48 + 4096, u"Error",
     true},
    {dao::failure::referenced, u"Imposible eliminar el dato ya que está siendo utilizado por otras fichas.",
     64 + 4096, u"Eliminar", false},
};

constexpr TextView offer = u"¿Desea enviar la información sobre el error al soporte técnico de Brenox?";

void announce(const Announcement& row) {
  const Platform& here = Platform::current();
  here.screen->messageBox(replaceAll(row.text, u"%1", here.app.title), row.buttons, row.title);
  if (row.hostReloads)
    callMember(objectAt(here.screen->activeForm(), {u"vClase"}), u"CargaRegistros", {false, true});
}

int showFailure(TextView rutina, const PendingError& error) {
  // First of all: without a platform nothing below could report either.
  Screen& screen = *Platform::current().screen;
  const Text text = join(u"Error en la rutina: ", rutina, CRLF, CRLF, u"Texto del error: ", error.description,
                         CRLF, u"Número del error: ", error.number);
  const Text title = u"Error. - Versión: " + VersionPrograma(2);
  if (!moduleValues().EnviandoSoporte)
    return screen.messageBox(join(text, CRLF, CRLF, offer), 4 + 48 + 4096, title);
  screen.messageBox(text, 48 + 4096, title);
  return no;
}

void sendReport(TextView rutina, const PendingError& error) {
  const Text asunto = join(u"Incidencia en ", Platform::current().app.title, u" ", VersionPrograma(2));
  const Text cuerpo = join(CRLF, u"Descripción: ", error.description, u" (", rutina, u") ");
  EnviarDatosASoporte(u"", true, asunto, cuerpo);
}

}  // namespace

bool PermitirAvisoError() { return true; }

void GestionarError(TextView rutina, PendingError& error) {
  const PendingError pending = error;
  int answer = no;
  bool& flag = moduleValues().MensajeEnCurso;
  const bool before = flag;
  flag = true;

  const auto* row = std::ranges::find(announcements, pending.number, &Announcement::number);
  if (row != std::end(announcements)) {
    announce(*row);
  } else if (PermitirAvisoError()) {
    answer = showFailure(rutina, pending);
  }
  EscribirErrLog(pending.description, pending.number, rutina);
  if (answer == yes) {
    error.clear();
    moduleValues().EnviandoSoporte = true;
    sendReport(rutina, pending);
    moduleValues().EnviandoSoporte = false;
  }
  flag = before;
}

}  // namespace ovalia
