#include "routines/ErrorLog.h"

#include "platform/Object.h"
#include "platform/Platform.h"
#include "platform/Variant.h"
#include "routines/FileHelpers.h"
#include "routines/Messages.h"
#include "routines/ModuleValues.h"

namespace ovalia {
namespace {

constexpr std::int32_t noNumber = -1000;

// " (form)->(control)" of what the user stands on.
Text activePlace(Screen& screen) {
  const ObjectRef form = screen.activeForm();
  if (!form) return {};
  Text place = join(u" (", getMember(form, u"Name"), u")");
  if (const ObjectRef control = screen.activeControl())
    place += join(u"->(", getMember(control, u"Name"), u")");
  return place;
}

Text logEntry(TextView descripcion, std::int32_t numero, TextView rutina) {
  const Platform& here = Platform::current();
  Text entry = formatDate(here.clock->now(), u"dd/mm/yy hh:mm:ss ", regionalNow());
  entry += descripcion;
  if (numero != noNumber) entry += join(u" [", numero, u"] ");
  entry += rutina;
  entry += activePlace(*here.screen);
  entry += CRLF;
  entry += u"    Formularios: ";
  for (const ObjectRef& form : here.screen->forms())
    entry += join(getMember(form, u"Name"), u"{", getMember(form, u"Caption"), u"} ");
  entry += CRLF;
  return entry;
}

}  // namespace

void EscribirErrLog(TextView descripcion, std::int32_t numero, TextView rutina) {
  Text& path = moduleValues().ErrLogPath;
  try {
    if (path.empty()) path = componentFolder() + u"ErrLog[_].txt";
    const Text file = logicPath(path);
    Text name;
    if (ComprobarDirectorio(PathFichero(file, name), false).empty()) {
      MostrarMensaje(u"Error al crear " + path, 16, u"");
      return;
    }
    Platform::current().files->append(file, logEntry(descripcion, numero, rutina));
  } catch (...) {
    // Not reported: a report would come back here.
    MostrarMensaje(u"Error al escribir en " + path, 16, u"");
  }
}

}  // namespace ovalia
