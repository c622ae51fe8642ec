#include "attachments/AddingAttachments.h"

#include <vector>

#include "attachments/DocumentFolders.h"
#include "attachments/HostDialog.h"
#include "attachments/HostRecord.h"
#include "attachments/RegisteringAttachments.h"
#include "attachments/StoredNames.h"
#include "attachments/StoredPaths.h"
#include "platform/Platform.h"
#include "routines/ClipboardFiles.h"
#include "routines/FileHelpers.h"
#include "routines/Trap.h"

namespace ovalia {

namespace {

// Explorer style, several files, no read-only box.
constexpr std::int32_t dialogFlags = 524804;

Text chosenIn(const ObjectRef& dialog, TextView folder) {
  constexpr std::int32_t roomForNames = 1024;
  putMember(dialog, u"DialogTitle", u"Captura de documentos");
  putMember(dialog, u"Filter", u"Documentos (*.*)|*.*");
  putMember(dialog, u"fileName", u"");
  putMember(dialog, u"InitDir", folder);
  putMember(dialog, u"FLAGS", dialogFlags);
  putMember(dialog, u"CancelError", true);
  putMember(dialog, u"MaxFileSize", roomForNames);
  callMember(dialog, u"ShowOpen");
  return logicPath(getMember(dialog, u"fileName").text());
}

std::vector<Text> splitAtZeros(TextView text) {
  std::vector<Text> parts;
  for (std::size_t end; (end = text.find(u'\0')) != TextView::npos; text.remove_prefix(end + 1))
    parts.emplace_back(text.substr(0, end));
  parts.emplace_back(text);
  return parts;
}

// Several files come as their folder and at least two names; gives the folder they were chosen in.
Text attachChosen(Instance& nota, TextView chosen, std::int32_t record, bool registrar) {
  constexpr std::size_t folderAndTwoNames = 3;
  std::vector<Text> parts = splitAtZeros(chosen);
  if (parts.size() < folderAndTwoNames) {
    AdjuntarFichero(nota, parts[0], record, registrar);
    Text name;
    return PathFichero(parts[0], name);
  }
  for (std::size_t i = 1; i < parts.size(); ++i)
    AdjuntarFichero(nota, UnirRuta(parts[0], parts[i]), record, registrar);
  return parts[0];
}

}  // namespace

void AdjuntarDocumento(Instance& nota, bool NotaGrabada) {
  procedureHandling(
      u"AdjuntarDocumento de CNota",
      [&] {
        const ObjectRef dialog = hostDialog(nota);
        const RememberedFolder start(nota, u"DirDocumentos");
        if (const Text chosen = chosenIn(dialog, start.folder()); !chosen.empty()) {
          const std::int32_t record = hostRecordOrNew(nota);
          start.remember(attachChosen(nota, chosen, record, NotaGrabada));
        }
        tellReady(nota);
      },
      [](const Failure& failed) { return failed.number() == failure::dialogCancelled; });
}

void AdjuntarFichero(Instance& nota, TextView ruta, std::int32_t Id, bool registrar) {
  procedure([&] { return join(u"AdjuntarFichero de CNota, ruta:", ruta); },
            [&] {
              const Text folder = CreaPathDoc(nota, Id);
              Text extension = lastFour(ruta);
              const Text name = CreaNombreDoc(nota, Id, extension);
              Platform::current().files->copy(ruta, storedPathForCopy(nota, folder, name), false);
              if (registrar) AniadirArch(nota, ruta, name);
            });
}

void PegarDePortapapeles(Instance& nota) {
  procedure(u"PegarDePortapapeles de CNota", [&] {
    if (!keepsAttachments(nota)) return;
    const std::int32_t record = hostRecord(nota);
    std::vector<Text> files;
    if (ClipboardPasteFiles(files) <= 0) return;
    for (const Text& file : files) AdjuntarFichero(nota, file, record, true);
  });
}

void dNota_OLEDragOver(Instance& nota, const ObjectRef& data, std::int32_t& effect) {
  constexpr std::int32_t none = 0, copy = 1;
  resumeNext([&] {
    const bool accepted = keepsAttachments(nota) &&
                          getMember(data, u"GetFormat", {std::int32_t(Clipboard::filesFormat)}).toBoolean();
    effect = accepted ? copy : none;
  });
}

void dNota_OLEDragDrop(Instance& nota, const ObjectRef& data) {
  resumeNext([&] {
    if (!keepsAttachments(nota)) return;
    const std::int32_t record = hostRecord(nota);
    const std::int32_t count = getMember(objectAt(data, {u"Files"}), u"Count").toLong();
    for (std::int32_t i = 1; i <= count; ++i)
      resumeNext([&] { AdjuntarFichero(nota, getMember(data, u"Files", {i}).toText(), record, true); });
  });
}

}  // namespace ovalia
