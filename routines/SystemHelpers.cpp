#include "routines/SystemHelpers.h"

#include <optional>

#include "platform/Platform.h"
#include "platform/Variant.h"
#include "routines/TextHelpers.h"
#include "routines/Trap.h"

namespace ovalia {
namespace {

constexpr struct {
  int platform;
  TextView name;
} systemLines[] = {{0, u"Windows 3.x"}, {1, u"Windows 9x"}, {2, u"Windows NT"}};

Text lineOf(const Shell::SystemVersion& version) {
  for (const auto& line : systemLines)
    if (line.platform == version.platform) return Text(line.name);
  return version.name.empty() ? toText(version.platform) : version.name;
}

}  // namespace

Text VersionPrograma(std::int16_t digitos) {
  return procedure(u"VersionPrograma() de RutinasErr", Text{}, [&](Text& result) {
    const AppInfo& app = Platform::current().app;
    result = join(app.major, u".", Padding(toText(app.minor), digitos), u".",
                  Padding(toText(app.revision), digitos));
  });
}

ObjectRef CrearObjeto(TextView clase) {
  return procedureHandling([&] { return join(u"CrearObjeto() de RutinasErr (", clase, u")."); }, ObjectRef{},
                           [&](ObjectRef& result) { result = Platform::current().objects->create(clase); },
                           [&](const Failure& failed, ObjectRef&) {
                             if (failed.number() != failure::classCannotBeCreated) return false;
                             PendingError error(failed);
                             GestionarError(
                                 join(u"La librería ", clase, u" no está registrada correctamente."), error);
                             return true;
                           });
}

Text MirarVersionOS() {
  return procedure(u"MirarVersionOS() de RutinasErr", Text{}, [](Text& result) {
    const Shell::SystemVersion version = Platform::current().shell->systemVersion();
    const TextView servicePack = TextView(version.servicePack).substr(0, version.servicePack.find(u'\0'));
    result = join(lineOf(version), CRLF, u"Version: ", version.major, u".", version.minor, u".",
                  version.build, CRLF, u" ", servicePack);
  });
}

Text VersionFichero(TextView ruta) {
  return procedure(u"VersionFichero() de RutinasErr", Text{}, [&](Text& result) {
    std::optional<Shell::FileVersion> version;
    resumeNext([&] { version = Platform::current().shell->fileVersion(ruta); });
    if (version) result = join(version->major, u".", version->minor, u".", version->build);
  });
}

}  // namespace ovalia
