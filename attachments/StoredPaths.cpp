#include "attachments/StoredPaths.h"

#include "platform/Platform.h"

namespace ovalia {

namespace {

constexpr TextView neverInName{u"\\/\0", 3};

void check(TextView folder, TextView name) {
  if (folder.empty())
    throw Failure(failure::pathNotFound, join(u"No se ha podido preparar la carpeta del documento \"", name,
                                              u"\". Compruebe la carpeta de datos y sus permisos."));
  if (!isStoredName(name))
    throw Failure(failure::pathNotFound,
                  join(u"\"", name,
                       u"\" no es un nombre de fichero guardado válido. Corrija el nombre en la tabla de "
                       u"documentos o el del fichero de origen."));
}

}  // namespace

Text dataFolder(const Instance& nota) { return logicPath(nota.nota.AppDirUser); }

bool isStoredName(TextView name) {
  return !name.empty() && name != u"." && name != u".." && name.find_first_of(neverInName) == TextView::npos;
}

Text storedPath(const Instance& nota, TextView folder, TextView name) {
  check(folder, name);
  return join(dataFolder(nota), u"\\", folder, name);
}

Text storedPathIn(TextView fullFolder, TextView name) {
  check(fullFolder, name);
  return join(fullFolder, name);
}

Text storedPathForCopy(const Instance& nota, TextView folder, TextView name) {
  check(folder, name);
  return join(dataFolder(nota), u"\\", folder, u"\\", name);
}

Text storedFileIn(TextView fullFolder, TextView name) {
  if (fullFolder.empty() || !isStoredName(name)) return {};
  return Platform::current().files->firstMatch(storedPathIn(fullFolder, name));
}

Text storedFile(const Instance& nota, TextView folder, TextView name) {
  if (folder.empty()) return {};
  return storedFileIn(join(dataFolder(nota), u"\\", folder), name);
}

bool isStored(const Instance& nota, TextView folder, TextView name) {
  return isStoredName(name) && storedFile(nota, folder, name) == name;
}

}  // namespace ovalia
