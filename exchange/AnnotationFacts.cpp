#include "exchange/AnnotationFacts.h"

#include "attachments/DocumentFolders.h"
#include "attachments/StoredPaths.h"
#include "cards/Lookups.h"
#include "platform/Platform.h"
#include "routines/TextHelpers.h"

namespace ovalia {

namespace {

Text formatted(const Variant& moment, TextView pattern) {
  return moment.isNull() ? Text() : formatDate(moment.toDate(), pattern, regionalNow());
}

}  // namespace

std::int32_t annotationNumber(dao::Recordset& rows) {
  const bool named = ExisteControl(rows.fields(), u"Id");
  return (named ? rows.value(u"Id") : rows.fields().at(0)->Value()).toLong();
}

bool hasAttachments(dao::Recordset& rows) {
  return ExisteControl(rows.fields(), u"NArchivos") &&
         compareLess(std::int32_t(0), rows.value(u"Narchivos")).holds();
}

AttachmentTexts attachmentTexts(const Instance& nota, std::int32_t parent, TextView table,
                                const Variant& annotation) {
  const Text folder = CreaPathDoc(nota, parent);
  const auto rows = database().OpenRecordset(
      join(u"SELECT NombreOrg, NombreArch FROM ", table, u" WHERE IdNota = ", annotation),
      dao::dbOpenSnapshot);
  AttachmentTexts texts;
  if (rows->isEOF()) return texts;
  for (TextView separator; !rows->isEOF(); rows->MoveNext(), separator = u" , ") {
    texts.names += join(separator, rows->value(u"NombreOrg"));
    texts.paths += join(separator, storedPath(nota, folder, rows->value(u"NombreArch").text()));
  }
  texts.names += u'.';
  return texts;
}

Text markDate(const Variant& moment) { return formatted(moment, u"dd/MM/yy"); }

Text markTime(const Variant& moment) { return formatted(moment, u"hh:mm"); }

Text markMoment(TextView date, TextView time) { return join(date, u" - ", time); }

}  // namespace ovalia
