#include "cards/Deletion.h"

#include "attachments/DeletingAttachments.h"
#include "cards/RecordToCard.h"
#include "routines/Messages.h"
#include "routines/Trap.h"

namespace ovalia {

namespace {

constexpr TextView title = u"Borrar";
constexpr std::int32_t information = 64, yesNoQuestion = 36, exclamationOverAll = 4144;
constexpr std::int32_t yes = 6;

// In place of a key: the current annotation as what to delete, none as what to show next.
constexpr std::int32_t current = -1, none = -1;

bool isYes(TextView question) { return MostrarMensaje(question, yesNoQuestion, title) == yes; }

std::int32_t currentId(const Instance& nota) { return nota.crs().value(u"IdAnota").toLong(); }

void find(const Instance& nota, std::int32_t id) { nota.crs().FindFirst(join(u"IdAnota = ", id)); }

// The annotation to show once `deleted` has gone, found by walking from the current row.
std::int32_t neighbour(const Instance& nota, std::int32_t deleted) {
  if (nota.crs().isEOF()) nota.crs().MoveFirst();
  nota.crs().MoveNext();
  if (!nota.crs().isEOF()) {
    const std::int32_t next = currentId(nota);
    return next == deleted ? none : next;
  }
  nota.crs().MovePrevious();
  nota.crs().MovePrevious();
  return nota.crs().isBOF() ? none : currentId(nota);
}

// The walk has left the row. Where the annotation is not in the list another would be deleted in its place.
void standOn(const Instance& nota, std::int32_t id, std::int32_t placeBefore) {
  find(nota, id);
  if (!nota.crs().NoMatch()) return;
  nota.crs().setAbsolutePosition(placeBefore);
  throw Failure(
      dao::failure::noCurrentRecord,
      join(u"La anotación ", id, u" no está en la lista. Actualice la lista y vuelva a intentarlo."));
}

// Each step that fails is passed over.
void showWhatIsLeft(Instance& nota, std::int32_t next, TextView Accion) {
  const bool closing = Accion == u"UnLoad";
  if (closing || next == none) {
    nota.EstadoFicha = limpia;
    resumeNext([&] { nota.card().Hide(); });
    if (closing) resumeNext([&] { nota.crs().MoveFirst(); });
  } else {
    resumeNext([&] { find(nota, next); });
    resumeNext([&] { RefrescoFicha(nota, u"Borrar"); });
  }
  nota.EstadoFicha = limpia;
}

bool isIdle(const Instance& nota) {
  return nota.EstadoFicha == limpia || nota.EstadoFicha == nueva || nota.EstadoFicha == modificada;
}

}  // namespace

void Borrar(Instance& nota, bool Preguntar, TextView Accion) {
  procedureHandling(
      u"Borrar de CNota ",
      [&] {
        if (Preguntar && !isYes(u"¿Desea borrar la ficha activa?")) return;
        BorrarUno(nota, current, Accion);
      },
      [&](const Failure& failed) {
        if (failed.number() != dao::failure::noCurrentRecord) return false;
        resumeNext([&] { nota.crs().MoveFirst(); });
        return true;
      });
}

void BorrarUno(Instance& nota, std::int32_t ParamBorrar, TextView Accion) {
  procedure(u"BorrarUno de CNota", [&] {
    const std::int32_t place = nota.crs().AbsolutePosition();
    if (place == -1) {
      MostrarMensaje(u"Error: No hay ningún registro activo.", exclamationOverAll, u"");
      return;
    }
    if (!isIdle(nota)) return;
    const std::int32_t id = ParamBorrar == current ? currentId(nota) : ParamBorrar;
    const std::int32_t next = neighbour(nota, id);
    standOn(nota, id, place);
    bool allowed = true;
    resumeNext([&] { allowed = SemiBorrar(nota, id); });
    if (!allowed) return;
    if (resumeNext([&] { nota.crs().Delete(); }) == dao::failure::referenced) {
      resumeNext([] {
        MostrarMensaje(u"Imposible eliminar el dato ya que está siendo utilizado por otras fichas.",
                       information, title);
      });
      return;
    }
    AfterBorrar(nota, id);
    showWhatIsLeft(nota, next, Accion);
  });
}

bool SemiBorrar(Instance& nota, std::int32_t) {
  return procedure(u"SemiBorrar de CNota", true, [&](bool& result) {
    const auto list = nota.card().as<forms::ListView>(u"LsvDocu");
    const auto count = static_cast<int>(list->items().size());
    if (count == 0) return;
    result =
        isYes(join(count == 1 ? u"El documento adjunto se borrará." : u"Los documentos adjuntos se borrarán.",
                   CRLF, CRLF, u"¿Desea continuar?"));
    // The list is filled again after each deletion.
    for (int i = count; i > 0 && result; --i) {
      list->select(i);
      const Text key = list->item(i).key;
      result = BorrarDocNota(nota, key, false);
    }
  });
}

void AfterBorrar(Instance&, std::int32_t) {}

}  // namespace ovalia
