#include "routines/SupportReport.h"

#include "platform/Platform.h"
#include "routines/Collection.h"
#include "routines/FileHelpers.h"
#include "routines/Messages.h"
#include "routines/SystemHelpers.h"
#include "routines/Trap.h"

namespace ovalia {
namespace {

constexpr int defaultPointer = 0;
constexpr int hourglass = 11;

constexpr TextView reportedSections[] = {u"Settings", u"MainWindow", u"Prueba"};

struct Report {
  Text folder;
  Text picture;  // "" for none
  Text zip;
};

// Whether the zip was made; the user is told when not.
bool makeZip(const ObjectRef& archiver, const Report& report, TextView adjunto) {
  putMember(archiver, u"ZipFileName", report.zip);
  putMember(archiver, u"UpdatingZip", false);
  callMember(archiver, u"AddFile", {report.folder + u"*.txt"});
  if (!adjunto.empty()) callMember(archiver, u"AddFile", {adjunto});
  if (!report.picture.empty()) callMember(archiver, u"AddFile", {report.picture});
  if (callMember(archiver, u"MakeZipFile").toLong() == 0) return true;
  MostrarMensaje(join(u"Error al crear el zip: ", callMember(archiver, u"GetLastMessage")), 0, u"");
  return false;
}

// "" when the user gives none.
Text explanation(bool asked) {
  if (!asked) return u" ";
  const Text text = PedirMensaje(u"Por favor, explique que estaba haciendo cuando se ha producido el error",
                                 u"Aviso de incidencia", u"");
  if (text.empty())
    MostrarMensaje(join(u"La descripción está en blanco.", CRLF, u"No se enviará el mensaje."), 0, u"");
  return text;
}

void mail(const Report& report, TextView asunto, const Text& text) {
  const auto attachments = std::make_shared<Collection>();
  attachments->add(report.zip);
  const ObjectRef mailer = CrearObjeto(u"Zandrel.CZandrel");
  callMember(mailer, u"EnviarCorreo", {supportAddress, asunto, text, attachments});
}

}  // namespace

OutputFile::OutputFile(TextView path) : path_(path) { Platform::current().files->write(path_, u""); }

void OutputFile::print(TextView line) { Platform::current().files->append(path_, join(line, CRLF)); }

void EnviarDatosASoporte(TextView adjunto, bool conCaptura, TextView asunto, TextView cuerpo) {
  procedure(u"EnviarDatosASoporte() de RutinasErr", [&] {
    Report report;
    report.folder = rutaCarpetaTemporal();
    if (conCaptura) {
      report.picture = report.folder + u"Captura.bmp";
      CapturarPantalla(report.picture);
    }
    Screen& screen = *Platform::current().screen;
    screen.setMousePointer(hourglass);
    VolcarSystemaTxt();

    const ObjectRef archiver = CrearObjeto(u"ZipLibrary.CGZipFiles");
    report.zip = report.folder + u"envio.zip";
    if (!BorrarFichero(report.zip, true)) return;
    if (makeZip(archiver, report, adjunto)) {
      const Text descripcion = explanation(conCaptura);
      if (!descripcion.empty()) mail(report, asunto, join(descripcion, CRLF, cuerpo));
    }
    screen.setMousePointer(defaultPointer);
  });
}

void CapturarPantalla(TextView ruta) {
  resumeNext([&] {
    if (BorrarFichero(ruta, true)) Platform::current().shell->saveScreenPicture(ruta);
  });
}

void VolcarSystemaTxt() {
  procedure(u"VolcarSystemaTxt() de RutinasErr", [] {
    const Platform& here = Platform::current();
    OutputFile file(rutaCarpetaTemporal() + u"system.txt");
    file.print(MirarVersionOS());
    file.print(u" ");
    file.print(
        join(u"Contenido del system.dat: ", formatDate(here.clock->now(), u"dd/mm/yy hh:mm", regionalNow())));
    file.print(u" ");
    for (const TextView section : reportedSections) VolcarCadenasSystema(section, file);
    file.print(u" ");
    file.print(join(u"App.Path: ", here.app.path));
    file.print(u" ");
    const Text local = here.settings->get(here.app.title, u"Settings", u"Directorio", u"");
    file.print(join(u"directorioLocal: ", local));
    // The setting is the host's and may be in the system's form.
    VolcarDirectorio(logicPath(local) + u"\\comun\\librerias", file);
  });
}

void VolcarCadenasSystema(TextView seccion, OutputFile& fichero) {
  procedure(u"VolcarCadenasSystema() de RutinasErr", [&] {
    const Platform& here = Platform::current();
    for (const auto& [key, value] : here.settings->all(here.app.title, seccion))
      fichero.print(join(seccion, u"->", key, u": ", value));
  });
}

void VolcarDirectorio(TextView ruta, OutputFile& fichero) {
  procedure(u"VolcarDirectorio() de RutinasErr", [&] {
    if (!ExisteDirectorio(ruta)) {
      fichero.print(join(u"El directorio ", ruta, u" no existe."));
      return;
    }
    for (const Files::Entry& entry : Platform::current().files->list(ruta)) {
      if (entry.attributes & Files::directoryAttribute) continue;
      Text name = entry.name;
      fichero.print(join(u"Dll: ", entry.name, u"\tversion: ", VersionFichero(UnirRuta(ruta, name)),
                         u"\t Fecha: ", entry.modified));
    }
  });
}

}  // namespace ovalia
