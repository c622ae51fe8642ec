#include "routines/FileHelpers.h"

#include <algorithm>

#include "platform/Platform.h"
#include "routines/Messages.h"
#include "routines/Trap.h"

namespace ovalia {
namespace {

constexpr int yes = 6;
constexpr int cdRom = 5;

Files& files() { return *Platform::current().files; }

// -1 where they cannot be read.
int attributesOf(TextView path) {
  int attributes = -1;
  resumeNext([&] { attributes = files().attributes(path); });
  return attributes;
}

bool isCdRom(TextView root) {
  bool result = false;
  resumeNext([&] { result = files().driveType(root) == cdRom; });
  return result;
}

bool hasDrive(TextView path) { return path.size() > 1 && path[1] == u':'; }

// Whether folders can be made on the path's drive; the user is told where not.
bool driveAccepts(TextView path) {
  const TextView root = path.substr(0, path.find(u'\\') + 1);
  if (attributesOf(root) == -1) {
    MostrarMensaje(join(u"La unidad ", root, u" no existe."), 16, u"");
    return false;
  }
  if (isCdRom(root)) {
    MostrarMensaje(join(u"La unidad ", root, u" es un CDROM."), 16, u"");
    return false;
  }
  return true;
}

void makeEveryLevel(TextView path) {
  for (auto end = path.find(u'\\'); end != TextView::npos; end = path.find(u'\\', end + 1)) {
    const TextView level = path.substr(0, end + 1);
    if (attributesOf(level) == -1) resumeNext([&] { files().makeDirectory(level); });
  }
}

}  // namespace

Text componentFolder() { return ComprobarDirectorio(files().temporaryFolder() + u"Brenox\\", false); }

Text rutaCarpetaTemporal() {
  return procedure(u"rutaCarpetaTemporal() de RutinasErr", Text{},
                   [](Text& result) { result = componentFolder(); });
}

bool ExisteDirectorio(TextView ruta) {
  return procedureHandling(
      [&] { return join(u"ExisteDirectorio() de RutinasErr, ruta:", ruta); }, false,
      [&](bool& result) { result = (files().attributes(ruta) & Files::directoryAttribute) != 0; },
      [](const Failure& failed, bool&) {
        return failed.number() == failure::fileNotFound || failed.number() == failure::pathNotFound;
      });
}

Text ComprobarDirectorio(TextView ruta, bool preguntar) {
  Text path(ruta);
  if (!path.ends_with(u'\\')) path += u'\\';
  if (hasDrive(path) && isCdRom(TextView(path).substr(0, 3))) {
    MostrarMensaje(join(u"El directorio ", path, u" es de un CDROM."), 16, u"");
    return {};
  }
  if (attributesOf(path) != -1) return path;
  if (preguntar) {
    const Text question = join(u"El directorio ", path, u" no existe.", CRLF, CRLF, u"¿Desea crearlo?");
    if (MostrarMensaje(question, 4 + 64, u"") != yes) return {};
  }
  if (hasDrive(path) && !driveAccepts(path)) return {};
  makeEveryLevel(path);
  return path;
}

bool ExisteFichero(TextView ruta) {
  return resumeNext([&] { files().attributes(ruta); }) == 0;
}

Text PathFichero(TextView ruta, Text& nombre) {
  return procedure(u"PathFichero() de RutinasErr", Text{}, [&](Text& folder) {
    if (ruta.empty()) return;
    const auto last = ruta.rfind(u'\\');
    const auto start = last == TextView::npos ? 0 : last + 1;
    const Text directory(ruta.substr(0, start));
    nombre = Text(ruta.substr(start));
    folder = directory;
  });
}

bool BorrarFichero(TextView ruta, bool avisar) {
  return procedureHandling(
      u"BorrarFichero() de RutinasErr", false,
      [&](bool& result) {
        if (!files().firstMatch(ruta).empty()) files().remove(ruta);
        result = true;
      },
      [&](const Failure&, bool&) {
        if (avisar) MostrarMensaje(join(u"No ha sido posible borrar ", ruta), 0, u"");
        return true;
      });
}

Text UnirRuta(TextView carpeta, Text& nombre) {
  return procedure(u"UnirRuta() de RutinasErr", Text{}, [&](Text& result) {
    if (nombre.starts_with(u'\\')) nombre.erase(0, 1);
    result = join(carpeta, carpeta.ends_with(u'\\') ? u"" : u"\\", nombre);
  });
}

Text filtrarNombreArchivo(TextView nombre) {
  constexpr TextView neverInName = u"\"'*?:/\\|<>";
  return procedure(u"filtrarNombreArchivo() de RutinasErr", Text{}, [&](Text& result) {
    Text name(nombre);
    std::erase_if(name, [=](char16_t c) { return neverInName.find(c) != TextView::npos; });
    result = name;
  });
}

void EnviarAPapelera(TextView archivo) {
  procedure(u"EnviarAPapelera() de RutinasErr", [&] {
    const Shell::RecycleResult done = Platform::current().shell->recycle(archivo);
    if (done.code != 0)
      MostrarMensaje(join(u"Error devuelto: ", done.code, u", ", done.lastError), 0, u"");
    else if (done.aborted)
      MostrarMensaje(u"Operación abortada", 0, u"");
  });
}

}  // namespace ovalia
