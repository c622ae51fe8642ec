#include "exchange/RecordMarks.h"

#include <optional>

#include "cards/Lookups.h"
#include "exchange/AdditionalMarks.h"
#include "exchange/AnnotationFacts.h"
#include "exchange/PassingMarks.h"
#include "routines/TextHelpers.h"
#include "routines/Trap.h"

namespace ovalia {

namespace {

// What the marks are made from.
struct Source {
  const Instance& nota;
  dao::Recordset& rows;
  const std::int32_t modo;
  const Text grid;
  std::optional<AttachmentTexts> attachments = {};  // once they were looked up

  bool has(TextView field) const { return ExisteControl(rows.fields(), field); }

  // Null also where the list has no such field.
  Variant value(TextView field) const { return has(field) ? rows.value(field) : Variant(Null); }
  Text text(TextView field) const { return value(field).text(); }
  bool ofVisits() const { return grid == u"grdVisita"; }
};

// A mark, the field it comes from, how, and a second field that has its part in it. A mark of a pair stands
// at the next index too.
struct RecordMark {
  std::size_t index;
  TextView name;
  TextView field;
  Text (*rule)(Source& source, const RecordMark& mark);
  TextView second = {};
  bool pair = false;
};

constexpr bool pair = true;

Text text(Source& source, const RecordMark& mark) { return source.text(mark.field); }

Text subject(Source& source, const RecordMark& mark) {
  if (source.has(mark.field)) return source.text(mark.field);
  if (source.has(mark.second)) return join(u"Anuncio en ", source.text(mark.second));
  return u"Llamada por el anuncio";
}

Text notes(Source& source, const RecordMark& mark) {
  return source.modo == paraAdjuntar ? Text() : source.text(mark.field);
}

Text shown(const Variant& moment) {
  return moment.isNull() ? Text() : markMoment(markDate(moment), markTime(moment));
}

Text moment(Source& source, const RecordMark& mark) { return shown(source.value(mark.field)); }

// Lists are asked whether they have the day of writing in the spelling that is the second field.
Text writing(Source& source, const RecordMark& mark) {
  return source.has(mark.second) ? shown(source.rows.value(mark.field)) : Text();
}

// What has no beginning of its own began when it was written down, but for a note.
Text beginning(Source& source, const RecordMark& mark) {
  if (source.has(mark.field)) return shown(source.rows.value(mark.field));
  return source.nota.nota.Tipo == u"Nota" ? Text() : shown(source.value(mark.second));
}

Text yesOrNo(Source& source, const RecordMark& mark) {
  const Variant condition = source.value(mark.field);
  if (condition.isNull()) return {};
  return condition.holds() ? u"Sí" : u"No";
}

Text reminder(Source& source, const RecordMark& mark) {
  const Variant condition = source.value(mark.field);
  if (condition.isNull()) return {};
  return condition.holds() ? join(u"Sí - ", source.value(mark.second)) : Text(u"No");
}

// A name that the host's query joins to a visit by the key that is the second field.
Text visitsName(Source& source, const RecordMark& mark) {
  return source.ofVisits() && source.has(mark.second) ? source.text(mark.field) : Text();
}

Text salesperson(Source& source, const RecordMark& mark) {
  if (!source.ofVisits() || !source.has(mark.field)) return {};
  const auto rows = database().OpenRecordset(
      join(u"SELECT * FROM Usuario WHERE IdUsuario = ", source.value(mark.field)), dao::dbOpenSnapshot);
  return rows->value(u"nombre").text();
}

// Notes keep theirs where the host says; whatever else is listed, in the table of the advertisements.
AttachmentTexts lookedUp(const Source& source) {
  if (!hasAttachments(source.rows)) return {};
  const bool ofNotes = source.grid == u"grdNota" || source.grid == u"grdHistorico";
  const std::int32_t parent = annotationNumber(source.rows);
  return ofNotes
             ? attachmentTexts(source.nota, parent, source.nota.nota.DocuAsoc, source.rows.value(u"IdAnota"))
             : attachmentTexts(source.nota, parent, u"DocuAnuncioIP", source.rows.value(u"IdAnuncio"));
}

const AttachmentTexts& attachmentsOf(Source& source) {
  if (!source.attachments) source.attachments = lookedUp(source);
  return *source.attachments;
}

Text attachedNames(Source& source, const RecordMark&) { return attachmentsOf(source).names; }
Text attachedPaths(Source& source, const RecordMark&) { return attachmentsOf(source).paths; }
Text number(Source& source, const RecordMark&) { return toText(annotationNumber(source.rows)); }

constexpr RecordMark recordMarks[] = {
    {0, u"Asunto", u"Asunto", subject, u"Donde"},
    {1, u"Categorias", u"Categorias", text},
    {2, u"Autor", u"Usuario", text, u"", pair},
    {4, u"Fecha", u"FechaAlta", writing, u"Fechaalta"},
    {5, u"Acceso", u"TipoAccNota", text},
    {6, u"Adjunto", u"", attachedNames},
    {7, u"AdjuntoEMail", u"", attachedPaths},
    {8, u"Notas", u"Notas", notes, u"", pair},
    {10, u"Comienzo", u"FechaComienzo", beginning, u"FechaAlta", pair},
    {12, u"Fin", u"FechaFin", moment},
    {13, u"Donde", u"Donde", text},
    {14, u"Cliente", u"Cliente", visitsName, u"IdCliente", pair},
    {16, u"Comercial", u"IdComercial", salesperson, u"", pair},
    {18, u"Agencia", u"Agencia", visitsName, u"IdOtraAgencia"},
    {19, u"Aviso", u"Aviso", reminder, u"TiempoAviso"},
    {20, u"Confirmada", u"Confirmada", yesOrNo},
    {21, u"Realizada", u"Realizada", yesOrNo},
    {22, u"FechaInicio", u"FechaInicio", text},
    {23, u"Dias", u"NDias", text},
    {24, u"Enviar", u"Enviar", yesOrNo},
    {25, u"Enviada", u"FechaEnvio", moment},
    {26, u"Id", u"", number},
};

}  // namespace

Text hostsActiveControl(const Instance& nota) {
  return getMember(objectAt(nota.nota.frmBase, {u"ActiveForm", u"ActiveControl"}), u"Name").toText();
}

void Datos_rsDlg(Instance& nota, const dao::RecordsetRef& rs, Marks& marks, std::int32_t modo) {
  procedure(u"Datos_rsDlg de CNota", [&] {
    if (!rs) throw Failure(failure::objectNotSet);
    Source source{nota, *rs, modo, hostsActiveControl(nota)};
    for (const RecordMark& mark : recordMarks) {
      const Text found = mark.rule(source, mark);
      if (mark.pair)
        marks.setPair(mark.index, mark.name, found);
      else
        marks.set(mark.index, mark.name, found);
    }
    addPropertyAndClient(nota, *rs, marks);
  });
}

}  // namespace ovalia
