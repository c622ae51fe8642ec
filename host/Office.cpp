#include "host/Office.h"

#include <optional>

#include "host/TemplateFailure.h"
#include "system/PassingFile.h"
#include "system/RunProgram.h"

namespace ovalia::host {

namespace fs = std::filesystem;

using system::PassingFolder;
using system::ProgramEnd;

namespace {

Text shown(const fs::path& path) { return fromUtf8(path.native()); }

std::optional<std::string> office() { return system::findProgram({"soffice", "libreoffice"}); }

// An address that any path can be part of.
std::string addressOf(const fs::path& folder) {
  constexpr std::string_view plain = "/-_.";
  constexpr char digits[] = "0123456789ABCDEF";
  std::string address = "file://";
  for (const char c : folder.native()) {
    const auto byte = static_cast<unsigned char>(c);
    if ((byte < 0x80 && std::isalnum(byte)) || plain.find(c) != plain.npos)
      address += c;
    else
      address.append({'%', digits[byte >> 4], digits[byte & 15]});
  }
  return address;
}

void work(const fs::path& document, TextView what, const PassingFolder& folder,
          const std::vector<std::string>& wish, const Meanwhile& meanwhile,
          std::chrono::milliseconds patience) {
  const auto program = office();
  if (!program)
    throw TemplateFailure(u"Para " + Text(what) + u" " + shown(document) +
                          u" hace falta LibreOffice, que no está instalado en este ordenador.");
  std::vector<std::string> command{*program, "-env:UserInstallation=" + addressOf(folder.path() / "perfil"),
                                   "--headless", "--norestore", "--nolockcheck"};
  command.insert(command.end(), wish.begin(), wish.end());
  command.push_back(fs::absolute(document).native());
  switch (system::runProgram(command, patience, meanwhile)) {
    case ProgramEnd::done:
      return;
    case ProgramEnd::failed:
      throw TemplateFailure(u"LibreOffice no ha podido " + Text(what) + u" " + shown(document) + u".");
    case ProgramEnd::tooLate:
      throw TemplateFailure(u"LibreOffice tarda demasiado en " + Text(what) + u" " + shown(document) +
                            u". Vuelva a intentarlo.");
  }
}

}  // namespace

bool officeInstalled() { return office().has_value(); }

void convertDocument(const fs::path& document, const std::string& format, const fs::path& target,
                     const Meanwhile& meanwhile, std::chrono::milliseconds patience) {
  const PassingFolder folder;
  const fs::path made = folder.path() / document.stem() += "." + format;
  work(document, u"convertir", folder, {"--convert-to", format, "--outdir", folder.path().native()},
       meanwhile, patience);
  std::error_code error;
  // It also ends well without a result.
  if (!fs::exists(made, error))
    throw TemplateFailure(u"LibreOffice no ha podido convertir " + shown(document) + u".");
  fs::copy_file(made, target, fs::copy_options::overwrite_existing, error);
  if (error) throw TemplateFailure(u"No se puede escribir " + shown(target) + u".");
}

void printDocument(const fs::path& document, const std::string& printer, const Meanwhile& meanwhile) {
  work(document, u"imprimir", PassingFolder(), {"--pt", printer}, meanwhile, officePatience);
}

void pictureOfDocument(const fs::path& document, const fs::path& picture) {
  fs::path pdf = document;
  pdf.replace_extension(".pdf");
  convertDocument(document, "pdf", pdf);
  fs::path stem = picture;
  stem.replace_extension();
  const std::vector<std::string> command{"pdftoppm", "-png", "-singlefile", "-r",         "72",         "-f",
                                         "1",        "-l",   "1",           pdf.native(), stem.native()};
  if (system::runProgram(command, officePatience) != ProgramEnd::done)
    throw TemplateFailure(u"No se ha podido dibujar " + shown(document) +
                          u". Compruebe que está instalado pdftoppm.");
}

}  // namespace ovalia::host
