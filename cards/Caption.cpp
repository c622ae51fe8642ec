#include <array>

#include "cards/RecordToCard.h"
#include "routines/Trap.h"

namespace ovalia {

namespace {

// How a kind's title begins, and the member by which the host's property card counts it.
struct CaptionRow {
  TextView tipo;
  TextView lead;    // in front of the number; "" is the list's own heading
  TextView number;  // the field with the number
  TextView kind;
  TextView counter;  // "" where the host counts none
};

constexpr std::array<CaptionRow, 4> captions{{
    {u"Nota", u"", u"Id", u" - Nota: ", u"Ajuste_N_Notas"},
    {u"Visita", u"", u"Id", u" - Visita: ", u"Ajuste_N_Visitas"},
    {u"Anuncio", u"", u"Id", u" - Anuncio: ", u"Ajuste_N_Anuncios"},
    {u"Llamada", u"Anuncio: ", u"IdAnuncio", u" - Llamada: ", u""},
}};

const CaptionRow* captionOf(TextView tipo) {
  for (const CaptionRow& row : captions)
    if (row.tipo == tipo) return &row;
  return nullptr;
}

// A visit without a parent is an appointment.
Text firstPart(Instance& nota, const CaptionRow& row) {
  const Variant number = nota.crs().value(row.number);
  if (row.tipo == u"Visita" && !compareLess(std::int32_t(0), number).holds()) return u"Cita: ";
  return join(row.lead.empty() ? TextView(nota.nota.Cabecera) : row.lead, number, row.kind);
}

void tellHost(Instance& nota, const CaptionRow* row) {
  if (!nota.FormActiva) return;
  const Text name = getMember(nota.FormActiva, u"Name").toText();
  if (name == u"FichaInm" && row && !row->counter.empty()) callMember(nota.FormActiva, row->counter);
  if (name == u"FichaUsuario") callMember(nota.FormActiva, u"RellenaVisita", {true});
}

}  // namespace

void RefrescoCaption(Instance& nota) {
  procedure(u"RefrescoCaption de CNota", [&] {
    forms::CardForm& card = nota.card();
    const CaptionRow* row = captionOf(nota.nota.Tipo);
    if (row) card.setCaption(firstPart(nota, *row));
    dao::Recordset& crs = nota.crs();
    card.setCaption(join(card.Caption(), crs.AbsolutePosition() + 1, u"/", crs.RecordCount()));
    tellHost(nota, row);
  });
}

}  // namespace ovalia
