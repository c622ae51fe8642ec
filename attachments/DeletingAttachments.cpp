#include "attachments/DeletingAttachments.h"

#include <exception>

#include "attachments/AttachmentList.h"
#include "attachments/DocumentFolders.h"
#include "attachments/StoredPaths.h"
#include "cards/Lookups.h"
#include "routines/FileHelpers.h"
#include "routines/Messages.h"
#include "routines/SqlText.h"
#include "routines/Trap.h"

namespace ovalia {

namespace {

constexpr std::int32_t okOnly = 0, exclamation = 48, yesNoInformation = 68;
constexpr std::int32_t yes = 6;

bool isYes(const Text& question, TextView title) {
  return MostrarMensaje(question, yesNoInformation, title) == yes;
}

struct StoredDocument {
  Text name;
  Text folder = {};
  Text path = {};  // for the user's eyes only: a name that no file can have stands in it too
};

void find(const Instance& nota, StoredDocument& document) {
  document.folder = CreaPathDoc(nota, nota.crs().value(u"Id").toLong());
  document.path = join(dataFolder(nota), u"\\", document.folder, document.name);
}

bool hasAttachments(const Instance& nota) {
  return compareLess(std::int32_t(0), nota.crs().value(u"Narchivos")).holds();
}

void recycle(const Instance& nota, const StoredDocument& document) {
  const bool canExist = document.folder.empty() || isStoredName(document.name);
  if (!canExist) throw Failure(failure::fileNotFound);
  EnviarAPapelera(storedPath(nota, document.folder, document.name));
}

void deleteRow(const Instance& nota, TextView name) {
  database().Execute(join(u"DELETE * FROM ", nota.nota.DocuAsoc, u" WHERE NombreArch = ", ComillaSQL(name),
                          u" AND IdNota = ", nota.crs().value(u"IdAnota")));
}

void tellWhereNoRowWent() {
  if (database().RecordsAffected() == 0) MostrarMensaje(u"Problemas al borra en Archivo.", okOnly, u"");
}

void countOneLess(dao::Recordset& crs) { crs.setValue(u"Narchivos", crs.value(u"Narchivos").toLong() - 1); }

void showWhatIsLeft(Instance& nota) {
  if (nota.dNota && nota.dNota->Visible()) RefrescoDocs(nota);
}

AfterFailure tell(const StoredDocument& document, bool inUse) {
  const Text text = inUse ? join(u"El documento adjunto (", document.path, u") está abierto en Word;", CRLF,
                                 u"ciérrelo y vuelva a intentarlo.")
                          : join(u"El documento adjunto (", document.path, u") no existe.");
  MostrarMensaje(text, exclamation, u"Borrar");
  return inUse ? AfterFailure::leave : AfterFailure::goOn;
}

AfterFailure afterFailure(const Instance& nota, const StoredDocument& document, std::int32_t number) {
  switch (number) {
    case failure::fileNotFound:
    case failure::pathFileAccess:
      return tell(document, !storedFile(nota, document.folder, document.name).empty());
    case failure::permissionDenied:
      return tell(document, true);
    default:
      return AfterFailure::passItOn;
  }
}

}  // namespace

bool BorrarDocNota(Instance& nota, TextView NArch, bool Preguntar) {
  std::exception_ptr whileHandling;
  const bool done = procedure(u"BorrarDocNota de CNota", true, [&](bool& result) {
    StoredDocument document{.name = Text(NArch)};
    const auto decide = [&](const Failure& failed) {
      AfterFailure after = AfterFailure::leave;
      try {
        after = afterFailure(nota, document, failed.number());
      } catch (...) {
        whileHandling = std::current_exception();
      }
      if (after == AfterFailure::leave || failed.number() == failure::pathNotFound) result = false;
      return after;
    };
    bool any = true;
    const bool looked =
        runStatements({[&] { find(nota, document); }, [&] { any = hasAttachments(nota); }}, decide);
    if (!looked || !any || document.name.empty()) return;
    if (Preguntar &&
        !isYes(join(u"El documento adjunto a la nota se borrará.", CRLF, CRLF, u"¿Desea continuar?"),
               u"Borrar")) {
      result = false;
      return showWhatIsLeft(nota);
    }
    runStatements({
                      [&] { recycle(nota, document); },
                      [&] { nota.crs().Edit(); },
                      [&] { countOneLess(nota.crs()); },
                      [&] { nota.crs().Update(); },
                      [&] { deleteRow(nota, document.name); },
                      tellWhereNoRowWent,
                      [&] { showWhatIsLeft(nota); },
                  },
                  decide);
  });
  if (whileHandling) std::rethrow_exception(whileHandling);
  return done;
}

bool TestDocAsociado(Instance& nota) {
  return procedure(u"TestDocAsociado de CNota", true, [&](bool& result) {
    const Variant none = compareEqual(nota.crs().value(u"Narchivos"), std::int32_t(0));
    if (none.isNull() || none.holds()) return;
    result = isYes(join(u"La anotación seleccionada contiene un documento asociado.", CRLF, CRLF,
                        u"¿Desea borrarlo y continuar?"),
                   u"Anotacion") &&
             BorrarDocNota(nota, selectedAttachment(nota).key, false);
  });
}

}  // namespace ovalia
