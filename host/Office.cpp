#include "host/Office.h"

#include <fstream>
#include <optional>

#include "host/TemplateFailure.h"
#include "platform/Failure.h"
#include "system/FileCopy.h"
#include "system/PassingFile.h"
#include "system/RunProgram.h"

namespace ovalia::host {

namespace fs = std::filesystem;

using system::PassingFolder;
using system::ProgramEnd;

namespace {

using Documents = std::span<const fs::path>;

Text shown(const fs::path& path) { return fromUtf8(path.native()); }

Text shown(Documents documents) {
  Text all;
  for (const fs::path& document : documents) all += (all.empty() ? u"" : u", ") + shown(document);
  return all;
}

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

void work(Documents documents, TextView what, const PassingFolder& folder,
          const std::vector<std::string>& wish, const Meanwhile& meanwhile,
          std::chrono::milliseconds patience) {
  const auto program = office();
  if (!program)
    throw TemplateFailure(u"Para " + Text(what) + u" " + shown(documents) +
                          u" hace falta LibreOffice, que no está instalado en este ordenador.");
  std::vector<std::string> command{*program, "-env:UserInstallation=" + addressOf(folder.path() / "perfil"),
                                   "--headless", "--norestore", "--nolockcheck"};
  command.insert(command.end(), wish.begin(), wish.end());
  for (const fs::path& document : documents) command.push_back(fs::absolute(document).native());
  switch (system::runProgram(command, patience, meanwhile)) {
    case ProgramEnd::done:
      return;
    case ProgramEnd::failed:
      throw TemplateFailure(u"LibreOffice no ha podido " + Text(what) + u" " + shown(documents) + u".");
    case ProgramEnd::tooLate:
      throw TemplateFailure(u"LibreOffice tarda demasiado en " + Text(what) + u" " + shown(documents) +
                            u". Vuelva a intentarlo.");
  }
}

// What is at `target` stays until the new file is whole.
void put(const fs::path& made, const fs::path& target) {
  try {
    system::copyOver(made.native(), target.native());
  } catch (const Failure& failure) {
    throw TemplateFailure(u"No se puede escribir " + shown(target) + u". " + failure.description());
  }
}

}  // namespace

bool officeInstalled() { return office().has_value(); }

void convertDocuments(Documents documents, const std::string& format, const fs::path& folder,
                      const Meanwhile& meanwhile, std::chrono::milliseconds patience) {
  const PassingFolder passing;
  work(documents, u"convertir", passing, {"--convert-to", format, "--outdir", passing.path().native()},
       meanwhile, patience);
  for (const fs::path& document : documents) {
    const fs::path made = document.stem() += "." + format;
    std::error_code error;
    // It also ends well without a result.
    if (!fs::exists(passing.path() / made, error))
      throw TemplateFailure(u"LibreOffice no ha podido convertir " + shown(document) + u".");
    put(passing.path() / made, folder / made);
  }
}

void convertDocument(const fs::path& document, const std::string& format, const fs::path& target,
                     const Meanwhile& meanwhile, std::chrono::milliseconds patience) {
  const PassingFolder passing;
  convertDocuments({&document, 1}, format, passing.path(), meanwhile, patience);
  put(passing.path() / document.stem() += "." + format, target);
}

void printDocument(const fs::path& document, const std::string& printer, const Meanwhile& meanwhile) {
  work({&document, 1}, u"imprimir", PassingFolder(), {"--pt", printer}, meanwhile, officePatience);
}

void pictureOfDocument(const fs::path& document, const fs::path& picture) {
  fs::path pdf = document;
  pdf.replace_extension(".pdf");
  if (pdf != document) convertDocument(document, "pdf", pdf);
  fs::path stem = picture;
  stem.replace_extension();
  const std::vector<std::string> command{"pdftoppm", "-png", "-singlefile", "-r",         "72",         "-f",
                                         "1",        "-l",   "1",           pdf.native(), stem.native()};
  if (system::runProgram(command, officePatience) != ProgramEnd::done)
    throw TemplateFailure(u"No se ha podido dibujar " + shown(document) +
                          u". Compruebe que está instalado pdftoppm.");
}

std::string textOfPdf(const fs::path& pdf) {
  const PassingFolder passing;
  const fs::path text = passing.path() / "texto.txt";
  const std::vector<std::string> command{"pdftotext", "-layout",    "-enc",
                                         "UTF-8",     pdf.native(), text.native()};
  if (system::runProgram(command, officePatience) != ProgramEnd::done)
    throw TemplateFailure(u"No se ha podido leer " + shown(pdf) +
                          u". Compruebe que está instalado pdftotext.");
  std::ifstream file(text, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace ovalia::host
