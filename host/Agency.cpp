#include "host/Agency.h"

#include <charconv>
#include <cstdlib>

#include "engines/Open.h"
#include "host/BulkFile.h"
#include "host/Names.h"
#include "host/SampleData.h"
#include "host/Schema.h"

namespace ovalia::host {

namespace fs = std::filesystem;

namespace {

constexpr int mostAnnotations = 20'000'000;

Text shown(const fs::path& path) { return fromUtf8(path.native()); }

struct OpenFailure {
  std::int32_t number;
  TextView message;  // "%" is the file
};
constexpr OpenFailure openFailures[] = {
    {dao::failure::cannotOpen,
     u"No se puede abrir la base de datos %.\nCompruebe que existe y que tiene permiso para leerla."},
    {dao::failure::damaged,
     u"El fichero % está dañado o no es una base de datos.\nRecupere una copia de seguridad."},
    {dao::failure::locked,
     u"Otro programa tiene bloqueada la base de datos %.\nCiérrelo y vuelva a intentarlo."},
    {dao::failure::readOnly, u"No tiene permiso para escribir en la base de datos %."},
};

[[noreturn]] void failWith(const Failure& failure, const fs::path& file) {
  for (const OpenFailure& row : openFailures)
    if (row.number == failure.number()) throw StartFailure(replaceAll(row.message, u"%", shown(file)));
  throw StartFailure(u"No se puede abrir la base de datos " + shown(file) + u".\n" + failure.description());
}

int countFrom(const std::string& text) {
  int count = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), count);
  if (error != std::errc() || end != text.data() + text.size() || count < 0 || count > mostAnnotations)
    throw StartFailure(u"El número de anotaciones debe ser un entero entre 0 y 20000000, no «" +
                       fromUtf8(text) + u"».");
  return count;
}

// Types that hold the same kind of value do for one another.
int family(dao::DataType type) {
  switch (type) {
    case dao::dbByte:
    case dao::dbInteger:
    case dao::dbLong:
      return dao::dbLong;
    case dao::dbCurrency:
    case dao::dbSingle:
    case dao::dbDouble:
      return dao::dbDouble;
    case dao::dbText:
    case dao::dbMemo:
      return dao::dbText;
    default:
      return type;
  }
}

void checkTable(dao::Database& database, const Table& design, const Text& start) {
  const Text name(design.name);
  try {
    const auto found = database.TableDefs(design.name);
    for (const Column& column : design.columns)
      if (family(found->Fields().item(column.name)->Type()) != family(storedType(column.type)))
        throw StartFailure(start + u"la columna " + Text(column.name) + u" de la tabla " + name +
                           u" no es del tipo que debe ser.");
  } catch (const Failure& failure) {
    if (failure.number() != dao::failure::notInCollection) throw;
    throw StartFailure(start + u"la tabla " + name + u" falta o está incompleta.");
  }
}

void checkSchema(dao::Database& database, const fs::path& file) {
  const Text start = u"La base de datos " + shown(file) + u" no es de una agencia: ";
  for (const Table& design : schema()) checkTable(database, design, start);
}

// A write that changes nothing still needs the right and the lock to write.
void checkWritable(dao::Database& database) {
  database.Execute(u"UPDATE Usuario SET Nombre = Nombre WHERE 1 = 0");
}

Text knownUser(dao::Database& database, TextView user) {
  if (!user.empty()) {
    if (auto found = spelling(database, u"Usuario", u"Nombre", user)) return *found;
    throw StartFailure(
        u"El usuario «" + Text(user) +
        u"» de la configuración no existe en la base de datos.\nCorrija «Usuario» en el fichero "
        u"ovalia.ini de su configuración, o bórrelo.");
  }
  const auto rows =
      database.OpenRecordset(u"SELECT Nombre FROM Usuario ORDER BY IdUsuario", dao::dbOpenSnapshot);
  if (rows->isEOF()) throw StartFailure(u"La base de datos no tiene ningún usuario.");
  return rows->value(u"Nombre").text();
}

}  // namespace

Text usage() {
  return u"Uso: agencia [--database FICHERO] [--annotations N] [--tour CARPETA] [--check-template FICHERO]\n"
         u"  --database FICHERO   base de datos; si falta, la de su carpeta de datos\n"
         u"  --annotations N      crea la base de datos con N anotaciones de ejemplo\n"
         u"  --tour CARPETA       hace un recorrido sobre una copia de la base de datos y deja imágenes y "
         u"transcripción en la carpeta\n"
         u"  --check-template FICHERO   dice qué marcadores de una plantilla se rellenan y cuáles no se "
         u"conocen; "
         u"termina con 1 si no está bien\n";
}

StartOptions parseOptions(std::span<const std::string> arguments) {
  StartOptions options;
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    const std::string& name = arguments[i];
    if (name == "--help") {
      options.help = true;
      continue;
    }
    if (name != "--database" && name != "--annotations" && name != "--tour" && name != "--check-template")
      throw StartFailure(u"Opción desconocida: " + fromUtf8(name) + u"\n" + usage());
    if (++i == arguments.size() || arguments[i].empty())
      throw StartFailure(u"Falta el valor de la opción " + fromUtf8(name) + u".");
    if (name == "--database") options.database = arguments[i];
    if (name == "--annotations") options.annotations = countFrom(arguments[i]);
    if (name == "--tour") options.tour = arguments[i];
    if (name == "--check-template") options.templateToCheck = arguments[i];
  }
  return options;
}

fs::path defaultDatabase() {
  fs::path base;
  if (const char* data = std::getenv("XDG_DATA_HOME"); data && *data == '/')
    base = data;
  else if (const char* home = std::getenv("HOME"); home && *home)
    base = fs::path(home) / ".local" / "share";
  else
    throw StartFailure(u"No se sabe cuál es su carpeta personal: falta la variable HOME.");
  return base / "agencia" / "agencia.db";
}

fs::path documentsFolder(const fs::path& database) {
  fs::path folder = database;
  folder.replace_extension();
  return folder += "-documentos";
}

fs::path prepareDatabase(const StartOptions& options) {
  const fs::path file = fs::absolute(options.database.value_or(defaultDatabase()));
  std::error_code error;
  const bool there = fs::exists(file, error);
  if (there && options.annotations)
    throw StartFailure(u"La base de datos " + shown(file) +
                       u" ya existe: --annotations sólo sirve para crear una nueva.");
  if (there) return file;
  if (options.database && !options.annotations)
    throw StartFailure(u"No existe la base de datos " + shown(file) +
                       u".\nPara crearla con datos de ejemplo añada --annotations y un número.");
  try {
    makeDatabaseFile(file, options.annotations.value_or(sampleAnnotations));
    makeSampleDocuments(documentsFolder(file));
  } catch (const Failure& failure) {
    throw StartFailure(failure.description());
  }
  return file;
}

Agency openAgency(const fs::path& file, TextView user) {
  try {
    Agency agency{engines::open(shown(file)), file, documentsFolder(file), {}};
    checkSchema(*agency.database, file);
    checkWritable(*agency.database);
    agency.user = knownUser(*agency.database, user);
    return agency;
  } catch (const Failure& failure) {
    failWith(failure, file);
  }
}

}  // namespace ovalia::host
