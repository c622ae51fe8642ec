#include "host/Printing.h"

#include <QCoreApplication>

#include "desktop/TemplatePicking.h"
#include "host/Office.h"
#include "host/TemplateFailure.h"
#include "platform/Platform.h"

namespace ovalia::host {

namespace fs = std::filesystem;

using desktop::PrintWish;
using desktop::TemplatePicking;

namespace {

constexpr std::string_view printName = "Impreso-", printEnding = ".rtf";

Text shown(const fs::path& path) { return fromUtf8(path.native()); }

// A shown document is its reader's for the day.
void removeOldPrints(const fs::path& folder) {
  constexpr auto aDay = std::chrono::hours(24);
  std::error_code error;
  for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
    const std::string name = entry->path().filename().native();
    if (!name.starts_with(printName) || !name.ends_with(printEnding)) continue;
    std::error_code unreadable;
    const auto written = entry->last_write_time(unreadable);
    if (unreadable || fs::file_time_type::clock::now() - written < aDay) continue;
    fs::remove(entry->path(), unreadable);
  }
}

void show(Workplace& workplace, PrintFile& file, TextView title) {
  if (!workplace.dialogs.openFile(shown(file.path()), Text(title) + fromUtf8(printEnding)))
    throw TemplateFailure(u"No hay ningún programa para abrir " + shown(file.path()) + u".");
  file.keep();
}

fs::path temporaryFolder() {
  const fs::path folder = toUtf8(nativePath(Platform::current().files->temporaryFolder()));
  removeOldPrints(folder);
  return folder;
}

void saveAsPdf(Workplace& workplace, const fs::path& file, TextView title) {
  const Text chosen = workplace.dialogs.saveFile(
      {u"Imprimir en un fichero PDF", u"Documento PDF (*.pdf)|*.pdf", {}, Text(title) + u".pdf"});
  if (chosen.empty()) return;
  fs::path target = toUtf8(nativePath(chosen));
  if (!target.has_extension()) target += ".pdf";
  convertDocument(file, "pdf", target, letWindowsLive);
}

}  // namespace

void letWindowsLive() {
  if (QCoreApplication::instance())
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents | QEventLoop::ExcludeSocketNotifiers);
}

PrintFile::PrintFile() : PassingFile(temporaryFolder(), printName, printEnding) {}

void print(Workplace& workplace, PrintFile& file, TextView title) {
  const PrintWish wish = TemplatePicking::current().wish.value_or(PrintWish());
  if (wish.where == PrintWish::Where::screen) return show(workplace, file, title);
  if (!officeInstalled()) {
    show(workplace, file, title);
    workplace.dialogs.tell(u"Imprimir",
                           u"Para imprimir desde aquí hace falta LibreOffice, que no está instalado en este "
                           u"ordenador. El documento se ha abierto para que lo imprima desde su programa.");
    return;
  }
  if (wish.where == PrintWish::Where::pdf)
    saveAsPdf(workplace, file.path(), title);
  else
    printDocument(file.path(), toUtf8(wish.printer), letWindowsLive);
}

}  // namespace ovalia::host
