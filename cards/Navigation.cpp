#include "cards/Navigation.h"

#include "attachments/AddingAttachments.h"
#include "cards/Closing.h"
#include "cards/RecordToCard.h"
#include "cards/Saving.h"
#include "cards/Validation.h"
#include "platform/Platform.h"
#include "routines/Trap.h"

namespace ovalia {

namespace {

using dao::Recordset;

constexpr int defaultPointer = 0, hourglass = 11;

using Test = bool (Recordset::*)() const;
using Step = void (Recordset::*)();

struct Move {
  TextView name;
  Test stuck;  // there is nowhere to go
  Step step;
  bool byOne;  // to a neighbour: there may be none
  Test past;
  Step back;
  bool slow;      // under the hourglass
  Step recovery;  // after the host has read its list again; none stays where the host left it
};

constexpr Move first{.name = u"Primero de CNota",
                     .stuck = &Recordset::isBOF,
                     .step = &Recordset::MoveFirst,
                     .byOne = false,
                     .past = nullptr,
                     .back = nullptr,
                     .slow = true,
                     .recovery = nullptr};
constexpr Move next{.name = u"Siguiente de CNota",
                    .stuck = &Recordset::isEOF,
                    .step = &Recordset::MoveNext,
                    .byOne = true,
                    .past = &Recordset::isEOF,
                    .back = &Recordset::MoveLast,
                    .slow = false,
                    .recovery = &Recordset::MoveNext};
constexpr Move previous{.name = u"Anterior de CNota",
                        .stuck = &Recordset::isBOF,
                        .step = &Recordset::MovePrevious,
                        .byOne = true,
                        .past = &Recordset::isBOF,
                        .back = &Recordset::MoveFirst,
                        .slow = false,
                        .recovery = &Recordset::MovePrevious};
constexpr Move last{.name = u"Ultimo de CNota",
                    .stuck = &Recordset::isEOF,
                    .step = &Recordset::MoveLast,
                    .byOne = false,
                    .past = nullptr,
                    .back = nullptr,
                    .slow = false,
                    .recovery = &Recordset::MoveLast};

void setPointer(int pointer) { Platform::current().screen->setMousePointer(pointer); }

std::int32_t currentId(Instance& nota) { return nota.crs().value(u"IdAnota").toLong(); }

// Leaves the row it comes from, or the one it has come to, in `id`.
void step(Instance& nota, const Move& move, std::int32_t& id) {
  if (move.byOne) id = currentId(nota);
  (nota.crs().*move.step)();
  if (!move.byOne) {
    id = currentId(nota);
  } else if ((nota.crs().*move.past)()) {
    Platform::current().screen->beep();
    (nota.crs().*move.back)();
    id = currentId(nota);
  }
}

void recover(Instance& nota, const Move& move, std::int32_t id) {
  nota.nota.CargaRegistros(nota.nota.Tipo, nota.nota.Nota);
  if (!move.recovery) return;
  if (move.byOne) nota.crs().FindFirst(join(u"IdAnota = ", id));
  (nota.crs().*move.recovery)();
}

void run(Instance& nota, const Move& move) {
  std::int32_t id = 0;
  procedureHandling(
      move.name,
      [&] {
        if ((nota.crs().*move.stuck)()) return;
        if (!ComprobarCambio(nota, true)) return;
        if (!AvisoCambio(nota, u"Preguntar", u"Move")) return;
        if (move.slow) setPointer(hourglass);
        step(nota, move, id);
        RefrescoFicha(nota, u"Guardar");
        if (move.slow) setPointer(defaultPointer);
      },
      [&](const Failure& failure) {
        if (failure.number() == dao::failure::recordDeleted) {
          recover(nota, move, id);
          return true;
        }
        return failure.number() == dao::failure::cancelledByObject;
      });
}

constexpr std::int16_t ctrl = 2;
constexpr std::int16_t escape = 27;

struct Key {
  std::int16_t code;
  void (*run)(Instance& nota);
};

// With Ctrl.
constexpr Key keys[] = {
    {86, PegarDePortapapeles},  // V
    {188, Anterior},            // comma
    {190, Siguiente},           // full stop
};

}  // namespace

void Primero(Instance& nota) { run(nota, first); }
void Siguiente(Instance& nota) { run(nota, next); }
void Anterior(Instance& nota) { run(nota, previous); }
void Ultimo(Instance& nota) { run(nota, last); }

void dNota_KeyDown(Instance& nota, std::int16_t keyCode, std::int16_t shift) {
  procedure(u"dNota_KeyDown de CNota", [&] {
    if (shift & ctrl) {
      for (const Key& key : keys)
        if (key.code == keyCode) key.run(nota);
    }
    if (keyCode != escape) return;
    bool cancel = false;
    dNota_UnLoad(nota, cancel);
    if (cancel) return;
    nota.EstadoFicha = limpia;
    callMember(Platform::current().screen->activeForm(), u"Hide");
  });
}

}  // namespace ovalia
