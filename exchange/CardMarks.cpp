#include "exchange/CardMarks.h"

#include <optional>

#include "exchange/AnnotationFacts.h"
#include "routines/TextHelpers.h"

namespace ovalia {

namespace {

// What the marks are made from.
struct Source {
  const Instance& nota;
  forms::CardForm& card;
  const ObjectRef controls;
  const bool withNotes;
  const std::int32_t number;
  const AttachmentTexts attachments;

  bool has(TextView control) const { return ExisteControl(controls, control); }
  Variant value(TextView control) const { return card.control(control)->value(); }
  Text text(TextView control) const { return value(control).text(); }
};

// A mark, the control it comes from, how, and a second control where two make one text.
struct CardMark {
  std::size_t index;
  TextView name;
  TextView control;
  std::optional<Text> (*rule)(const Source& source, const CardMark& mark);
  TextView second = {};
};

using Found = std::optional<Text>;

Found text(const Source& source, const CardMark& mark) {
  return source.has(mark.control) ? Found(source.text(mark.control)) : Found();
}

// An advertisement has a place for a subject, a call neither.
Found subject(const Source& source, const CardMark& mark) {
  if (source.has(mark.control)) return source.text(mark.control);
  if (source.has(mark.second)) return join(u"Anuncio en ", source.text(mark.second));
  return u"Llamada por el anuncio";
}

Found notes(const Source& source, const CardMark& mark) {
  return source.withNotes ? text(source, mark) : Found();
}

Found date(const Source& source, const CardMark& mark) {
  return source.has(mark.control) ? Found(markDate(source.value(mark.control))) : Found();
}

// The hour stands behind the date also where that is empty.
Found moment(const Source& source, const CardMark& mark) {
  const Found day = date(source, mark);
  if (!day || !source.has(mark.second)) return day;
  return markMoment(*day, markTime(source.value(mark.second)));
}

Found beginning(const Source& source, const CardMark& mark) {
  return source.nota.nota.Tipo == u"Nota" ? Found() : moment(source, mark);
}

bool ticked(const Source& source, TextView control) { return source.value(control).toLong() == 1; }

// The second control is the first in the spelling in which it is looked for, where that is another.
Found yesOrNo(const Source& source, const CardMark& mark) {
  if (!source.has(mark.second.empty() ? mark.control : mark.second)) return {};
  return ticked(source, mark.control) ? u"Sí" : u"No";
}

Found reminder(const Source& source, const CardMark& mark) {
  if (!source.has(mark.control)) return {};
  if (!ticked(source, mark.control)) return u"No";
  return join(u"Sí - ", source.text(mark.second));
}

Found attachedNames(const Source& source, const CardMark&) { return source.attachments.names; }
Found attachedPaths(const Source& source, const CardMark&) { return source.attachments.paths; }
Found number(const Source& source, const CardMark&) { return toText(source.number); }

constexpr CardMark cardMarks[] = {
    {0, u"Asunto", u"txtAsunto", subject, u"txtDonde"},
    {1, u"Categorias", u"txtCategorias", text},
    {2, u"Autor", u"cboUsuario", text},
    {3, u"Fecha", u"dtpFechaAlta", moment, u"dtpHoraAlta"},
    {4, u"Acceso", u"cboAcceso", text},
    {5, u"Adjunto", u"", attachedNames},
    {6, u"AdjuntoEMail", u"", attachedPaths},
    {7, u"Notas", u"txtNotas", notes},
    {8, u"Comienzo", u"dtpFechaAlta", beginning, u"dtpHoraAlta"},
    {9, u"Fin", u"dtpFechaFin", moment, u"dtpHoraFin"},
    {10, u"Ubicación", u"txtUbicacion", text},
    {11, u"Cliente", u"txtCliente", text},
    {12, u"Comercial", u"cboComercial", text},
    // Documents in use expect the first salesperson here as well.
    {22, u"Comercial2", u"cboComercial", text},
    {13, u"Agencia", u"txtOtraAgencia", text},
    {14, u"Aviso", u"chkAviso", reminder, u"cboTiempoAviso"},
    {15, u"Confirmada", u"chkConfirmada", yesOrNo},
    {16, u"Realizada", u"chkRealizada", yesOrNo},
    {17, u"FechaInicio", u"dtpFechaInicio", date},
    {18, u"Dias", u"txtNDias", text},
    {19, u"Enviar", u"chkEnviar", yesOrNo, u"chkenviar"},
    {20, u"Enviada", u"dtpFechaEnvio", moment, u"dtpHoraEnvio"},
    {21, u"Id", u"", number},
};

AttachmentTexts attachmentsOf(const Instance& nota, std::int32_t parent) {
  if (!hasAttachments(nota.crs())) return {};
  return attachmentTexts(nota, parent, nota.nota.DocuAsoc, nota.crs().value(u"IdAnota"));
}

}  // namespace

void marksOfCard(const Instance& nota, bool conNotas, Marks& marks) {
  const std::int32_t number = annotationNumber(nota.crs());
  const Source source{nota,     nota.card(), nota.card().Controls(),
                      conNotas, number,      attachmentsOf(nota, number)};
  for (const CardMark& mark : cardMarks)
    if (const Found found = mark.rule(source, mark)) marks.set(mark.index, mark.name, *found);
}

}  // namespace ovalia
