#include "desktop/Archiver.h"

#include <zip.h>

#include <QFile>
#include <QFileInfo>
#include <array>
#include <set>

#include "desktop/DiskFile.h"
#include "desktop/QtText.h"
#include "platform/Failure.h"
#include "platform/Platform.h"
#include "platform/Variant.h"
#include "system/PathLookup.h"

namespace ovalia::desktop {

namespace {

constexpr int nothingToDo = -1;

// Plain files that the path or mask names, as the disk calls them.
std::vector<std::string> filesNamed(TextView pathOrMask) {
  std::vector<std::string> files;
  const auto [folder, mask] = system::splitPath(pathOrMask);
  const auto place = system::locate(folder);
  if (!place || !system::isFolder(*place)) return files;
  for (const auto& name : system::namesIn(*place)) {
    const std::string file = *place + "/" + name.bytes;
    if (system::fitsMask(name.text, mask) && system::isPlainFile(file)) files.push_back(file);
  }
  return files;
}

// The usual reasons in the user's language; the library knows more, in its own.
struct ReasonRow {
  int code;
  TextView text;
};
constexpr auto reasons = std::to_array<ReasonRow>({
    {ZIP_ER_OPEN, u"no se puede abrir el archivo."},
    {ZIP_ER_READ, u"no se puede leer un archivo."},
    {ZIP_ER_WRITE, u"no se puede escribir en el disco."},
    {ZIP_ER_TMPOPEN, u"no se puede escribir en la carpeta."},
    {ZIP_ER_RENAME, u"no se puede dar su nombre al archivo comprimido."},
    {ZIP_ER_NOENT, u"falta la carpeta del archivo comprimido."},
    {ZIP_ER_NOZIP, u"hay ya un archivo con ese nombre que no es un zip."},
    {ZIP_ER_MEMORY, u"no hay memoria suficiente."},
});

Text reasonOf(zip_error_t& error) {
  for (const ReasonRow& row : reasons)
    if (row.code == zip_error_code_zip(&error)) return Text(row.text);
  return fromUtf8(zip_error_strerror(&error));
}

class Archiver {
 public:
  Text name;
  bool updating = false;
  Text message;

  void add(TextView pathOrMask) {
    for (std::string& file : filesNamed(pathOrMask))
      if (seen_.insert(file).second) files_.push_back(std::move(file));
  }

  std::int32_t make() {
    message.clear();
    if (files_.empty()) return message = u"No hay archivos que comprimir.", nothingToDo;
    int error = 0;
    zip_t* archive = zip_open(QFile::encodeName(diskFile(name)).constData(),
                              ZIP_CREATE | (updating ? 0 : ZIP_TRUNCATE), &error);
    if (!archive) {
      zip_error_t opening;
      zip_error_init_with_code(&opening, error);
      message = reasonOf(opening);
      zip_error_fini(&opening);
      return error;
    }
    std::set<QString> names;
    bool good = true;
    for (const std::string& file : files_) good = good && addTo(archive, file, names);
    if (good && zip_close(archive) == 0) return 0;
    message = reasonOf(*zip_get_error(archive));
    const int code = zip_error_code_zip(zip_get_error(archive));
    zip_discard(archive);
    return code ? code : ZIP_ER_INTERNAL;
  }

 private:
  // Two files of one name from different folders both find room.
  static QString entryName(const std::string& file, std::set<QString>& names) {
    const QFileInfo info(QFile::decodeName(file.c_str()));
    QString entry = info.fileName();
    for (int n = 2; !names.insert(entry).second; ++n)
      entry = QStringLiteral("%1 (%2).%3").arg(info.completeBaseName()).arg(n).arg(info.suffix());
    return entry;
  }

  static bool addTo(zip_t* archive, const std::string& file, std::set<QString>& names) {
    zip_source_t* source = zip_source_file(archive, file.c_str(), 0, -1);
    if (!source) return false;
    const QByteArray entry = entryName(file, names).toUtf8();
    if (zip_file_add(archive, entry.constData(), source, ZIP_FL_OVERWRITE | ZIP_FL_ENC_UTF_8) >= 0)
      return true;
    zip_source_free(source);
    return false;
  }

  std::vector<std::string> files_;
  std::set<std::string> seen_;
};

}  // namespace

ObjectRef makeArchiver() {
  auto archiver = std::make_shared<Archiver>();
  auto object = std::make_shared<MemberTable>();
  object->property(
      u"ZipFileName", [=](Arguments) -> Variant { return archiver->name; },
      [=](const Variant& value, Arguments) { archiver->name = value.toText(); });
  object->property(
      u"UpdatingZip", [=](Arguments) -> Variant { return archiver->updating; },
      [=](const Variant& value, Arguments) { archiver->updating = value.toBoolean(); });
  object->method(u"AddFile", [=](Arguments arguments) -> Variant {
    if (arguments.size() != 1) throw Failure(failure::wrongArguments);
    archiver->add(arguments[0].toText());
    return {};
  });
  object->method(u"MakeZipFile", [=](Arguments) -> Variant { return archiver->make(); });
  object->method(u"GetLastMessage", [=](Arguments) -> Variant { return archiver->message; });
  return object;
}

}  // namespace ovalia::desktop
