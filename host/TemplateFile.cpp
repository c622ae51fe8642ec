#include "host/TemplateFile.h"

#include <algorithm>
#include <fstream>
#include <iterator>

#include "host/Office.h"
#include "host/TemplateFailure.h"
#include "system/PassingFile.h"

namespace ovalia::host {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view magics[] = {"\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1", "PK\x03\x04"};

Text shown(const fs::path& path) { return fromUtf8(path.native()); }

}  // namespace

bool isForeignFormat(std::string_view bytes) {
  return std::ranges::any_of(magics, [&](std::string_view magic) { return bytes.starts_with(magic); });
}

std::string templateBytes(const fs::path& file) {
  std::error_code error;
  if (!fs::is_regular_file(file, error))
    throw TemplateFailure(u"No existe la plantilla " + shown(file) + u".");
  std::ifstream stream(file, std::ios::binary);
  std::string bytes(std::istreambuf_iterator<char>(stream), {});
  if (!stream.is_open() || stream.bad())
    throw TemplateFailure(u"No se puede leer la plantilla " + shown(file) +
                          u". Compruebe que tiene permiso para ello.");
  return bytes;
}

std::string templateAsRtf(const fs::path& file, const std::function<void()>& meanwhile) {
  std::string bytes = templateBytes(file);
  if (!isForeignFormat(bytes)) return bytes;
  if (!officeInstalled())
    throw TemplateFailure(u"La plantilla " + shown(file) +
                          u" está en el formato propio de un procesador de textos, y para convertirla hace "
                          u"falta LibreOffice, que no está instalado en este ordenador. Instálelo, o guarde "
                          u"la plantilla como RTF desde el programa con el que se hizo.");
  const system::PassingFile converted;
  convertDocument(file, "rtf", converted.path(), meanwhile);
  return templateBytes(converted.path());
}

}  // namespace ovalia::host
