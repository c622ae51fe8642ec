#include "attachments/AttachmentOperations.h"

#include <array>
#include <optional>

#include "attachments/AttachmentList.h"
#include "attachments/DocumentFolders.h"
#include "attachments/HostDialog.h"
#include "attachments/HostRecord.h"
#include "attachments/StoredNames.h"
#include "attachments/StoredPaths.h"
#include "cards/Lookups.h"
#include "platform/Platform.h"
#include "routines/ClipboardFiles.h"
#include "routines/FileHelpers.h"
#include "routines/Messages.h"
#include "routines/SqlText.h"
#include "routines/Trap.h"

namespace ovalia {

namespace {

constexpr std::int32_t information = 64;

// The path must exist; no read-only box. Nothing asks before a file is replaced.
constexpr std::int32_t dialogFlags = 34820;

Files& files() { return *Platform::current().files; }

// Full path of the selected document; nothing, after telling the user `missing`, when there is no such file.
std::optional<Text> selectedFile(const Instance& nota, TextView missing) {
  const Text name = selectedAttachment(nota).key;
  const Text folder = CreaPathDoc(nota, nota.crs().value(u"Id").toLong());
  if (isStored(nota, folder, name)) return storedPath(nota, folder, name);
  MostrarMensaje(missing, information, u"Documento");
  return {};
}

// The dialog's own text of the chosen path; "" when there is none.
Text chosenIn(const ObjectRef& dialog, TextView proposed, TextView folder) {
  putMember(dialog, u"DialogTitle", u"Guardar como");
  putMember(dialog, u"Filter", u"Documentos (*.*)|*.*");
  putMember(dialog, u"fileName", filtrarNombreArchivo(proposed));
  putMember(dialog, u"FLAGS", dialogFlags);
  putMember(dialog, u"CancelError", true);
  putMember(dialog, u"InitDir", folder);
  callMember(dialog, u"ShowSave");
  return getMember(dialog, u"fileName").text();
}

// The chosen path with the extension of the stored name where it has none, told to the dialog too.
Text completed(const ObjectRef& dialog, Text chosen, TextView stored) {
  if (isExtension(lastFour(chosen)) || !isExtension(lastFour(stored))) return chosen;
  chosen += lastFour(stored);
  putMember(dialog, u"fileName", chosen);
  return chosen;
}

// By its path alone: signs that are wildcards elsewhere name no other file.
bool isPlainFile(TextView path) {
  int attributes = Files::directoryAttribute;
  resumeNext([&] { attributes = files().attributes(path); });
  return (attributes & Files::directoryAttribute) == 0;
}

void copyOver(TextView document, TextView target) {
  if (files().sameFile(document, target)) throw Failure(failure::permissionDenied);
  // Replaced without a word: what the bin does not take is replaced all the same.
  if (isPlainFile(target)) resumeNext([&] { Platform::current().shell->recycle(target); });
  files().copy(document, target, true);
}

}  // namespace

void AbrirDocNota(Instance& nota) {
  procedure(u"AbrirDocNota de CNota", [&] {
    std::optional<Text> path = selectedFile(nota, u"El documento que intenta abrir no existe.");
    if (path) nota.nota.AbrirDoc(*path);
  });
}

void CopiarAPortapapeles(Instance& nota) {
  procedure(u"CopiarAPortapapeles de CNota", [&] {
    const auto path = selectedFile(nota, u"El documento que intenta copiar no existe.");
    if (path) ClipboardCopyFiles(std::array{*path});
  });
}

void GuardarComo(Instance& nota) {
  procedureHandling(
      u"GuardarComo de CNota",
      [&] {
        const ObjectRef dialog = hostDialog(nota);
        const RememberedFolder start(nota, u"DirGuardarComo");
        Text chosen = chosenIn(dialog, selectedAttachment(nota).text, start.folder());
        if (chosen.empty()) return;
        const Text folder = CreaPathDoc(nota, hostRecordOrNew(nota));
        const Text stored = selectedAttachment(nota).key;
        const Text target = logicPath(completed(dialog, chosen, stored));
        copyOver(storedPathForCopy(nota, folder, stored), target);
        Text name;
        start.remember(PathFichero(target, name));
        tellReady(nota);
      },
      [](const Failure& failed) { return failed.number() == failure::dialogCancelled; });
}

void dlgNota_ActualizaDocs(Instance& nota, TextView nuevo) {
  procedure(u"dlgNota_ActualizaDocs de CNota", [&] {
    database().Execute(join(u"UPDATE ", nota.nota.DocuAsoc, u" SET NombreOrg = ", ComillaSQL(nuevo),
                            u" WHERE NombreArch = ", ComillaSQL(selectedAttachment(nota).key)));
  });
}

}  // namespace ovalia
