#include "cards/Saving.h"

#include <array>

#include "cards/CardToRecord.h"
#include "cards/Deletion.h"
#include "cards/EditTracking.h"
#include "cards/RecordToCard.h"
#include "cards/Validation.h"
#include "commands/ToolState.h"
#include "platform/Platform.h"
#include "routines/Messages.h"
#include "routines/Trap.h"

namespace ovalia {

namespace {

constexpr TextView title = u"Guardar";
constexpr int defaultPointer = 0, hourglass = 11;
constexpr std::int32_t exclamation = 48, yesNoCancelQuestion = 35;
constexpr std::int32_t yes = 6, no = 7;

// What the user is asked about a card that was never saved and about one that was changed.
struct QuestionRow {
  TextView tipo;  // "" is any other
  TextView fresh;
  TextView changed;
};

constexpr std::array<QuestionRow, 5> questions{{
    {u"Nota", u"¿Desea guardar la nueva nota?", u"¿Desea guardar los cambios realizados en la nota?"},
    {u"Visita", u"¿Desea guardar la nueva visita?", u"¿Desea guardar los cambios realizados en la visita?"},
    {u"Anuncio", u"¿Desea guardar el nuevo anuncio?",
     u"¿Desea guardar los cambios realizados en el anuncio?"},
    {u"Llamada", u"¿Desea guardar la nueva llamada?",
     u"¿Desea guardar los cambios realizados en la llamada?"},
    {u"", u"¿Desea guardar la nueva ficha?", u"¿Desea guardar los cambios realizados en la ficha?"},
}};

const QuestionRow& questionFor(TextView tipo) {
  for (const QuestionRow& row : questions)
    if (row.tipo == tipo) return row;
  return questions.back();
}

std::int32_t askWhatToDo(const Instance& nota) {
  const QuestionRow& row = questionFor(nota.nota.Tipo);
  return MostrarMensaje(nota.EstadoFicha == nueva ? row.fresh : row.changed, yesNoCancelQuestion, title);
}

void setPointer(int pointer) { Platform::current().screen->setMousePointer(pointer); }

void showStamp(Instance& nota) {
  const Text stamp = nota.crs().value(u"FechaActualizacion").text();
  nota.card().control(u"lblActualizacion")->setValue(stamp);
}

// The signs make an empty label and a stamp that is Null agree.
bool writtenByAnother(Instance& nota) {
  const Text stored = join(u"#", nota.crs().value(u"FechaActualizacion"), u"#");
  return stored != join(u"#", nota.card().control(u"lblActualizacion")->value(), u"#");
}

// A list whose current row has gone is taken to its first one, if it has any.
AfterFailure afterFailure(Instance& nota, const Failure& failure) {
  switch (failure.number()) {
    case dao::failure::noCurrentRecord:
      resumeNext([&] { nota.crs().MoveFirst(); });
      return AfterFailure::goOn;
    case dao::failure::commitWithoutBegin:
      return AfterFailure::goOn;
    default:
      return AfterFailure::passItOn;
  }
}

void run(Instance& nota, Statements statements) {
  runStatements(statements, [&](const Failure& failure) { return afterFailure(nota, failure); });
}

void write(Instance& nota, bool& result) {
  if (Preguardar()) {
    result = GrabaRegistro(nota);
  } else {
    result = false;
    nota.card().SetFocus();
  }
}

void keepChanges(Instance& nota, bool& result) {
  run(nota, {
                [] { setPointer(hourglass); },
                [&] { write(nota, result); },
                [&] { showStamp(nota); },
                [&] { RefrescoCaption(nota); },
                [&] {
                  if (const auto active = nota.card().ActiveControl()) active->Tag = HacerAlgo;
                },
                [&] {
                  if (result) nota.EstadoFicha = limpia;
                },
                [] { setPointer(defaultPointer); },
            });
}

void dropChanges(Instance& nota, TextView Accion, bool& result) {
  run(nota, {
                [] { setPointer(hourglass); },
                [&] {
                  if (nota.EstadoFicha == nueva) Borrar(nota, false, Accion);
                },
                [&] {
                  nota.EstadoFicha = limpia;
                  result = true;
                },
                [] { setPointer(defaultPointer); },
            });
}

void hideWithoutRows(Instance& nota) {
  if (!nota.crs().isEOF() || !nota.dNota) return;
  nota.EstadoFicha = limpia;
  nota.dNota->Hide();
}

}  // namespace

void Guardar(Instance& nota, TextView Preguntar) {
  procedure(u"Guardar de CNota", [&] {
    if (nota.EstadoFicha == modificada && writtenByAnother(nota)) {
      MostrarMensaje(join(u"La ficha acaba de ser modificada por otro usuario.", CRLF,
                          u"Sus cambios son cancelados y se visualiza la última modificación."),
                     exclamation, title);
      RefrescoFicha(nota, u"");
      return;
    }
    if (nota.EstadoFicha != nueva && nota.EstadoFicha != modificada) return;
    if (!ComprobarCambio(nota, true)) return;
    if (!AvisoCambio(nota, Preguntar, u"Save")) return;
    const forms::ControlRef active = nota.card().ActiveControl();
    if (!active) throw Failure(failure::objectNotSet);
    active->Tag = HacerAlgo;
  });
}

void DeshacerCambios(Instance& nota) {
  procedure(u"DeshacerCambios de CNota", [&] {
    if (nota.crs().RecordCount() == 0) {
      nota.card().Hide();
      nota.EstadoFicha = limpia;
      return;
    }
    if (nota.EstadoFicha != nueva) {
      RefrescoFicha(nota, u"");
      return;
    }
    Borrar(nota, false, u"");
    if (nota.EstadoFicha != limpia) MostrarMensaje(u"La ficha no ha podido ser borrada.", exclamation, u"");
  });
}

bool AvisoCambio(Instance& nota, TextView Preguntar, TextView Accion) {
  return procedure(u"AvisoCambio de CNota", false, [&](bool& result) {
    if (nota.EstadoFicha == limpia) {
      result = true;
      return;
    }
    std::int32_t answer = yes;
    if (Preguntar == u"Preguntar") {
      if (nota.EstadoFicha != nueva && nota.EstadoFicha != modificada) {
        result = true;
        return;
      }
      answer = askWhatToDo(nota);
    }
    if (answer == yes) {
      keepChanges(nota, result);
    } else if (answer == no) {
      dropChanges(nota, Accion, result);
      if (Accion == u"Move") return;
    } else {
      run(nota, {[&] { nota.card().SetFocus(); }});
    }
    run(nota, {
                  [&] { hideWithoutRows(nota); },
                  [&] {
                    if (result) CambiarMenu(nota, u"Guardar", limpia, u"");
                  },
              });
  });
}

bool Preguardar() { return true; }

}  // namespace ovalia
