#include "desktop/DocumentType.h"

#include <zip.h>

#include <QFile>
#include <QFileInfo>
#include <QMimeDatabase>
#include <algorithm>
#include <memory>

namespace ovalia::desktop {

namespace {

// Documents of office programs are archives that tell themselves apart by what is in them.
struct OfficeType {
  const char* part;
  const char* type;
};
constexpr OfficeType officeTypes[] = {
    {"word/document.xml", "application/vnd.openxmlformats-officedocument.wordprocessingml.document"},
    {"xl/workbook.xml", "application/vnd.openxmlformats-officedocument.spreadsheetml.sheet"},
    {"ppt/presentation.xml", "application/vnd.openxmlformats-officedocument.presentationml.presentation"},
};

// Those of older ones are another kind of container, and not all of them are known to be a case of it.
constexpr const char* storage = "application/x-ole-storage";
constexpr const char* stored[] = {
    "application/msword",         "application/vnd.ms-excel",     "application/vnd.ms-powerpoint",
    "application/vnd.ms-outlook", "application/vnd.ms-publisher", "application/vnd.visio"};

struct Closer {
  void operator()(zip_t* archive) const { zip_discard(archive); }
};

// Invalid for an archive that is none of them.
QMimeType officeType(const QMimeDatabase& types, const QString& path) {
  int error = 0;
  const std::unique_ptr<zip_t, Closer> archive(zip_open(QFile::encodeName(path), ZIP_RDONLY, &error));
  if (archive)
    for (const OfficeType& row : officeTypes)
      if (zip_name_locate(archive.get(), row.part, 0) >= 0)
        return types.mimeTypeForName(QLatin1String(row.type));
  return {};
}

QMimeType contentType(const QMimeDatabase& types, const QString& path) {
  const QMimeType found = types.mimeTypeForFile(path, QMimeDatabase::MatchContent);
  if (!found.inherits(QStringLiteral("application/zip"))) return found;
  const QMimeType office = officeType(types, path);
  return office.isValid() ? office : found;
}

bool saysNothing(const QMimeType& type) {
  return type.isDefault() || type.name() == QStringLiteral("application/x-zerosize");
}

bool canBe(const QMimeType& content, const QMimeType& named) {
  if (saysNothing(content) || named.inherits(content.name())) return true;
  return content.name() == QLatin1String(storage) &&
         std::ranges::any_of(stored, [&](const char* type) { return named.inherits(QLatin1String(type)); });
}

}  // namespace

QMimeType documentType(const QString& path, const QString& shownName) {
  const QMimeDatabase types;
  const QMimeType content = contentType(types, path);
  for (const QString& name : {shownName, QFileInfo(path).fileName()})
    for (const QMimeType& named : types.mimeTypesForFileName(name))
      if (canBe(content, named)) return named;
  return content;
}

}  // namespace ovalia::desktop
